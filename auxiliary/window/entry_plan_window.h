#pragma once

#include <string>

#include "auxiliary/transfer/entry_plan.h"
#include "screen/grid/plan_window.h"

namespace chengheng {

/// Shows what would become of each row of pasted or imported entries; accepted when the operator
/// wants all of them written.
class EntryPlanWindow final : public PlanWindow {
    Q_OBJECT

  public:
    /// The plan must outlive the window. The heading says where its rows come from.
    EntryPlanWindow(const char* title, const std::string& heading, const EntryPlan& plan,
                    const AuxiliaryMember& member, QWidget* parent);
};

}  // namespace chengheng
