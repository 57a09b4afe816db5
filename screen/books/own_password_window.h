#pragma once

#include "books/logon/own_password.h"
#include "screen/CNxMiddleDialog.h"
#include "session/function_at_work.h"

class QFormLayout;
class QLabel;
class QPushButton;

namespace chengheng {

class LimitedEdit;

/// Asks for a new password, typed twice. Accepted once the form has taken it.
class PasswordWindow : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit PasswordWindow(QWidget* parent);

    bool OnHelpInfo() override;

  protected:
    virtual PasswordForm& form() = 0;
    /// What stands above the fields; mostly nothing.
    virtual std::string heading() const { return {}; }

    bool OnInitDialog() override;
    void OnOK() override;
    void DoDataExchange(bool isSaving) override;

  private:
    LimitedEdit* addField(QFormLayout& rows, const char* label, const char* name);
    void showState();

    LimitedEdit* m_old = nullptr;
    LimitedEdit* m_wanted = nullptr;
    LimitedEdit* m_confirmation = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_confirm = nullptr;
};

/// Another password of whoever is logged on (更改口令). Accepted once it is changed.
class OwnPasswordWindow final : public PasswordWindow {
    Q_OBJECT

  public:
    explicit OwnPasswordWindow(QWidget* parent);

  protected:
    PasswordForm& form() override { return m_form; }
    void OnOK() override;

  private:
    const FunctionAtWork m_atWork;
    OwnPassword m_form;
};

/// The password that whoever logs on has to choose first.
class NewPasswordWindow final : public PasswordWindow {
    Q_OBJECT

  public:
    /// What is wanted is said above the fields.
    NewPasswordWindow(const std::string& name, const std::string& given, std::string wanted,
                      QWidget* parent);

    const std::string& chosen() const { return m_form.wanted; }

  protected:
    PasswordForm& form() override { return m_form; }
    std::string heading() const override { return m_heading; }

  private:
    std::string m_heading;
    NewPassword m_form;
};

}  // namespace chengheng
