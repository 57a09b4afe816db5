#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "data/sql/value.h"

namespace chengheng {

enum class ChangeKind : std::uint8_t { inserted, changed, deleted };

/// A row that a statement has put in, changed or taken out; the cells stand in the order of its
/// table's columns and are valid during the call that tells of it. Of a changed row, cells that
/// stay as they are may be null in both, but for the ids in it.
struct RowChange {
    ChangeKind kind = ChangeKind::inserted;
    std::string_view table;         ///< as the statement writes it
    std::span<const Value> before;  ///< empty of a row that was put in
    std::span<const Value> after;   ///< empty of a row that was taken out
};

/// Told of every row that the statements of a connection change, in their order, those of what is
/// rolled back later included.
class ChangeWatcher {
  public:
    virtual ~ChangeWatcher() = default;
    /// Whether the rows of a table are of interest. Its name in any case of letters.
    virtual bool watches(std::string_view table) const = 0;
    virtual void take(const RowChange& change) = 0;
    /// A row was changed that cannot be told: what was taken is no longer all.
    virtual void missed() = 0;
};

}  // namespace chengheng
