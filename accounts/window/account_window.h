#pragma once

#include <functional>
#include <memory>

#include "accounts/screen/account_form.h"
#include "data/tables/accounts.h"
#include "directories/directory.h"
#include "screen/CNxMiddleDialog.h"

class QCheckBox;
class QToolButton;
namespace Ui {
class AccountWindow;
}

namespace chengheng {

/// The dialog that adds and modifies accounts, over a form that has been begun.
class AccountWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// What the chart's window learns while the dialog is up.
    struct Observers {
        std::function<void(const _CodeInfo& account)> saved;
        std::function<void(const std::string& code)> moved;  ///< by the arrows
    };

    /// The form outlives the dialog.
    AccountWindow(AccountForm& form, Observers observers, QWidget* parent);
    ~AccountWindow() override;

    /// Whether an account was found to be deleted elsewhere.
    bool hasMetForeignChange() const { return m_hasMetForeignChange; }

  protected:
    /// False, told, when what its lists hold cannot be read.
    bool OnCreate() override;
    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void DoDataExchange(bool isSaving) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void fillLists();
    void connectFields();
    void connectButtons();
    void connectArrow(QToolButton* button, AccountForm::Step step);
    void browseCurrency();
    void browse(DirectoryKind kind);
    void save(ParentSums parentSums = ParentSums::keepOut);
    void move(AccountForm::Step step);
    void showAccounting(const AccountEntry& entry);
    void followCode();
    void followName();
    void followClass();
    /// Whether a proposal could be read. The operator is told once, not at every key, until one
    /// can be read again.
    bool isRead(const Status& proposal);
    void showEntry(const AccountEntry& entry);
    void showKept();
    void reflectChecks();
    void reflectArrows();
    void focusOn(const std::string& field);
    void showForm();
    void showUse(const std::string& usedCode);
    bool mayLeaveInput();

    AccountForm& m_form;
    Observers m_observers;
    std::unique_ptr<Ui::AccountWindow> m_ui;
    std::vector<_zCodeClassInfo> m_classes;
    AccountEntry m_typed;
    AccountEntry m_proposed;  ///< by the code, as far as the fields followed it
    std::string m_proposedMnemonic;
    std::string m_usedCode;
    bool m_isShowing = false;
    bool m_isClassChosen = false;
    bool m_hasToldUnread = false;
    bool m_hasMetForeignChange = false;
};

}  // namespace chengheng
