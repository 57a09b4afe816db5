#include "data/tables/schema.h"

#include <algorithm>

#include "base/values/text.h"
#include "data/tables/all_records.h"

namespace chengheng {
namespace {

template <class Record>
TableInfo tableInfo() {
    using Table = TableOf<Record>;
    TableInfo info{Table::name, Table::idRow, {}, {}};
    std::apply(
        [&info](const auto&... columns) {
            (info.columns.push_back(
                 {columns.name,
                  columnTypeOf<std::remove_reference_t<decltype(Record{}.*columns.field)>>()}),
             ...);
        },
        Table::columns);
    info.indexes.assign(Table::indexes.begin(), Table::indexes.end());
    return info;
}

template <class... Records>
std::vector<TableInfo> tableInfos(RecordList<Records...>) {
    return {tableInfo<Records>()...};
}

bool isClassCodeLetter(char letter) {
    const char lower = lowerAscii(letter);
    return (lower >= 'a' && lower <= 'z') || (letter >= '0' && letter <= '9');
}

}  // namespace

const std::vector<TableInfo>& allTables() {
    static const std::vector<TableInfo> tables = tableInfos(AllRecords{});
    return tables;
}

const TableInfo* findTable(std::string_view name) {
    const auto& tables = allTables();
    const auto found = std::ranges::find_if(
        tables, [name](const TableInfo& table) { return isSameInAnyCase(table.name, name); });
    return found == tables.end() ? nullptr : &*found;
}

TableInfo projectItemTable(std::string_view classCode) {
    if (classCode.empty() || !std::ranges::all_of(classCode, isClassCodeLetter)) return {};
    return {
        "ProjItems" + std::string(classCode),
        "",
        {{"lId", ColumnType::integer}, {"FIELD0", ColumnType::text}, {"FIELD1", ColumnType::text}},
        {"FIELD1"}};
}

}  // namespace chengheng
