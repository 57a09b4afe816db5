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
         .newColumns = {}},
        {.from = 2, .newTables = {}, .newColumns = {}},  // the checks of every column
        {.from = 3, .newTables = {}, .newColumns = {{"Enter", {"byKind", ColumnType::byte}}}},
        {.from = 4,
         .newTables = {},
         .newColumns = {{"LoginInfoTbl", {"lUserId", ColumnType::integer}},
                        {"LogonTries", {"bNewPassword", ColumnType::flag}}}},
        {.from = 5,
         .newTables = {operationLogTable(), operationLogPartTable(), operationLogHeadTable()},
         .newColumns = {}},
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
