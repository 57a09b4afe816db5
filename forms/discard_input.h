#pragma once

#include "base/messages/messages.h"

namespace chengheng {

/// Asks whether what was typed and not saved may go; Enter keeps it.
bool mayDiscardInput(IMessages& messages);

}  // namespace chengheng
