#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "data/engine/engine.h"
#include "data/log/row_bytes.h"
#include "data/tables/schema.h"

namespace chengheng {

/// A cell of the books as the log would keep it.
LoggedCell cellOf(const Value& value);

/// Hands over rows of the books, those of the ids among them, all columns in their order. Ids that
/// lie close together are read with those between them.
Status forEachStoredRow(Engine& engine, const TableInfo& table, std::vector<std::int64_t> ids,
                        const std::function<Status(const Cursor&)>& receive);

}  // namespace chengheng
