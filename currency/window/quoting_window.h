#pragma once

#include "currency/transfer/rate_plan.h"
#include "screen/CNxMiddleDialog.h"

class QRadioButton;
class QSpinBox;

namespace chengheng {

/// Asks how a file quotes its rates, before it is planned.
class QuotingWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit QuotingWindow(QWidget* parent);

    /// For the currency whose rates they are where the file names none.
    QuotedAs quotedAs(int currency) const;

  private:
    QRadioButton* addWay(const char* caption, const char* name);

    QRadioButton* m_asConverted = nullptr;
    QRadioButton* m_homePerForeign = nullptr;
    QRadioButton* m_foreignPerHome = nullptr;
    QSpinBox* m_units = nullptr;
};

}  // namespace chengheng
