#pragma once

#include <span>
#include <vector>

#include "currency/rate_rows.h"
#include "session/record_change.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// The rates of a stored row as they were seen and as they shall be. Only the one of the two that
/// differs is looked at and written.
struct RateChange {
    int currency = 0;
    RateKind kind = RateKind::fixed;
    RateRow before;
    RateRow after;

    bool operator==(const RateChange&) const = default;
};

/// Writes many rates, of one currency or several, under the locks of a change: all or none. Stale
/// where one of these rates is no longer as it was seen, which has been told, as has whatever does
/// not give `done`.
Outcome writeRates(IMessages& messages, std::span<const RateChange> changes,
                   const ImportProgress& progress = {});

/// The same within a change of currencies that is under its locks.
UntoldOutcome writeChanges(std::span<const RateChange> changes, const ImportProgress& progress);

/// What takes changes back, in their reverse order.
std::vector<RateChange> takenBack(std::span<const RateChange> changes);

}  // namespace chengheng
