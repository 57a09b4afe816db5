#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "base/messages/messages.h"
#include "data/tables/books.h"
#include "shell/server_passwords.h"

namespace Ui {
class OpenBooksWindow;
}

namespace chengheng {

/// Asks for the path or server address of books that the list does not offer. Accepted only
/// when there are books that can be opened.
class OpenBooksWindow : public QDialog {
    Q_OBJECT
  public:
    OpenBooksWindow(IMessages& messages, ServerPasswords& passwords, QWidget* parent);
    ~OpenBooksWindow() override;

    const std::string& location() const { return m_location; }
    const _zAccountMInfo& parameters() const { return m_parameters; }

    void accept() override;

  private:
    void browse();
    void check();
    void followAddress();
    void followFields();

    IMessages& m_messages;
    ServerPasswords& m_passwords;
    std::unique_ptr<Ui::OpenBooksWindow> m_ui;
    std::string m_location;
    _zAccountMInfo m_parameters;
};

}  // namespace chengheng
