#pragma once

#include "books/logon/own_password.h"
#include "screen/CNxMiddleDialog.h"
#include "session/function_at_work.h"

class QFormLayout;
class QLabel;
class QPushButton;

namespace chengheng {

class LimitedEdit;

/// Another password of whoever is logged on (更改口令). Accepted once it is changed.
class OwnPasswordWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit OwnPasswordWindow(QWidget* parent);

    bool OnHelpInfo() override;

  protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void DoDataExchange(bool isSaving) override;

  private:
    LimitedEdit* addField(QFormLayout& rows, const char* label, const char* name);
    void showState();

    const FunctionAtWork m_atWork;
    OwnPassword m_form;
    LimitedEdit* m_old = nullptr;
    LimitedEdit* m_wanted = nullptr;
    LimitedEdit* m_confirmation = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_confirm = nullptr;
};

}  // namespace chengheng
