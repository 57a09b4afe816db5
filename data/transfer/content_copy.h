#pragma once

#include <cstddef>
#include <functional>

#include "data/engine/engine.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {

/// Told how many rows are copied by now; false gives it up.
using CopyProgress = std::function<bool(std::size_t rows)>;

/// What of a set of books is copied, and who is told of it.
struct CopyScope {
    TableChoice choice = {};  ///< the target's other tables are left empty
    CopyProgress progress = {};
};

/// Replaces everything a set of books holds by the content of another, project items and id
/// counters included; who is logged on there stays. The target has the tables of the source's
/// layout or of a newer one; its rows are then those of the source's layout, the number of it
/// included. To be called inside a transaction of the target; what the source shows is one state
/// only inside a transaction of its own. Cancelled when the progress gives it up.
Status replaceContent(Engine& source, Engine& target, const CopyScope& scope = {});

}  // namespace chengheng
