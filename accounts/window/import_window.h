#pragma once

#include <string>

#include "accounts/transfer/chart_import.h"
#include "screen/grid/plan_window.h"

namespace chengheng {

/// Shows what an import would make of each row of a file, and does it when the operator says
/// so: exactly what is shown, or nothing.
class ImportWindow final : public PlanWindow {
    Q_OBJECT

  public:
    /// The plan is one that `import` has made of the file; both outlive the window.
    ImportWindow(ChartImport& import, const ImportPlan& plan, const std::string& file,
                 QWidget* parent);

  protected:
    void apply() override;

  private:
    ChartImport& m_import;
    const ImportPlan& m_plan;
};

}  // namespace chengheng
