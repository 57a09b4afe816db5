#pragma once

#include "setting/hub_functions.h"

namespace chengheng {

// Functions of the module that have no window yet, each standing in for its window: it opens
// nothing and says so.

void tellUnbuilt(IMessages& messages, HubFunction function);

template <HubFunction function>
void tellUnbuilt(IMessages& messages) {
    tellUnbuilt(messages, function);
}

/// A wizard that was not finished.
int runUnbuiltWizard(IMessages& messages);

}  // namespace chengheng
