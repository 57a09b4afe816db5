#pragma once

#include <span>
#include <vector>

#include "base/values/status.h"
#include "data/sql/shape_tokens.h"

namespace chengheng {

/// Finds the tokens of an INSERT ... VALUES that are values of a date column and adds their
/// indexes; fails when a row has another number of values than columns. Tables that are not
/// of the schema are left alone.
Status findInsertedDates(std::span<const Token> tokens, std::vector<std::size_t>& dates);

/// Finds the values that are compared with or assigned to a date column; fails when a value
/// stands before the column, where it could not be told to be a date.
Status findComparedDates(std::span<const Token> tokens, std::vector<std::size_t>& dates);

}  // namespace chengheng
