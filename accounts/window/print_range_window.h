#pragma once

#include "accounts/printing/chart_list.h"
#include "accounts/screen/chart_screen.h"
#include "screen/CNxMiddleDialog.h"

class QLineEdit;
class QSpinBox;

namespace chengheng {

/// Asks which accounts are printed: from which code to which, and of which levels.
class PrintRangeWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// `levels` is how many the books have.
    PrintRangeWindow(int levels, QWidget* parent);

    ChartRange range() const;

  protected:
    void OnOK() override;

  private:
    void buildControls();

    int m_levels;
    QLineEdit* m_firstCode = nullptr;
    QLineEdit* m_lastCode = nullptr;
    QSpinBox* m_firstLevel = nullptr;
    QSpinBox* m_lastLevel = nullptr;
};

}  // namespace chengheng
