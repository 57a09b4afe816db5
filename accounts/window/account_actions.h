#pragma once

#include <string>

#include "accounts/codes/code_levels.h"
#include "accounts/screen/account_form.h"
#include "accounts/window/chart_grid.h"

namespace chengheng {

/// What an operator does to single accounts of the chart, most of it to the current one. Dialogs
/// come up over the window of the grid, which shows at once what has changed.
class AccountActions {
  public:
    /// The messages and the grid outlive the actions.
    AccountActions(IMessages& messages, ChartGrid& grid, const CodeLevels& levels)
        : m_messages(messages), m_grid(grid), m_levels(levels) {}

    /// Adds accounts, the first one of a class and below the current account.
    void add(const std::string& className);
    void addCopy();
    void modify();
    void remove();
    void designate();
    void showUses();
    void showHistory();

    /// Lists the tab anew; what keeps it from being read is told.
    void listAnew();

  private:
    AccountForm newForm() { return {m_messages, m_levels, m_grid.screen()}; }
    /// Whether a form has begun; the operator is told when the account is gone or unreadable.
    bool hasBegun(const Status& status, const std::string& code);
    void tellGone(const std::string& code);
    void runWindow(AccountForm& form);

    IMessages& m_messages;
    ChartGrid& m_grid;
    CodeLevels m_levels;
};

}  // namespace chengheng
