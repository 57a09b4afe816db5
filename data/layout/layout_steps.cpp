#include "data/layout/layout_steps.h"

#include <algorithm>

#include "data/tables/operation_log_tables.h"

namespace chengheng {
namespace {

const std::vector<LayoutStep>& steps() {
    static const std::vector<LayoutStep> all{
        {.from = 1,
         .newTables = {{"LogonTries",
                        "",
                        {{"lId", ColumnType::integer},
                         {"lWrong", ColumnType::integer},
                         {"dWrongAt", ColumnType::real},
                         {"dLogonAt", ColumnType::real}},
                        {}}},
         .newColumns = {},
         .newIndexes = {}},
        // The checks of every column.
        {.from = 2, .newTables = {}, .newColumns = {}, .newIndexes = {}},
        {.from = 3,
         .newTables = {},
         .newColumns = {{"Enter", {"byKind", ColumnType::byte}}},
         .newIndexes = {}},
        {.from = 4,
         .newTables = {},
         .newColumns = {{"LoginInfoTbl", {"lUserId", ColumnType::integer}},
                        {"LogonTries", {"bNewPassword", ColumnType::flag}}},
         .newIndexes = {}},
        {.from = 5,
         .newTables = {operationLogTable(), operationLogPartTable(), operationLogHeadTable()},
         .newColumns = {},
         .newIndexes = {}},
        {.from = 6,
         .newTables = {},
         .newColumns = {},
         .newIndexes = {{"AccSum",
                         "lCodeId WHERE mBegin = 0.0 AND mDebet = 0.0 AND mCredit = 0.0 "
                         "AND dAmtBegin = 0.0 AND dAmtDebet = 0.0 AND dAmtCredit = 0.0 "
                         "AND mFgnBegin = 0.0 AND mFgnDebet = 0.0 AND mFgnCredit = 0.0"},
                        {"AssAcc",
                         "lCodeId WHERE mBegin = 0.0 AND mDebt = 0.0 AND mCredit = 0.0 "
                         "AND dBegin = 0.0 AND dDebt = 0.0 AND dCredit = 0.0 "
                         "AND mFBegin = 0.0 AND mFDebt = 0.0 AND mFCredit = 0.0"}}},
    };
    return all;
}

/// Takes off what came with a step that the layout of a number has not gone through.
void takeOff(const LayoutStep& step, std::vector<TableInfo>& tables) {
    for (const TableInfo& added : step.newTables)
        std::erase_if(tables, [&](const TableInfo& table) { return table.name == added.name; });
    for (const auto& [name, column] : step.newColumns)
        for (TableInfo& table : tables)
            if (table.name == name)
                std::erase_if(table.columns, [&added = column](const ColumnInfo& each) {
                    return each.name == added.name;
                });
    for (const auto& [name, index] : step.newIndexes)
        for (TableInfo& table : tables)
            if (table.name == name) std::erase(table.indexes, index);
}

}  // namespace

std::span<const LayoutStep> layoutSteps() { return steps(); }

std::set<std::string> columnsMissingFrom(int number, std::string_view table) {
    std::set<std::string> missing;
    for (const LayoutStep& step : steps())
        for (const auto& [name, column] : step.newColumns)
            if (step.from >= number && name == table) missing.insert(column.name);
    return missing;
}

std::vector<TableInfo> tablesOfLayout(int number) {
    std::vector<TableInfo> tables = allTables();
    for (const LayoutStep& step : steps())
        if (step.from >= number) takeOff(step, tables);
    return tables;
}

}  // namespace chengheng
