#pragma once

#include <QDialog>
#include <memory>

#include "base/messages/messages.h"
#include "books/newyear/new_year_books.h"
#include "shell/server_passwords.h"

namespace Ui {
class NewYearWindow;
}

namespace chengheng {

/// Shows what the books of the next year get from those of a year, asks where they are to lie and
/// which rates they begin with, and makes them. Accepted only once they are made.
class NewYearWindow : public QDialog {
    Q_OBJECT
  public:
    NewYearWindow(const BooksRegistry& registry, IMessages& messages, ServerPasswords& passwords,
                  std::string ending, QWidget* parent);
    ~NewYearWindow() override;

    /// Looks at the books of the year that ends; false when there can be no next one, which has
    /// been told.
    bool look();
    /// The books that were made.
    const NewYearFacts& made() const { return m_plan.facts; }

    /// Whether last year's balances are to be carried into them.
    bool wantsCarry() const;

    void accept() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    using Work = std::function<std::optional<Refusal>(const NewYearOrder& order)>;

    std::optional<Refusal> withPasswords(const Work& work);
    NewYearOrder order() const;
    void showPlan();
    void browse();
    void make();

    IMessages& m_messages;
    ServerPasswords& m_passwords;
    const NewYearBooks m_books;
    const std::string m_ending;
    std::unique_ptr<Ui::NewYearWindow> m_ui;
    NewYearPlan m_plan;
};

}  // namespace chengheng
