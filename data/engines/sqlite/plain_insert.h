#pragma once

#include <span>
#include <string_view>

#include "data/sql/value.h"
#include "data/tables/schema.h"

namespace chengheng {

/// The table of a text that is nothing but "INSERT INTO t VALUES ( $1, $2, ... )" with a value for
/// each of its columns; null of any other.
const TableInfo* plainInsertTable(std::string_view sql);

/// Whether the values are stored as they are given: each is of the kind that its column keeps.
bool areStoredAsGiven(const TableInfo& table, std::span<const Value> values);

}  // namespace chengheng
