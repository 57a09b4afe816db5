#pragma once

#include <memory>
#include <string>
#include <vector>

#include "screen/CNxMiddleDialog.h"
#include "screen/grid/grid_model.h"

class QDialogButtonBox;
class QPushButton;

namespace chengheng {

/// The rows of a plan: what would become of each. Those refused stand out.
class PlanModel : public GridModel {
  public:
    using GridModel::GridModel;

    virtual bool isRefused(int row) const = 0;
    /// Whether something will be asked about it.
    virtual bool isQuestionable(int) const { return false; }

  protected:
    QColor foreground(int row, int column) const override;
};

/// What stands in a plan window around its rows.
struct PlanContent {
    std::string title;
    std::vector<std::string> above = {};  ///< lines above the rows
    std::string rowsName;                 ///< of the grid, for who hears it read
    std::vector<std::string> below = {};
    std::string apply;  ///< on the button that does it; empty: there is only something to see
    bool mayBeApplied;
};

/// Shows a plan before it is done, with the first refused row in sight, or else
/// the first that is to be asked about; nothing is done but what
/// is shown.
class PlanWindow : public CNxMiddleDialog {
    Q_OBJECT

  public:
    PlanWindow(const PlanContent& content, std::unique_ptr<PlanModel> rows, QWidget* parent);
    ~PlanWindow() override;

  protected:
    /// The operator wants the plan done.
    virtual void apply() { EndDialog(Accepted); }

    /// Of a plan that can be applied.
    QPushButton& applyButton() const { return *m_apply; }
    QDialogButtonBox& buttons() const { return *m_buttons; }

  private:
    void buildControls(const PlanContent& content);
    void buildButtons(const PlanContent& content);

    std::unique_ptr<PlanModel> m_rows;
    QDialogButtonBox* m_buttons = nullptr;
    QPushButton* m_apply = nullptr;
};

}  // namespace chengheng
