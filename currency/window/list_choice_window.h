#pragma once

#include "screen/CNxMiddleDialog.h"

class QCheckBox;
class QRadioButton;

namespace chengheng {

/// Asks which list is printed: the currencies, or the rates of the chosen one; and for rates of
/// days whether those of the whole year.
class ListChoiceWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    ListChoiceWindow(bool areOfDays, QWidget* parent);

    bool isOfRates() const;
    bool isOfYear() const;

  private:
    QRadioButton* m_currencies = nullptr;
    QRadioButton* m_rates = nullptr;
    QCheckBox* m_wholeYear = nullptr;
};

}  // namespace chengheng
