#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "data/engine/row_change.h"

namespace chengheng {

/// A cell as the log keeps it; monostate is what is unknown (NULL).
using LoggedCell = std::variant<std::monostate, std::int64_t, double, std::string>;

/// A cell of a changed row; of a row that was put in or taken out one side is unset.
struct LoggedColumn {
    std::string name;
    LoggedCell before = {};
    LoggedCell after = {};

    bool operator==(const LoggedColumn&) const = default;
};

/// What became of a row: all columns of one that was put in or taken out, those that differ of
/// another.
struct LoggedRow {
    ChangeKind kind = ChangeKind::inserted;
    std::int64_t id = 0;  ///< its first column
    std::vector<LoggedColumn> columns = {};

    bool operator==(const LoggedRow&) const = default;
};

/// What the rows of a table are preceded by: the names of its columns.
std::string rowBytesHead(const std::vector<std::string>& columns);

/// Adds a changed row. One of which nothing differs adds nothing; false then.
bool addRowBytes(const RowChange& change, std::string& bytes);

/// The rows behind a head; false when the bytes are not whole.
bool readRowBytes(std::string_view bytes, std::vector<LoggedRow>& rows);

}  // namespace chengheng
