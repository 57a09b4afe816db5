#include "sheets/row_plan.h"

#include <algorithm>

#include "sheets/plan_texts.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

std::size_t RowPlan::count(RowFate fate) const {
    return static_cast<std::size_t>(std::ranges::count(rows, fate, &PlannedRow::fate));
}

std::size_t RowPlan::rowsWithQuestions() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(rows, [](const PlannedRow& row) { return !row.questions.empty(); }));
}

std::string refusalText(const PlannedRow& row) {
    return SheetFailure{row.reason, row.row, row.column}.text();
}

std::string refusedPlace(const PlannedRow& row) {
    if (row.column == 0) return {};
    return cellAddress(row.row, row.column) + " " + row.heading;
}

const char* fateTitle(RowFate fate) {
    switch (fate) {
        case RowFate::added:
            return plan_texts::fateAdded;
        case RowFate::changed:
            return plan_texts::fateChanged;
        case RowFate::unchanged:
            return plan_texts::fateUnchanged;
        case RowFate::refused:
            break;
    }
    return plan_texts::fateRefused;
}

}  // namespace chengheng
