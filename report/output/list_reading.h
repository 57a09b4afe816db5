#pragma once

#include <array>
#include <functional>
#include <vector>

#include "data/access/row_lease.h"
#include "report/output/list_fields.h"
#include "report/output/print_sql.h"
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

/// What fills a list with every record of a table. The fields stay where they are.
template <class Record, std::size_t count>
std::function<bool(Report& report)> everyRecord(
    const std::array<ListField<Record>, count>& fields) {
    return [&fields](Report& report) {
        std::vector<Record> records;
        if (!readForList(print_sql::inOrderOfIds, records)) return false;
        addRows<Record>(report, fields, records);
        return true;
    };
}

}  // namespace chengheng
