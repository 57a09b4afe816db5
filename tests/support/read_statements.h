#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/sql/batch_reader.h"

namespace chengheng {

/// A statement of a batch with everything it borrows copied.
struct StatementCopy {
    StatementKind kind = StatementKind::select;
    std::string shape;
    /// "1, 2.5, 'text'"
    std::string values;
    bool isWorthKeeping = true;

    bool operator==(const StatementCopy&) const = default;
};

struct BatchCopy {
    std::vector<StatementCopy> statements;
    Status status;
};

/// Reads a whole batch.
BatchCopy readStatements(std::string_view batch);

/// "1, 2.5, 'text'"; a real always has a point or an exponent.
std::string valuesText(std::span<const Value> values);

}  // namespace chengheng
