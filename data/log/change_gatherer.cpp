#include "data/log/change_gatherer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/values/text.h"
#include "data/log/packing.h"
#include "data/log/row_bytes.h"
#include "data/tables/schema.h"

namespace chengheng {
namespace {

// What a part holds before it is packed.
constexpr std::size_t fullPart = 128 * 1024;

constexpr std::array unwatched{"ABIdTable",    "BooksFormat",      "LoginInfoTbl",    "LogonTries",
                               "OperationLog", "OperationLogPart", "OperationLogHead"};

constexpr std::string_view itemTables = "ProjItems";

/// The table as the layout names it; a statement may write it in other letters.
std::string nameOf(std::string_view table) {
    const TableInfo* const known = findTable(table);
    if (known != nullptr) return known->name;
    const std::string_view front = table.substr(0, itemTables.size());
    if (!isSameInAnyCase(front, itemTables)) return std::string(table);
    return std::string(itemTables).append(table.substr(front.size()));
}

constexpr std::size_t noCell = std::string::npos;

/// The column whose content nobody may see.
const char* secretColumn(const std::string& table) { return table == "Users" ? "sPassword" : ""; }

/// The column that tells which account a row belongs to.
const char* accountColumn(const std::string& table) { return table == "Code" ? "lId" : "lCodeId"; }

std::size_t placeIn(const std::vector<std::string>& columns, std::string_view name) {
    const auto found = std::ranges::find(columns, name);
    return found == columns.end() ? noCell : static_cast<std::size_t>(found - columns.begin());
}

// In place of the hash of a password; that it was changed can be seen.
constexpr std::string_view hiddenSecret = "*";
constexpr std::string_view otherSecret = "**";

std::vector<std::string> columnsOf(const std::string& table, std::size_t count) {
    const TableInfo* const known = findTable(table);
    const TableInfo items = known != nullptr || !table.starts_with(itemTables)
                                ? TableInfo()
                                : projectItemTable(table.substr(itemTables.size()));
    const auto& columns = known != nullptr ? known->columns : items.columns;
    std::vector<std::string> names;
    for (std::size_t at = 0; at < count; ++at)
        names.push_back(at < columns.size() ? columns[at].name : std::to_string(at + 1));
    return names;
}

}  // namespace

void addPart(ChainHash& hash, const LogPart& part) {
    hash.add(part.table);
    for (const std::int64_t number :
         {part.lowestId, part.highestId, part.lowestAccount, part.highestAccount})
        hash.add(number);
    hash.add(part.packed);
}

ChangeGatherer::Rows ChangeGatherer::Rows::counts() const {
    return {.bytes = {},
            .rows = rows,
            .lowestId = lowestId,
            .highestId = highestId,
            .lowestAccount = lowestAccount,
            .highestAccount = highestAccount,
            .all = all,
            .accountCell = accountCell,
            .secretCell = secretCell};
}

/// A row may have gone from one account to another.
void ChangeGatherer::Rows::addAccounts(const RowChange& change) {
    for (const auto cells : {change.before, change.after}) {
        if (accountCell >= cells.size()) continue;
        const std::int64_t account = cells[accountCell].integer;
        const bool isFirst = highestAccount < lowestAccount;
        lowestAccount = isFirst ? account : std::min(lowestAccount, account);
        highestAccount = isFirst ? account : std::max(highestAccount, account);
    }
}

ChangeGatherer::Rows ChangeGatherer::beginRows(const std::string& table, std::size_t cells) {
    const std::vector<std::string> columns = columnsOf(table, cells);
    Rows rows;
    rows.bytes = rowBytesHead(columns);
    rows.accountCell = placeIn(columns, accountColumn(table));
    rows.secretCell = placeIn(columns, secretColumn(table));
    return rows;
}

RowChange ChangeGatherer::withoutSecret(const RowChange& change, std::size_t place) {
    const auto cells = change.before.empty() ? change.after : change.before;
    if (place >= cells.size()) return change;
    RowChange open = change;
    m_before.assign(change.before.begin(), change.before.end());
    m_after.assign(change.after.begin(), change.after.end());
    const bool isOther =
        change.kind == ChangeKind::changed && change.before[place].text != change.after[place].text;
    if (!m_before.empty()) m_before[place] = Value::of(hiddenSecret);
    if (!m_after.empty()) m_after[place] = Value::of(isOther ? otherSecret : hiddenSecret);
    open.before = m_before;
    open.after = m_after;
    return open;
}

bool ChangeGatherer::watches(std::string_view table) const {
    const std::string name = nameOf(table);
    return std::ranges::find(unwatched, name) == unwatched.end();
}

/// One statement after the other mostly changes the same table.
std::pair<const std::string, ChangeGatherer::Rows>& ChangeGatherer::rowsOf(
    std::string_view written) {
    if (m_last == nullptr || m_lastWritten != written) {
        m_lastWritten = written;
        m_last = &*m_tables.try_emplace(nameOf(written)).first;
    }
    return *m_last;
}

void ChangeGatherer::take(const RowChange& change) {
    const auto cells = change.before.empty() ? change.after : change.before;
    if (cells.empty()) return missed();
    auto& [table, rows] = rowsOf(change.table);
    if (rows.bytes.empty()) {
        const std::int64_t all = rows.all;
        rows = beginRows(table, cells.size());
        rows.all = all;
    }
    if (!addRowBytes(withoutSecret(change, rows.secretCell), rows.bytes)) return;
    rows.addAccounts(change);
    const std::int64_t id = cells.front().integer;
    rows.lowestId = rows.rows == 0 ? id : std::min(rows.lowestId, id);
    rows.highestId = rows.rows == 0 ? id : std::max(rows.highestId, id);
    ++rows.rows;
    ++rows.all;
    ++m_now.rows;
    if (rows.bytes.size() >= fullPart) pack(table, rows);
}

std::map<std::string, std::int64_t> ChangeGatherer::tables() const {
    std::map<std::string, std::int64_t> counts;
    for (const auto& [table, rows] : m_tables)
        if (rows.all > 0) counts[table] = rows.all;
    return counts;
}

void ChangeGatherer::pack(const std::string& table, Rows& rows) {
    keepForMarks(table, rows);
    LogPart part{.number = m_now.parts + 1,
                 .table = table,
                 .lowestId = rows.lowestId,
                 .highestId = rows.highestId,
                 .lowestAccount = rows.lowestAccount,
                 .highestAccount = rows.highestAccount,
                 .rows = rows.rows,
                 .packed = packed(rows.bytes)};
    if (part.packed.empty()) return missed();
    ++m_now.parts;
    addPart(m_now.hash, part);
    m_ready.push_back(std::move(part));
    const std::int64_t all = rows.all;
    rows = {};
    rows.all = all;
}

void ChangeGatherer::keepForMarks(const std::string& table, const Rows& rows) {
    for (Mark& mark : m_marks) {
        const auto kept = mark.tables.find(table);
        if (kept != mark.tables.end() && kept->second.bytes.empty())
            kept->second.bytes = rows.bytes.substr(0, mark.sizes.at(table));
    }
}

void ChangeGatherer::mark() {
    Mark mark{.totals = m_now, .tables = {}, .sizes = {}};
    for (const auto& [table, rows] : m_tables) {
        mark.tables[table] = rows.counts();
        mark.sizes[table] = rows.bytes.size();
    }
    m_marks.push_back(std::move(mark));
}

void ChangeGatherer::release() {
    if (!m_marks.empty()) m_marks.pop_back();
}

void ChangeGatherer::backToMark() {
    if (m_marks.empty()) return clear();
    Mark mark = std::move(m_marks.back());
    m_marks.pop_back();
    for (auto& [table, before] : mark.tables) {
        if (before.bytes.empty()) before.bytes = std::move(m_tables[table].bytes);
        before.bytes.resize(mark.sizes.at(table));
    }
    m_last = nullptr;
    m_tables = std::move(mark.tables);
    m_now = mark.totals;
    m_ready.clear();
}

void ChangeGatherer::clear() {
    m_now = {};
    m_last = nullptr;
    m_tables.clear();
    m_ready.clear();
    m_marks.clear();
}

std::vector<LogPart> ChangeGatherer::takeParts(bool isEnd) {
    for (auto& [table, rows] : m_tables)
        if (isEnd && rows.rows > 0) pack(table, rows);
    return std::exchange(m_ready, {});
}

}  // namespace chengheng
