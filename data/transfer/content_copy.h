#pragma once

#include "data/engine/engine.h"

namespace chengheng {

/// Replaces everything a set of books holds by the content of another, project items and id
/// counters included; who is logged on there stays. Both engines hold the layout of this
/// version. To be called inside a transaction of the target; what the source shows is one
/// state only inside a transaction of its own.
Status replaceContent(Engine& source, Engine& target);

}  // namespace chengheng
