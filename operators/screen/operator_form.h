#pragma once

#include <string>

#include "operators/operator_service.h"

namespace chengheng {

/// The dialog that adds or modifies an operator, without its screen.
class OperatorForm {
  public:
    /// To add one.
    explicit OperatorForm(IMessages& messages, PasswordCost cost = PasswordCost::usual);
    /// To modify one.
    OperatorForm(IMessages& messages, const OperatorRecord& record,
                 PasswordCost cost = PasswordCost::usual);

    /// What stands in the fields; the dialog writes into it what is typed.
    OperatorInput input;

    bool isAddition() const { return m_record.user.lUserId == 0; }
    const char* title() const;
    bool canConfirm() const { return isOperatorInputChanged(input, m_opened); }
    /// Of somebody else only: who is logged on here changes the own password at once.
    bool canWantNewPassword() const;
    /// What the operator should know of the password as it is typed; mostly empty.
    std::string note() const;

    /// Whether the dialog has come to its end.
    bool confirm();
    /// Whether it has written: the operator as he is now.
    bool isDone() const { return m_isDone; }
    const OperatorRecord& record() const { return m_record; }
    /// Whether it ended because the operator has gone and all are to be read anew.
    bool wantsReadingAgain() const { return m_wantsReadingAgain; }

  private:
    OperatorService m_service;
    OperatorRecord m_record;
    OperatorInput m_opened;
    bool m_hasPassword = false;
    bool m_isDone = false;
    bool m_wantsReadingAgain = false;
};

}  // namespace chengheng
