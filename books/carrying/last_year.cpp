#include "books/carrying/last_year.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

#include "books/logon/temporary_name.h"
#include "data/access/row_lease.h"
#include "data/connection/database.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"
#include "data/tables/books.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

constexpr const char* databaseName = "NbzwTmp";

bool isSamePlace(const std::string& one, const std::string& other) {
    if (withoutServerPassword(one) == withoutServerPassword(other)) return true;
    if (isServerAddress(one) || isServerAddress(other)) return false;
    std::error_code unseen;
    return files::equivalent(one, other, unseen);
}

/// The set of the list that these books belong to; null when it has none.
const BooksSet* setOf(std::span<const BooksSet> sets, const YearOfBooks& now) {
    const auto holds = [&now](const BooksSet& set) {
        return std::ranges::any_of(set.years, [&now](const BooksYear& year) {
            return year.year == now.year && isSamePlace(year.location, now.location);
        });
    };
    const auto found = std::ranges::find_if(sets, holds);
    return found == sets.end() ? nullptr : &*found;
}

/// Whether the list knows a place as the books of another set.
bool isAnothers(std::span<const BooksSet> sets, const YearOfBooks& now, const std::string& place) {
    const BooksSet* const own = setOf(sets, now);
    return std::ranges::any_of(sets, [&](const BooksSet& set) {
        return &set != own && set.name != now.name &&
               std::ranges::any_of(set.years, [&](const BooksYear& year) {
                   return isSamePlace(year.location, place);
               });
    });
}

/// An address with the password of a connection to the same server, where it has none itself.
std::string reachable(const std::string& location, CNbCwDB& database) {
    const Database* const selected = database.selectedDatabase();
    if (!isServerAddress(location) || !serverPasswordIn(location).empty() || selected == nullptr)
        return location;
    const std::string own = database.selectedDatabase()->engine().secretAddress();
    const auto server = [](const std::string& address) {
        return address.substr(0, address.find('?'));
    };
    if (server(withoutServerPassword(own)) != server(location)) return location;
    const std::string password = serverPasswordIn(own);
    return password.empty() ? location : withServerPassword(location, password);
}

Status checkYear(CNbCwDB& database, int year) {
    const RowLease<_zAccountMInfo> rows(database, nullptr);
    if (!rows.isRead()) return database.lastStatus();
    const bool isOfYear = rows.isFound() && rows.rows().front()->lYear == year;
    return isOfYear ? Status::done() : Status::of(Failure::missing, "books of another year");
}

}  // namespace

std::string placeOfLastYear(std::span<const BooksSet> sets, const YearOfBooks& now) {
    if (const BooksSet* const set = setOf(sets, now); set != nullptr) {
        const auto found = std::ranges::find(set->years, now.year - 1, &BooksYear::year);
        if (found != set->years.end()) return found->location;
    }
    if (isServerAddress(now.location)) return {};
    std::error_code unseen;
    const files::path file = files::absolute(now.location, unseen).lexically_normal();
    const files::path folder = file.parent_path();
    if (folder.filename() != std::to_string(now.year)) return {};
    const std::string before =
        folder.parent_path() / std::to_string(now.year - 1) / file.filename();
    return isThereByAnyName(before) && !isAnothers(sets, now, before) ? before : std::string();
}

LastYear::LastYear(CNbCwDB& database) : m_database(database), m_before(database.selectedName()) {}

LastYear::~LastYear() {
    if (!m_isOpen) return;
    // Closing ends the reading; where the own books do not answer, the next selection tells it.
    m_database.DBClose(databaseName);
    m_database.DBSelect(m_before.c_str());
}

Status LastYear::open(const std::string& location, int year) {
    std::unique_ptr<Engine> engine;
    int layout = 0;
    Status status = openEngine(reachable(location, m_database), OpenMode::readable, engine);
    if (status) status = checkReadable(*engine, &layout);
    if (!status) return status;
    m_database.adopt(std::move(engine), shownLocation(location).c_str(), databaseName, layout);
    m_isOpen = true;
    if (m_database.DBSelect(databaseName) == 0) return m_database.lastStatus();
    status = m_database.selectedDatabase()->engine().beginReading();
    return status ? checkYear(m_database, year) : status;
}

}  // namespace chengheng
