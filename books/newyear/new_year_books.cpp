#include "books/newyear/new_year_books.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/system/staged_file.h"
#include "books/logon/books_session.h"
#include "books/making/books_creation.h"
#include "books/making/folder_in_making.h"
#include "books/newyear/new_year_sql.h"
#include "books/newyear/new_year_tables.h"
#include "books/newyear/new_year_texts.h"
#include "data/engines/place_beside.h"
#include "data/engines/remove_database.h"
#include "data/layout/layout.h"
#include "session/failure_texts.h"
#include "session/record_change.h"

namespace chengheng {

/// One making from the reading of the old year to the list.
struct NewYearBooks::Work {
    Work(const NewYearOrder& given, const BooksOpener& opener, const NewYearProgress& told)
        : order(given), source(locationOfBooks(given.books), opener), progress(told) {}

    const NewYearOrder& order;
    BooksSource source;
    const NewYearProgress& progress;
    NewYearPlan plan = {};
    std::vector<TableDigest> made = {};
};

namespace {

Refusal registryRefusal(const Status& status, const BooksRegistry& registry) {
    return failureRefusal(failureText(status, registry.path(), FailureSubject::registry));
}

Refusal takenRefusal(const std::string& place) {
    return existsRefusal(fmt::format(new_year_texts::placeTaken, shownLocation(place)),
                         new_year_field::target);
}

Status readParameters(Engine& books, NewYearFacts& facts) {
    return forEachRow(books, new_year_sql::parameters, {}, [&facts](const Cursor& row) {
        if (facts.fromYear != 0) return Status::done();
        facts.setName = row.text(0);
        facts.company = row.text(1);
        facts.fromYear = static_cast<int>(row.integer(2));
        return Status::done();
    });
}

/// What the list has of the two years.
void lookUp(const std::vector<BooksSet>& sets, NewYearFacts& facts) {
    facts.listedSource = otherPlaceOf(sets, facts.setName, {facts.fromYear, facts.source});
    if (isSameLocation(facts.listedSource, facts.source)) facts.listedSource.clear();
    facts.listedPlace = otherPlaceOf(sets, facts.setName, {facts.year, {}});
}

std::string placeOf(const NewYearOrder& order, const NewYearFacts& facts,
                    const BooksRegistry& registry, const std::vector<BooksSet>& sets) {
    if (order.target.empty() && !order.isListed) return {};
    const auto set = std::ranges::find(sets, facts.setName, &BooksSet::name);
    const std::string beside =
        order.target.empty() ? placeOfYear(facts.source, facts.fromYear, facts.year) : "";
    if (!beside.empty()) return beside;
    const bool hasHome = !registry.folder().empty();
    const std::int32_t id = set != sets.end() ? set->id : hasHome ? nextSetId(registry, sets) : 1;
    return placeOfBooks(order.target, registry.folder(), id, facts.year);
}

std::vector<NewYearPlan::Taken> takenOf(const std::vector<TableDigest>& digests) {
    std::vector<NewYearPlan::Taken> taken;
    for (const auto& [table, text] : new_year_texts::taken) {
        std::int64_t rows = 0;
        for (const TableDigest& digest : digests) {
            const bool isItems = std::string_view(table) == "ProjItems";
            if (isItems ? digest.table.starts_with(table) : digest.table == table)
                rows += digest.rows;
        }
        if (rows > 0) taken.push_back({table, text, rows});
    }
    return taken;
}

std::optional<Refusal> refusalOf(const Status& status, const std::string& place,
                                 const std::string& source) {
    if (status) return std::nullopt;
    if (status.failure == Failure::cancelled)
        return Refusal{RefusalKind::failed, {.text = new_year_texts::cancelled}};
    if (status.failure == Failure::wrongValue)
        return failureRefusal(fmt::format(new_year_texts::contentDiffers, shownLocation(source)));
    return failureRefusalOf(status, place, new_year_field::target);
}

/// Another program may have put a file there in the meantime.
std::optional<Refusal> placedRefusal(const Status& status, const NewYearFacts& facts) {
    if (status.failure == Failure::refused && !isServerAddress(facts.place))
        return takenRefusal(facts.place);
    return refusalOf(status, facts.place, facts.source);
}

/// Takes the tables out of a schema that was empty before.
void emptySchema(Engine& target) {
    std::vector<TableInfo> tables = allTables();
    std::vector<TableInfo> stored;
    // What remains has been told by the failure that led here.
    if (storedTables(target, stored))
        for (const TableInfo& table : stored)
            if (findTable(table.name) == nullptr) tables.push_back(table);
    for (const TableInfo& table : tables)
        static_cast<void>(target.script(new_year_sql::dropTable + table.name).isDone());
}

/// Begins to write into books that nobody knows yet; two who make the same do not meet in them.
std::optional<Refusal> beginAlone(Engine& target, const std::string& place) {
    bool hasBooks = false;
    Status status = target.begin();
    if (status) status = target.locks().lock("BooksFormat", LockMode::exclusive, false);
    if (status.failure == Failure::busy)
        return existsRefusal(fmt::format(new_year_texts::inTheMaking, shownLocation(place)),
                             new_year_field::target);
    if (status) status = target.hasTable("BooksFormat", hasBooks);
    if (!status) return failureRefusalOf(status, place, new_year_field::target);
    return hasBooks ? takenRefusal(place) : std::optional<Refusal>();
}

}  // namespace

Status NewYearBooks::gather(Work& work) const {
    NewYearFacts& facts = work.plan.facts;
    facts.source = work.source.location();
    facts.isListed = work.order.isListed;
    facts.hasHome = !m_registry.folder().empty();
    Status status = readParameters(work.source.engine(), facts);
    if (!status || facts.fromYear == 0) return status;
    facts.year = facts.fromYear + 1;
    std::vector<BooksSet> sets;
    if (facts.isListed && facts.hasHome) {
        status = m_registry.read(sets);
        if (!status) return status;
        lookUp(sets, facts);
    }
    facts.place = placeOf(work.order, facts, m_registry, sets);
    work.plan.taken = takenOf(work.source.digests());
    work.plan.leftOut = work.source.objects();
    work.plan.bringsLastRates = work.order.bringsLastRates;
    return status;
}

std::optional<Refusal> NewYearBooks::look(Work& work) const {
    if (auto refusal = work.source.open(isTakenOver)) return refusal;
    NewYearFacts& facts = work.plan.facts;
    if (const Status status = gather(work); !status)
        return facts.year == 0 ? failureRefusalOf(status, facts.source, new_year_field::books)
                               : registryRefusal(status, m_registry);
    if (auto refusal = firstRefusal(newYearChecks(), facts)) return refusal;
    const Status looked = readIsPlaceFree(facts.place, facts.isPlaceFree);
    if (!looked) return failureRefusalOf(looked, facts.place, new_year_field::target);
    if (!facts.isPlaceFree && isServerAddress(facts.place)) {
        std::unique_ptr<Engine> existing;
        const Status status = m_open(facts.place, OpenMode::existing, existing);
        if (!status) return failureRefusalOf(status, facts.place, new_year_field::target);
        facts.isPlaceFree = isEmptySchema(*existing, facts.place);
    }
    return firstRefusal(newYearChecks(), facts);
}

std::optional<Refusal> NewYearBooks::plan(const NewYearOrder& order, NewYearPlan& plan) const {
    const NewYearProgress nobody;
    Work work(order, m_open, nobody);
    std::optional<Refusal> refusal = look(work);
    plan = std::move(work.plan);
    return refusal;
}

std::optional<Refusal> NewYearBooks::make(const NewYearOrder& order,
                                          const NewYearProgress& progress,
                                          NewYearPlan& made) const {
    if (auto refusal = writeRefusal(WriteRight::newYear)) return refusal;
    Work work(order, m_open, progress);
    if (auto refusal = look(work)) return refusal;
    const std::string& place = work.plan.facts.place;
    std::optional<Refusal> refusal;
    if (isServerAddress(place)) {
        refusal = makeSchema(work);
    } else {
        FolderInMaking folder(place);
        if (!folder.status())
            return failureRefusal(failureText(folder.status(), place), new_year_field::target);
        refusal = makeFile(work);
        if (!refusal) folder.keep();
    }
    made = std::move(work.plan);
    return refusal;
}

std::optional<Refusal> NewYearBooks::fill(Work& work, Engine& target) const {
    const NewYearFacts& facts = work.plan.facts;
    const YearChange change{
        facts.fromYear, facts.year, work.order.bringsLastRates,
        fmt::format(new_year_texts::logMade, facts.year, shownLocation(facts.source))};
    Status status = createTables(target);
    if (status) status = fillNextYear(work.source, target, change, work.progress, work.made);
    if (status) return std::nullopt;
    if (target.inTransaction()) {
        if (Status undone = target.rollback(); !undone) status.detail += "; " + undone.detail;
    }
    return refusalOf(status, facts.place, facts.source);
}

/// Enters the list, while no other program can, and lets the books count in between.
std::optional<Refusal> NewYearBooks::enter(Work& work, const std::function<Status()>& place,
                                           const std::function<void()>& takeAway) const {
    NewYearFacts facts = work.plan.facts;
    const bool isServer = isServerAddress(facts.place);
    if (!work.order.isListed) return placedRefusal(place(), facts);
    RegistryChange change(m_registry);
    if (!change.status()) return registryRefusal(change.status(), m_registry);
    lookUp(change.sets(), facts);
    if (auto refusal = firstRefusal(newYearListChecks(), facts)) return refusal;
    const Status placed = place();
    // A file that may not outlast a power failure stands; of a schema nothing is known then.
    const bool stands = placed || (placed.failure == Failure::unconfirmed && !isServer);
    if (!stands) return placedRefusal(placed, facts);
    const BooksSet* set = change.findSet(facts.setName);
    const BooksSet named{set != nullptr ? set->id : nextSetId(m_registry, change.sets()),
                         facts.setName,
                         facts.company,
                         {}};
    // A list that has the old year under a name of before is corrected with it.
    listUnderOwnName(change.sets(), named, {facts.fromYear, facts.source});
    if (otherPlaceOf(change.sets(), facts.setName, {facts.fromYear, {}}).empty())
        change.enter(named, {facts.fromYear, facts.source});
    change.enter(named, {facts.year, facts.place});
    const Status saved = change.save();
    if (!saved && saved.failure != Failure::unconfirmed) {
        takeAway();
        return registryRefusal(saved, m_registry);
    }
    return placedRefusal(placed, facts);
}

std::optional<Refusal> NewYearBooks::makeFile(Work& work) const {
    const std::string& place = work.plan.facts.place;
    StagedFile staged(place, Overwrite::refuse);
    if (!staged.status())
        return staged.status().failure == Failure::refused ||
                       staged.status().failure == Failure::foreign
                   ? takenRefusal(place)
                   : failureRefusalOf(staged.status(), place, new_year_field::target);
    {
        std::unique_ptr<Engine> target;
        Status status = m_open(staged.path(), OpenMode::create, target);
        if (status) status = target->begin();
        if (!status) return refusalOf(status, place, work.source.location());
        if (auto refusal = fill(work, *target)) return refusal;
        if (status = target->commit(); !status)
            return refusalOf(status, place, work.source.location());
    }
    std::vector<TableDigest> written;
    if (auto refusal = digestFinished(staged.path(), place, written, m_open)) return refusal;
    if (written != work.made)
        return refusalOf(Status::of(Failure::wrongValue), place, work.source.location());
    return enter(
        work, [&staged] { return staged.place(); },
        [&place] { static_cast<void>(removeDatabase(place).isDone()); });
}

std::optional<Refusal> NewYearBooks::makeSchema(Work& work) const {
    const std::string& place = work.plan.facts.place;
    bool isNew = false;
    Status status = readIsPlaceFree(place, isNew);
    std::unique_ptr<Engine> target;
    if (status) status = m_open(place, OpenMode::create, target);
    if (!status) return failureRefusalOf(status, place, new_year_field::target);
    if (auto refusal = beginAlone(*target, place)) return refusal;
    const auto takeAway = [&target, isNew] {
        if (isNew)
            static_cast<void>(removeSchemaOf(*target).isDone());
        else
            emptySchema(*target);
    };
    std::optional<Refusal> refusal = fill(work, *target);
    if (!refusal)
        refusal = enter(
            work, [&target] { return target->commit(); }, takeAway);
    if (!refusal || refusal->kind == RefusalKind::unconfirmed) return refusal;
    // What was not committed goes with the connection, a new schema with it.
    if (target->inTransaction()) static_cast<void>(target->rollback().isDone());
    if (isNew) takeAway();
    return refusal;
}

}  // namespace chengheng
