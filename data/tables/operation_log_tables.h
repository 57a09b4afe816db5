#pragma once

#include "data/tables/schema.h"

namespace chengheng {

/// The entries of the operation log, one a unit of work.
const TableInfo& operationLogTable();

/// What an entry's unit of work changed, packed: rows of one table, their range of ids and that of
/// the accounts they belong to (0 and -1: none).
const TableInfo& operationLogPartTable();

/// One row: number and hash of the last entry.
const TableInfo& operationLogHeadTable();

}  // namespace chengheng
