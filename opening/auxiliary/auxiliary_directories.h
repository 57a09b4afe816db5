#pragma once

#include "base/messages/messages.h"
#include "opening/sheet/auxiliary_kind.h"

namespace chengheng {

/// Whether the directories that the auxiliary window of a kind chooses from hold anything in the
/// open set of books. When one is empty or cannot be read, the operator has been told.
bool hasDirectories(AuxiliaryKind kind, IMessages& messages);

}  // namespace chengheng
