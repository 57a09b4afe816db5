#pragma once

#include "accounts/transfer/import_plan.h"
#include "base/values/status.h"

class CNbCwDB;

namespace chengheng {

/// Writes what a plan says into the selected database. To be called in a unit of work. Cancelled
/// when the progress gives it up; missing, with its code, when an account to be changed is gone.
Status writePlan(CNbCwDB& database, const ImportPlan& plan, const ImportProgress& progress = {});

}  // namespace chengheng
