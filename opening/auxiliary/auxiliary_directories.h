#pragma once

#include <optional>

#include "base/messages/refusal.h"
#include "opening/sheet/auxiliary_kind.h"

namespace chengheng {

/// Why the auxiliary window of a kind cannot be opened: a directory that it chooses from is empty
/// in the open set of books or cannot be read. Nothing when all of them hold something.
std::optional<Refusal> directoriesRefusal(AuxiliaryKind kind);

}  // namespace chengheng
