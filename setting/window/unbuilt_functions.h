#pragma once

#include "base/messages/messages.h"

namespace chengheng {

/// Stands in for the preset wizard, which has no window yet: opens nothing and says so, as a
/// wizard that was not finished.
int runUnbuiltWizard(IMessages& messages);

}  // namespace chengheng
