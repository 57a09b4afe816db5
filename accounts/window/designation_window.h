#pragma once

#include "accounts/changing/designation.h"
#include "screen/CNxMiddleDialog.h"

class QComboBox;

namespace chengheng {

/// Names the cash account and the bank account (指定科目).
class DesignationWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit DesignationWindow(QWidget* parent);

  protected:
    bool OnInitDialog() override;
    void OnOK() override;

  private:
    void buildControls();

    DesignationService m_service;
    QComboBox* m_cash = nullptr;
    QComboBox* m_bank = nullptr;
};

}  // namespace chengheng
