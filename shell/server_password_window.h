#pragma once

#include <QDialog>
#include <string>

class QCheckBox;
class QLineEdit;

namespace chengheng {

/// Asks for the password of a database server.
class ServerPasswordWindow : public QDialog {
    Q_OBJECT
  public:
    /// The address without a password; `isWrong`: one was given that the server refused.
    ServerPasswordWindow(const std::string& address, bool isWrong, QWidget* parent);

    std::string password() const;
    /// Whether it is to outlive the program.
    bool isToBeKept() const;

  private:
    QLineEdit* m_password = nullptr;
    QCheckBox* m_isToBeKept = nullptr;
};

}  // namespace chengheng
