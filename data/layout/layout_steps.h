#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/tables/schema.h"

namespace chengheng {

/// What leads from the layout of one number to that of the next. Books everywhere have gone
/// through a step once it is out, so it does not change any more: what it adds is written down
/// as it was then, whatever is declared now.
struct LayoutStep {
    struct NewColumn {
        std::string table;
        ColumnInfo column;
    };

    struct NewIndex {
        std::string table;
        std::string index;
    };

    int from = 0;
    std::vector<TableInfo> newTables;
    std::vector<NewColumn> newColumns;  ///< each the last one of its table
    std::vector<NewIndex> newIndexes;
};

/// All steps, one for each number but the last.
std::span<const LayoutStep> layoutSteps();

/// The first layout whose columns keep out what may not stand in them.
inline constexpr int firstCheckedLayout = 3;

/// The columns that a table did not have yet in the layout of a number; numbers, all of them.
std::set<std::string> columnsMissingFrom(int number, std::string_view table);

/// The tables of the layout of a number, in the order in which they are created.
std::vector<TableInfo> tablesOfLayout(int number);

}  // namespace chengheng
