#pragma once

#include <span>
#include <string>
#include <vector>

#include "books/carrying/carry_forward.h"
#include "books/carrying/carry_proof.h"
#include "books/carrying/repeat_plan.h"
#include "report/layout/report.h"

namespace chengheng {

/// What is known of a carry-forward as a table: on the screen, on paper and in files.
struct CarryTable {
    struct Column {
        const char* heading;
        int width;  ///< in characters
        Alignment alignment = Alignment::left;
    };
    struct Row {
        std::vector<std::string> cells;
        bool isInTheWay = false;  ///< something keeps it from being carried
    };

    std::string title;
    std::vector<std::string> above;  ///< lines that say what it comes to
    std::vector<std::string> below;
    std::vector<Column> columns;
    std::vector<Row> rows;
    std::vector<Row> totals;  ///< below the rows on paper and in files
};

/// Closing beside opening, account by account, with what stands in the way of each.
CarryTable carryTable(const CarryPreview& preview);
/// The differences of the two years.
CarryTable carryTable(std::span<const CarryDifference> differences);
/// The differences that a repeat would carry, then those that it leaves, with the reasons.
CarryTable carryTable(const RepeatPlan& plan);

Report reportOf(const CarryTable& table);

}  // namespace chengheng
