#pragma once

#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/values/status.h"
#include "data/sql/batch_reader.h"
#include "data/sql/engine_dialect.h"
#include "data/sql/value.h"

namespace chengheng {

/// A shape in an engine's words.
struct TranslatedShape {
    std::string sql;  ///< with INTO, FROM, $1, $2, ... and what LIKE needs
    int parameters = 0;
    /// Parameters (from 0) that stand for a date column: their text 'year/month/day' is
    /// brought into the stored form before the statement runs.
    std::vector<int> dateParameters;
    /// "Update ABIdTable Set lLastId = n Where sTable = 'table'": value 0 is n, an integer,
    /// and value 1 the table, a text.
    bool isIdUpdate = false;
    /// Names ABIdTable in any other way, so that counters held back must be written first.
    bool touchesIdTable = false;
};

/// Puts a shape that a BatchReader produced into plain SQL for an engine. Unreadable are an
/// INSERT whose rows do not have a value for each column, a LIKE without a text, and a date
/// that is none.
Status translate(StatementKind kind, std::string_view shape, const EngineDialect& dialect,
                 TranslatedShape& translated);

/// Brings the dates among the values of a statement into the stored form. The new texts lie in
/// `storage`, which must live as long as the values are used.
Status normaliseDates(const TranslatedShape& translated, std::span<Value> values,
                      std::deque<std::string>& storage);

}  // namespace chengheng
