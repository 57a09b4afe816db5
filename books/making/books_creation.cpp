#include "books/making/books_creation.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "base/values/text.h"
#include "books/list/books_registry.h"
#include "books/making/books_sql.h"
#include "books/making/folder_in_making.h"
#include "books/making/making_texts.h"
#include "data/connection/database.h"
#include "data/engines/open_engine.h"
#include "data/engines/remove_database.h"
#include "data/layout/layout.h"
#include "session/failure_texts.h"
#include "session/who_writes.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

constexpr const char* nameInMaking = "new";

std::string setFolder(const std::string& home, std::int32_t setId) {
    return fmt::format("{}/{:03}", home, setId);
}

std::string withSchema(const std::string& address, std::int32_t setId, int year) {
    const std::size_t question = address.find('?');
    if (question != std::string::npos && address.find("schema=", question) != std::string::npos)
        return address;
    return fmt::format("{}{}schema=zw{:03}_{}", address, question == std::string::npos ? '?' : '&',
                       setId, year);
}

NewBooks withoutSurplusBlanks(NewBooks books) {
    for (std::string* text : {&books.name, &books.company, &books.supervisor, &books.location})
        *text = withoutTrailingBlanks(*text);
    return books;
}

/// A database that is taken away again unless it is kept.
class DatabaseInMaking {
  public:
    explicit DatabaseInMaking(std::string location) : m_location(std::move(location)) {
        std::unique_ptr<Engine> engine;
        m_status = openEngine(m_location, OpenMode::create, engine);
        m_isMade = m_status.isDone();
        if (m_status) m_status = createLayout(*engine);
        if (!m_status) return;
        m_database.keepLog(logAuthor());
        m_database.adopt(std::move(engine), shownLocation(m_location).c_str(), nameInMaking);
        if (m_database.DBSelect(nameInMaking) == 0) m_status = m_database.lastStatus();
    }
    ~DatabaseInMaking() {
        if (m_status) m_database.DBClose(nameInMaking);
        // What cannot be taken away either has been told by the failure that led here.
        if (m_isMade) static_cast<void>(removeDatabase(m_location).isDone());
    }
    DatabaseInMaking(const DatabaseInMaking&) = delete;
    DatabaseInMaking& operator=(const DatabaseInMaking&) = delete;

    const Status& status() const { return m_status; }
    /// Whether the place was free and something was made there.
    bool isMade() const { return m_isMade; }
    CNbCwDB& database() { return m_database; }
    void keep() { m_isMade = false; }

  private:
    std::string m_location;
    CNbCwDB m_database;
    Status m_status;
    bool m_isMade = false;
};

Refusal databaseRefusal(const DatabaseInMaking& made, const std::string& location) {
    if (!made.isMade() && made.status().failure == Failure::refused)
        return existsRefusal(fmt::format(making_texts::placeExists, shownLocation(location)),
                             books_field::location);
    return failureRefusalOf(made.status(), location, books_field::location);
}

}  // namespace

Status fillNewBooks(CNbCwDB& database, const NewBooks& books, std::int32_t setId,
                    const std::string& hash) {
    const auto accounts = templateAccounts(books.chart, books.levelPattern);
    if (!accounts) return Status::of(Failure::refused, "the chart does not fit the books");
    if (OperationLog* const log = database.selectedDatabase()->log(); log != nullptr)
        log->say({.text = fmt::format(making_texts::logNewBooks, books.name)});
    if (database.QRYExecuteSQL(books_sql::fillNewBooks(books, *accounts, setId, hash)) != 0)
        return Status::done();
    return database.lastStatus();
}

std::int32_t nextSetId(const BooksRegistry& registry, const std::vector<BooksSet>& sets) {
    std::int32_t id = 1;
    for (const BooksSet& set : sets) id = std::max(id, set.id + 1);
    std::error_code unseen;
    while (files::exists(setFolder(registry.folder(), id), unseen)) ++id;
    return id;
}

std::string placeOfBooks(const std::string& location, const std::string& home, std::int32_t setId,
                         int year) {
    if (location == ":memory:") return location;
    if (isServerAddress(location)) return withSchema(location, setId, year);
    if (location.empty())
        return home.empty() ? std::string()
                            : fmt::format("{}/{}/{}", setFolder(home, setId), year, booksFileName);
    std::error_code unseen;
    const files::path path = files::absolute(location, unseen).lexically_normal();
    const bool isFolder = location.ends_with('/') || files::is_directory(path, unseen);
    return isFolder ? path / booksFileName : path;
}

std::optional<Refusal> BooksCreation::create(const NewBooks& given, CreatedBooks& created) const {
    const NewBooks books = withoutSurplusBlanks(given);
    if (std::optional<Refusal> refusal = firstRefusal(newBooksChecks(), books)) return refusal;
    if (m_registry == nullptr) return createIn(nullptr, books, created);
    if (m_registry->folder().empty()) return failureRefusal(making_texts::homeMissing);
    RegistryChange change(*m_registry);
    if (!change.status())
        return failureRefusal(
            failureText(change.status(), m_registry->path(), FailureSubject::registry));
    return createIn(&change, books, created);
}

std::optional<Refusal> BooksCreation::createIn(RegistryChange* change, const NewBooks& books,
                                               CreatedBooks& created) const {
    const BooksSet* set = change == nullptr ? nullptr : change->findSet(books.name);
    if (set != nullptr) {
        const auto known = std::ranges::find(set->years, books.year, &BooksYear::year);
        if (known != set->years.end())
            return existsRefusal(fmt::format(making_texts::yearExists, books.name, books.year,
                                             shownLocation(known->location)),
                                 books_field::name);
    }
    const std::int32_t id = set != nullptr      ? set->id
                            : change != nullptr ? nextSetId(*m_registry, change->sets())
                                                : 1;
    const std::string home = m_registry == nullptr ? std::string() : m_registry->folder();
    const std::string location = placeOfBooks(books.location, home, id, books.year);
    if (location.empty()) return inputRefusal(making_texts::placeMissing, books_field::location);
    const std::string hash = hashPassword(books.password, books.passwordCost);
    if (hash.empty()) return failureRefusal(making_texts::passwordNotHashed);

    FolderInMaking folder(location);
    if (!folder.status())
        return failureRefusal(failureText(folder.status(), location), books_field::location);
    DatabaseInMaking made(location);
    if (!made.status()) return databaseRefusal(made, location);
    if (const Status status = fillNewBooks(made.database(), books, id, hash); !status) {
        if (status.failure == Failure::unconfirmed) made.keep();  // as the words say
        return failureRefusalOf(status, location, books_field::location);
    }
    const BooksYear year{books.year, location};
    if (change != nullptr) {
        change->enter({id, books.name, books.company, {}}, year);
        // A list that may not outlast a power failure names the books all the same.
        const Status status = change->save();
        if (!status && status.failure != Failure::unconfirmed)
            return failureRefusal(
                failureText(status, m_registry->path(), FailureSubject::registry));
    }
    made.keep();
    folder.keep();
    created = {id, year};
    return std::nullopt;
}

}  // namespace chengheng
