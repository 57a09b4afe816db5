#include "operationlog/row_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "data/tables/schema.h"
#include "operationlog/log_name_texts.h"
#include "operationlog/log_names.h"
#include "operationlog/stored_rows.h"

namespace chengheng {
namespace {

constexpr std::string_view itemKind = "ProjItems";
constexpr std::string_view month = "byPeroid";

/// The columns that tell the rows of a table apart.
struct RowKey {
    std::string_view table;
    std::array<const char*, 2> columns;
};

constexpr RowKey rowKeys[] = {
    {"zAccountM", {"sName", nullptr}},
    {"zCodeClass", {"sClsName", nullptr}},
    {"Code", {"sCode", "sName"}},
    {"AccSum", {"lCodeId", "byPeroid"}},
    {"AssAcc", {"lCodeId", "byPeroid"}},
    {"Cyrency", {"sExchCode", "sExchName"}},
    {"ExchgFix", {"byExchId", "byPeroid"}},
    {"ExchgFlt", {"byExchId", "dtDate"}},
    {"Dept", {"sDeptCode", "sDeptName"}},
    {"Person", {"sPersonCode", "sPersonName"}},
    {"EnterClass", {"sClsCode", "sClsName"}},
    {"Enter", {"sEnterCode", "sEnterName"}},
    {"ProjClass", {"sClsCode", "sClsName"}},
    {"ProjCodes", {"lCodeId", "sItemId"}},
    {itemKind, {"FIELD0", "FIELD1"}},
    {"Sign", {"sSign", "sSignName"}},
    {"Settle", {"sStlId", "sSettle"}},
    {"RecpBank", {"lCodeId", "dtDate"}},
    {"RecpEnter", {"lCodeId", "dtDate"}},
    {"RegMain", {"sSign", "lNumber"}},
    {"RegSub", {"lCodeId", "sDigest"}},
    {"UnregMain", {"sSign", "lNumber"}},
    {"UnregSub", {"lCodeId", "sDigest"}},
    {"AutoMain", {"sName", nullptr}},
    {"AutoSub", {"lCodeId", "sDigest"}},
    {"FreqSub", {"lCodeId", "sDigest"}},
    {"_Digest", {"sDigest", nullptr}},
    {"Users", {"sUserName", nullptr}},
    {"UserAuth", {"lUserId", nullptr}},
    {"ZWPrintMain", {"sTitle", nullptr}},
    {"ZWPrintSub", {"sColName", nullptr}},
};

/// A column that names a row of another table, and what is shown of that.
struct Reference {
    std::string_view column;
    const char* table;
    std::array<const char*, 2> shown;
};

constexpr Reference references[] = {
    {"lCodeId", "Code", {"sCode", "sName"}},
    {"byExchId", "Cyrency", {"sExchCode", nullptr}},
    {"lUserId", "Users", {"sUserName", nullptr}},  // whose number is its id
};

std::vector<std::string> keyOf(const std::string& table) {
    const std::string_view kind = table.starts_with(itemKind) ? itemKind : table;
    const auto found = std::ranges::find(rowKeys, kind, &RowKey::table);
    std::vector<std::string> columns;
    if (found == std::end(rowKeys)) return columns;
    for (const char* column : found->columns)
        if (column != nullptr) columns.emplace_back(column);
    return columns;
}

TableInfo infoOf(const std::string& table) {
    if (const TableInfo* const known = findTable(table)) return *known;
    return table.starts_with(itemKind) ? projectItemTable(table.substr(itemKind.size()))
                                       : TableInfo();
}

std::size_t placeOf(const TableInfo& table, std::string_view column) {
    return static_cast<std::size_t>(std::ranges::find(table.columns, column, &ColumnInfo::name) -
                                    table.columns.begin());
}

/// What a row that was put in or taken out says of its key itself; nothing where a cell is missing.
std::vector<LoggedCell> toldKey(const LoggedRow& row, const std::vector<std::string>& columns) {
    std::vector<LoggedCell> key;
    if (row.kind == ChangeKind::changed) return key;
    for (const std::string& name : columns) {
        const auto found = std::ranges::find(row.columns, name, &LoggedColumn::name);
        if (found == row.columns.end()) return {};
        key.push_back(row.kind == ChangeKind::inserted ? found->after : found->before);
    }
    return key;
}

}  // namespace

Status LogRowNames::readFromBooks(const std::string& table, const std::vector<std::string>& columns,
                                  std::map<std::int64_t, Cells>& keys) {
    const TableInfo info = infoOf(table);
    bool isThere = false;
    std::vector<std::int64_t> ids;
    for (const auto& [id, key] : keys)
        if (key.empty()) ids.push_back(id);
    if (ids.empty() || info.name.empty()) return Status::done();
    if (Status status = m_engine.hasTable(table, isThere); !status || !isThere) return status;
    return forEachStoredRow(m_engine, info, std::move(ids), [&](const Cursor& row) {
        const auto wanted = keys.find(row.integer(0));
        if (wanted == keys.end() || !wanted->second.empty()) return Status::done();
        for (const std::string& column : columns)
            wanted->second.push_back(cellOf(row.value(static_cast<int>(placeOf(info, column)))));
        return Status::done();
    });
}

Status LogRowNames::readReferences(const std::vector<std::string>& columns,
                                   const std::map<std::int64_t, Cells>& keys) {
    Status status = Status::done();
    for (const Reference& reference : references) {
        const auto column = std::ranges::find(columns, reference.column);
        if (column == columns.end()) continue;
        const auto place = static_cast<std::size_t>(column - columns.begin());
        auto& known = m_references[*column];
        std::vector<std::int64_t> ids;
        for (const auto& [id, key] : keys) {
            const auto* const number =
                place < key.size() ? std::get_if<std::int64_t>(&key[place]) : nullptr;
            if (number != nullptr && !known.contains(*number)) ids.push_back(*number);
        }
        const TableInfo& target = *findTable(reference.table);
        if (status)
            status = forEachStoredRow(m_engine, target, std::move(ids), [&](const Cursor& row) {
                std::string& text = known[row.integer(0)];
                text.clear();
                for (const char* shown : reference.shown) {
                    if (shown == nullptr) continue;
                    if (!text.empty()) text += ' ';
                    text += row.text(static_cast<int>(placeOf(target, shown)));
                }
                return Status::done();
            });
    }
    return status;
}

std::string LogRowNames::nameOf(const std::string& table, const std::vector<std::string>& columns,
                                const Cells& key) const {
    std::string name;
    for (std::size_t at = 0; at < key.size(); ++at) {
        std::string part = shownLogCell(table, columns[at], key[at]);
        if (columns[at] == month) part = fmt::format(log_name_texts::month, part);
        const auto referred = m_references.find(columns[at]);
        const auto* const number = std::get_if<std::int64_t>(&key[at]);
        if (referred != m_references.end() && number != nullptr) {
            const auto found = referred->second.find(*number);
            if (found != referred->second.end()) part = found->second;
        }
        if (!name.empty() && !part.empty()) name += ' ';
        name += part;
    }
    return name;
}

Status LogRowNames::find(const std::string& table, const std::vector<LoggedRow>& rows,
                         std::vector<std::string>& names) {
    names.assign(rows.size(), {});
    const std::vector<std::string> columns = keyOf(table);
    if (columns.empty()) return Status::done();
    std::map<std::int64_t, Cells> keys;
    for (const LoggedRow& row : rows)
        if (Cells key = toldKey(row, columns); !key.empty() || !keys.contains(row.id))
            keys[row.id] = std::move(key);
    Status status = readFromBooks(table, columns, keys);
    if (status) status = readReferences(columns, keys);
    for (std::size_t at = 0; status && at < rows.size(); ++at)
        names[at] = nameOf(table, columns, keys[rows[at].id]);
    return status;
}

}  // namespace chengheng
