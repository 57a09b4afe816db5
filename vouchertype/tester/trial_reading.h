#pragma once

#include <optional>

#include "base/messages/messages.h"
#include "vouchertype/tester/trial_voucher.h"

namespace chengheng {

/// Reads what vouchers are held against from the open set of books, as it is now. Nothing when it
/// cannot be read; the operator has been told.
std::optional<TrialBooks> readTrialBooks(IMessages& messages);

}  // namespace chengheng
