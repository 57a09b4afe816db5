#pragma once

#include "screen/CNxMiddleDialog.h"

class QCheckBox;

namespace chengheng {

/// Asks before opening balances are printed whether lines without figures are left out.
class PrintChoiceWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// So many lines of `lines` have no figure.
    PrintChoiceWindow(std::size_t lines, std::size_t withoutFigures, bool leavesOut,
                      QWidget* parent);

    bool leavesOut() const;

  private:
    QCheckBox* m_leavesOut = nullptr;
};

}  // namespace chengheng
