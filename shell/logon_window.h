#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "base/messages/messages.h"
#include "books/list/books_registry.h"
#include "books/logon/books_session.h"
#include "books/logon/launch_options.h"
#include "books/logon/logon_choices.h"
#include "shell/server_passwords.h"

namespace Ui {
class LogonWindow;
}

namespace chengheng {

/// Asks for the password that a refused log-on wants of the operator; false when he gives up.
bool chooseNewPassword(LogonRequest& request, const Refusal& wanted, QWidget* parent);

/// Asks for a set of books, an operator, a password and a date, and logs on. Accepted only
/// once the operator is logged on; a refusal leaves it open with the focus on what was wrong.
class LogonWindow : public QDialog {
    Q_OBJECT
  public:
    /// All but the options outlive the window.
    LogonWindow(BooksSession& session, const BooksRegistry& registry, IMessages& messages,
                SecretStore& secrets, const LaunchOptions& options);
    ~LogonWindow() override;

    void accept() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void setUpFields();
    void loadChoices();
    void showChoices(std::size_t selected);
    void suggestDate();
    void openOther();
    void makeNew();
    void tellFailureToOpenList();
    void keepListTrue();
    std::size_t rememberedChoice() const;
    void logOn();
    /// Opens the chosen books with the operator who is filled in; false when they were refused,
    /// which has been told.
    bool openSession();
    /// Changes the parameters of the chosen books, for which the operator logs on and off again.
    void changeParameters();
    /// Shows their operation log to a supervisor, likewise.
    void showLog();
    /// Makes next year's books from the chosen ones, for which the operator logs on and off again,
    /// and offers to log on to them.
    void makeNewYear();
    /// Carries last year's balances into the books of the new year, which are chosen, and gives
    /// what there is to say of it.
    QString carryIntoNewYear();
    /// Whether there is an operator and a password to log on with; what is wanted them for is told
    /// where there is not.
    bool isLogonGiven(const char* wantedFor);
    /// Gives the operator who is filled in another password, likewise.
    void changePassword();
    void tellSuspiciousHistory();
    /// Asks whether books of an older layout are to be upgraded, and does so.
    bool upgrade(const std::string& location);
    void rememberLogon();

    BooksSession& m_session;
    const BooksRegistry& m_registry;
    IMessages& m_messages;
    ServerPasswords m_passwords;
    const std::string m_launchArgument;
    std::unique_ptr<Ui::LogonWindow> m_ui;
    std::vector<LogonChoice> m_choices;
    Status m_listStatus;
    bool m_isDateGiven = false;  ///< by the operator; no longer to be suggested
    bool m_wasShown = false;
};

}  // namespace chengheng
