#pragma once

#include <string>

#include "opening/editing/figure_plan.h"
#include "screen/grid/plan_window.h"

namespace chengheng {

/// Shows what each cell of a paste or an import would become; accepted when the operator wants
/// all of it written.
class FigurePlanWindow final : public PlanWindow {
    Q_OBJECT

  public:
    /// The plan must outlive the window. The heading says where its cells come from.
    FigurePlanWindow(const char* title, const std::string& heading, const FigurePlan& plan,
                     QWidget* parent);
};

}  // namespace chengheng
