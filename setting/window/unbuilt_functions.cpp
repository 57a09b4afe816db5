#include "setting/window/unbuilt_functions.h"

#include "screen/unbuilt.h"
#include "setting/hub_texts.h"

namespace chengheng {

int runUnbuiltWizard(IMessages& messages) {
    tellUnbuilt(messages, hub_texts::presetWizard);
    return 0;
}

}  // namespace chengheng
