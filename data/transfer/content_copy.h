#pragma once

#include "data/engine/engine.h"

namespace chengheng {

/// Replaces everything a set of books holds by the content of another, project items and id
/// counters included; who is logged on there stays. The target has the tables of the source's
/// layout or of a newer one; its rows are then those of the source's layout, the number of it
/// included. To be called inside a transaction of the target; what the source shows is one state
/// only inside a transaction of its own.
Status replaceContent(Engine& source, Engine& target);

}  // namespace chengheng
