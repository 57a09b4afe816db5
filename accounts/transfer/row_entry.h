#pragma once

#include <optional>
#include <string>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/chart_state.h"
#include "accounts/transfer/chart_sheet.h"

namespace chengheng {

/// Why a cell of an imported chart cannot be understood.
struct CellRefusal {
    ChartField field;
    std::string reason;
};

/// What a row of an imported chart says about an account, put into what the dialog would show
/// of it. What a column that is not there says, and an empty class or direction, stay as they
/// are in the entry.
std::optional<CellRefusal> readRowEntry(const ChartRow& row, const ChartState& state, int grade,
                                        AccountEntry& entry);

}  // namespace chengheng
