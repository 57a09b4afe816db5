#pragma once

#include <memory>
#include <string>

#include "accounts/transfer/chart_import.h"
#include "screen/CNxMiddleDialog.h"

namespace chengheng {
class PlannedRows;

/// Shows what an import would make of each row of a file, and does it when the operator says
/// so: exactly what is shown, or nothing.
class ImportWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// The plan is one that `import` has made of the file.
    ImportWindow(ChartImport& import, ImportPlan plan, const std::string& file, QWidget* parent);
    ~ImportWindow() override;

  private:
    void buildControls(const std::string& file);
    std::string advice() const;
    void apply();

    ChartImport& m_import;
    ImportPlan m_plan;
    std::unique_ptr<PlannedRows> m_rows;
};

}  // namespace chengheng
