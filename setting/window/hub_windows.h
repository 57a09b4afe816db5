#pragma once

#include "setting/hub_functions.h"

namespace chengheng {

/// The windows of the module's functions, each constructed with no parent, run modally and
/// destroyed when its loop ends.
class HubWindows final : public IHubWindows {
  public:
    void show(HubFunction function) override;
    int runPresetWizard() override;
};

}  // namespace chengheng
