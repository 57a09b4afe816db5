#pragma once

#include <vector>

#include "base/messages/messages.h"
#include "books/carrying/both_years.h"
#include "books/carrying/repeat_plan.h"
#include "opening/screen/opening_work.h"

namespace chengheng {

/// Looks what has changed in last year's books since they were carried forward and what of it a
/// repeat would carry; changes nothing. What keeps it from being looked at is added to `untold`;
/// refused likewise where there are vouchers, or nothing was carried yet.
Outcome lookAtRepeat(const BooksRegistry& registry, RepeatPlan& plan, std::vector<Notice>& untold,
                     const CarryProgress& progress = {});

/// What carries the plan out, and takes it back.
CarriedAgain carriedAgain(const RepeatPlan& plan);

/// Carries the plan out in the open set of books; what failed was told.
Outcome repeatCarry(const RepeatPlan& plan, IMessages& messages);

}  // namespace chengheng
