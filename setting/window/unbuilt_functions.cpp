#include "setting/window/unbuilt_functions.h"

#include "screen/unbuilt.h"
#include "setting/hub_texts.h"

namespace chengheng {
namespace {

const char* titleOf(HubFunction function) {
    switch (function) {
        case HubFunction::divide:
            return hub_texts::divide;
        case HubFunction::bursar:
            return hub_texts::bursar;
        case HubFunction::begleft:
            return hub_texts::begleft;
        default:
            break;
    }
    return "";
}

}  // namespace

void tellUnbuilt(IMessages& messages, HubFunction function) {
    tellUnbuilt(messages, titleOf(function));
}

int runUnbuiltWizard(IMessages& messages) {
    tellUnbuilt(messages, hub_texts::presetWizard);
    return 0;
}

}  // namespace chengheng
