#pragma once

#include <deque>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/tables/record_type.h"

namespace chengheng {

// A record's fields from and to the columns of its table.

/// Takes a row, whose columns are those of the table in their order, into a record. A number that
/// does not fit its field, a fraction in one of whole numbers, what is not finite, and a text where
/// a number belongs, are a wrongValue: none is ever read as another number.
Status readRecord(const Cursor& row, const RecordType& type, void* record);

/// The values of a record's fields in the order of the columns. Texts are borrowed from the
/// record or kept in `texts`.
std::vector<Value> recordValues(const RecordType& type, const void* record,
                                std::deque<std::string>& texts);

}  // namespace chengheng
