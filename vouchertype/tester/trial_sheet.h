#pragma once

#include <optional>
#include <vector>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"
#include "vouchertype/tester/trial_voucher.h"

namespace chengheng {

/// The lines of a voucher in a file or a pasted block, each with its row as number. The columns
/// are account, debit and credit, or account, side and amount, by their headings; without headings
/// they stand in that order. Blank rows are left out; so is what else a file holds.
std::optional<SheetFailure> readTrialLines(const Sheet& sheet, std::vector<TrialLine>& lines);

}  // namespace chengheng
