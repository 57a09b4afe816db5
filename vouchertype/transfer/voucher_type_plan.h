#pragma once

#include <string>
#include <vector>

#include "data/tables/settlement.h"
#include "sheets/headed_columns.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// What the rows of a sheet are held against.
struct VoucherTypeState {
    std::vector<_SignInfo> types;
    std::vector<std::string> firstLevelAccounts;  ///< their codes

    bool operator==(const VoucherTypeState&) const = default;
};

/// The import of voucher types as it is shown before it is done.
struct VoucherTypePlan : RowPlan {
    std::vector<_SignInfo> added;    ///< in the order of the sheet, without ids
    std::vector<_SignInfo> changed;  ///< as they shall be

    bool operator==(const VoucherTypePlan&) const = default;
};

/// Decides on every row of a sheet with the columns of voucher types, under the checks of the
/// window: a type of a number that is there is modified, all others are added. What a column that
/// is not there or an empty cell of a restriction would say stays as it is. A restriction may name
/// account one alone, as presets do.
VoucherTypePlan planVoucherTypes(const HeadedSheet& sheet, const VoucherTypeState& state);

}  // namespace chengheng
