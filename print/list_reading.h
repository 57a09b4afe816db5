#pragma once

#include <vector>

#include "data/row_lease.h"
#include "host/services/host_globals.h"

namespace chengheng {

/// Reads the records of a list from g_pDB. False when they could not be read; a table without
/// such records is read and gives none.
template <class Record>
bool readForList(const char* condition, std::vector<Record>& records) {
    const RowLease<Record> lease(*g_pDB, condition);
    const Status& status = g_pDB->lastStatus();
    if (!lease.isFound() && !status && status.failure != Failure::missing) return false;
    records = lease.copy();
    return true;
}

}  // namespace chengheng
