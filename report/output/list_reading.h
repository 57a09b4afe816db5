#pragma once

#include <vector>

#include "data/access/row_lease.h"
#include "session/host_globals.h"

namespace chengheng {

/// Reads the records of a list from g_pDB. False when they could not be read; a table without
/// such records is read and gives none.
template <class Record>
bool readForList(const char* condition, std::vector<Record>& records) {
    const RowLease<Record> lease(*g_pDB, condition);
    records = lease.copy();
    return lease.isRead();
}

}  // namespace chengheng
