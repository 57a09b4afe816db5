#pragma once

#include <QDialog>
#include <memory>

#include "base/messages/messages.h"
#include "books/making/books_creation.h"
#include "shell/server_passwords.h"

namespace Ui {
class NewBooksWindow;
}

namespace chengheng {

/// Asks for the facts of a new set of books and makes it. Accepted only once it is made.
class NewBooksWindow : public QDialog {
    Q_OBJECT
  public:
    NewBooksWindow(const BooksRegistry& registry, IMessages& messages, ServerPasswords& passwords,
                   QWidget* parent);
    ~NewBooksWindow() override;

    const CreatedBooks& created() const { return m_created; }
    QString supervisor() const;

    void accept() override;
    void reject() override;

  private:
    void setUpFields();
    void showExample();
    void browse();
    void make();
    NewBooks facts() const;
    std::optional<Refusal> refusalOf(const NewBooks& books) const;

    const BooksRegistry& m_registry;
    IMessages& m_messages;
    ServerPasswords& m_passwords;
    std::unique_ptr<Ui::NewBooksWindow> m_ui;
    NewBooks m_offered;  ///< the facts before anything was typed
    CreatedBooks m_created;
};

}  // namespace chengheng
