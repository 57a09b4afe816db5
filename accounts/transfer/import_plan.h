#pragma once

#include <vector>

#include "accounts/chart/chart_state.h"
#include "accounts/transfer/chart_sheet.h"
#include "data/tables/accounts.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// The import of a chart as it is shown before it is done.
struct ImportPlan : RowPlan {
    std::vector<_CodeInfo> added;    ///< as they shall be, parents first, without ids
    std::vector<_CodeInfo> changed;  ///< with the parents that get their first child

    bool operator==(const ImportPlan&) const = default;
};

/// Decides on every row under the rules of the account dialog: accounts of a code that is there
/// are modified, all others added, in the order of their codes, wherever they stand.
ImportPlan planImport(const ChartSheet& sheet, const ChartState& state);

}  // namespace chengheng
