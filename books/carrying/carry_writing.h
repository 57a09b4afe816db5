#pragma once

#include <span>

#include "books/carrying/both_years.h"
#include "books/carrying/carry_plan.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Writes the rows of a sheet that closings were put into, and the details of the plan, over all
/// period sums of the selected database; cancelled where `progress` gives it up. To be called in a
/// unit of work.
Status writeCarried(CNbCwDB& database, const CarryPlan& plan, const OpeningSheet& sheet,
                    const CarryProgress& progress = {});

/// Adds the rows of combinations that have none.
Status addDetails(CNbCwDB& database, std::span<const ClosedDetail> details);

}  // namespace chengheng
