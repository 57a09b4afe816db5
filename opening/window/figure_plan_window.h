#pragma once

#include <memory>
#include <string>

#include "opening/editing/figure_plan.h"
#include "screen/CNxMiddleDialog.h"

namespace chengheng {
class PlannedFigures;

/// Shows what each cell of a paste or an import would become; accepted when the operator wants
/// all of it written.
class FigurePlanWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// The plan must outlive the window. The heading says where its cells come from.
    FigurePlanWindow(const char* title, const std::string& heading, const FigurePlan& plan,
                     QWidget* parent);
    ~FigurePlanWindow() override;

  private:
    void buildControls(const std::string& heading);

    const FigurePlan& m_plan;
    std::unique_ptr<PlannedFigures> m_rows;
};

}  // namespace chengheng
