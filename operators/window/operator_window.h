#pragma once

#include "operators/screen/operator_form.h"
#include "screen/CNxMiddleDialog.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace chengheng {
class LimitedEdit;

/// Adds an operator or modifies name and password of one.
class OperatorWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    OperatorWindow(OperatorForm& form, QWidget* parent);

    bool OnHelpInfo() override;

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void DoDataExchange(bool isSaving) override;

  private:
    LimitedEdit* addField(const char* label, const char* name, int limit);
    void inputEdited();
    void showState();

    OperatorForm& m_form;
    LimitedEdit* m_name = nullptr;
    LimitedEdit* m_password = nullptr;
    LimitedEdit* m_confirmation = nullptr;
    QCheckBox* m_wantsNew = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_confirm = nullptr;
};

}  // namespace chengheng
