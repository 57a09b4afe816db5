#pragma once

#include <string>

#include "books/logon/wrong_tries.h"
#include "session/record_change.h"
#include "session/rights/passwords.h"

namespace chengheng {

namespace own_password_field {
inline constexpr const char* old = "oldPassword";
inline constexpr const char* wanted = "sPassword";
inline constexpr const char* confirmation = "confirmation";
}  // namespace own_password_field

/// Whoever is logged on gives himself another password. The old one is asked for, and wrong tries
/// at it count like those at logging on: the operator may have left the desk.
class OwnPassword {
  public:
    explicit OwnPassword(IMessages& messages, PasswordCost cost = PasswordCost::usual,
                         WrongTries::Clock clock = {})
        : m_messages(messages), m_tries(std::move(clock)), m_cost(cost) {}

    // What stands in the fields.
    std::string old;
    std::string wanted;
    std::string confirmation;

    bool canConfirm() const { return wanted != old || !confirmation.empty(); }
    /// What the operator should know of the password as it is typed; mostly empty.
    std::string note() const;
    /// False when it was not changed, which has been told.
    bool confirm();

  private:
    UntoldOutcome check(std::string& knownHash);

    IMessages& m_messages;
    WrongTries m_tries;
    PasswordCost m_cost;
};

}  // namespace chengheng
