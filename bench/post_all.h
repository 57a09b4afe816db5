#pragma once

#include "data/access/CNbCwDB.h"

namespace bench {

/// Posts the twelve rows of each account, from 1 on, as one text batch an account and one
/// unit of work in all.
void postAll(CNbCwDB& database, int accounts);

}  // namespace bench
