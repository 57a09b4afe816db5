#include "data/layout/layout_steps.h"

#include <algorithm>

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
                        {}}}},
        {.from = 2, .newTables = {}},  // the checks of every column
    };
    return all;
}

/// Whether the table came with a step that the layout of a number has not gone through.
bool isMissingFrom(int number, const std::string& table) {
    return std::ranges::any_of(steps(), [&](const LayoutStep& step) {
        const auto& added = step.newTables;
        return step.from >= number &&
               std::ranges::find(added, table, &TableInfo::name) != added.end();
    });
}

}  // namespace

std::span<const LayoutStep> layoutSteps() { return steps(); }

std::vector<TableInfo> tablesOfLayout(int number) {
    std::vector<TableInfo> tables = allTables();
    std::erase_if(tables,
                  [number](const TableInfo& table) { return isMissingFrom(number, table.name); });
    return tables;
}

}  // namespace chengheng
