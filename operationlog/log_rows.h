#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/engine/engine.h"
#include "data/log/row_bytes.h"

namespace chengheng {

/// A part of what an entry tells: rows of one table.
struct LogRows {
    std::int32_t part = 0;  ///< 0: there is none left
    std::string table;
    std::vector<LoggedRow> rows;
};

/// The rows of a unit's part behind one of that number; damaged when they cannot be unpacked.
Status readPartBehind(Engine& engine, std::string_view unit, std::int32_t part, LogRows& rows);

/// The same of a select of one part with the values it wants.
Status readPart(Engine& engine, std::string_view sql, std::span<const Value> values, LogRows& rows);

/// The rows in a part's text; damaged when they are none.
Status unpackRows(std::string_view packed, std::vector<LoggedRow>& rows);

}  // namespace chengheng
