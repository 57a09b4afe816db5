#pragma once

#include "books/carrying/carry_plan.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Writes the rows of a sheet that closings were put into, and the details of the plan, over all
/// period sums of the selected database. To be called in a unit of work.
Status writeCarried(CNbCwDB& database, const CarryPlan& plan, const OpeningSheet& sheet);

}  // namespace chengheng
