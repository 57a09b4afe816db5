#pragma once

#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Removes the period sums of every account, and the auxiliary sums of every combination of
/// dimensions, whose figures are all zero; from the selected database. An account keeps all its
/// rows as long as one of them carries anything. Where there is nothing to remove, only rows that
/// an index has are looked at.
Status sweepZeroRows(CNbCwDB& database);

}  // namespace chengheng
