#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "books/carrying/repeat_plan.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// One figure of a combination of dimensions and the value that it gets.
struct DetailChange {
    std::int32_t account = 0;
    EntryDimensions of = {};
    Measure measure = Measure::money;
    double before = 0;
    double after = 0;
};

/// Those of a plan, the changes of an account together; or their taking back.
std::vector<DetailChange> detailChanges(const RepeatPlan& plan, bool takesBack);

/// Writes them into all twelve periods of the selected database, unless `isCurrent` tells that one
/// of the figures is no longer what it was: then nothing of the unit of work is to be kept.
Status writeDetailChanges(CNbCwDB& database, std::span<const DetailChange> changes,
                          bool& isCurrent);

}  // namespace chengheng
