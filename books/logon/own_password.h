#pragma once

#include <optional>
#include <string>
#include <utility>

#include "books/logon/wrong_tries.h"
#include "session/record_change.h"
#include "session/rights/passwords.h"

namespace chengheng {

namespace own_password_field {
inline constexpr const char* old = "oldPassword";
inline constexpr const char* wanted = "sPassword";
inline constexpr const char* confirmation = "confirmation";
}  // namespace own_password_field

/// A new password, typed twice.
class PasswordForm {
  public:
    virtual ~PasswordForm() = default;
    PasswordForm(const PasswordForm&) = delete;
    PasswordForm& operator=(const PasswordForm&) = delete;

    // What stands in the fields.
    std::string old;
    std::string wanted;
    std::string confirmation;

    virtual bool asksForOld() const = 0;
    virtual bool canConfirm() const = 0;
    /// What the operator should know of the password as it is typed; mostly empty.
    std::string note() const;
    /// False when it cannot be, which has been told.
    virtual bool confirm() = 0;

  protected:
    explicit PasswordForm(IMessages& messages) : m_messages(messages) {}
    virtual std::string name() const = 0;
    std::optional<Notice> confirmationRefusal() const;

    IMessages& m_messages;
};

/// Whoever is logged on gives himself another password. The old one is asked for, and wrong tries
/// at it count like those at logging on: the operator may have left the desk.
class OwnPassword final : public PasswordForm {
  public:
    explicit OwnPassword(IMessages& messages, PasswordCost cost = PasswordCost::usual,
                         WrongTries::Clock clock = {})
        : PasswordForm(messages), m_tries(std::move(clock)), m_cost(cost) {}

    bool asksForOld() const override { return true; }
    bool canConfirm() const override { return wanted != old || !confirmation.empty(); }
    bool confirm() override;

  private:
    std::string name() const override;
    UntoldOutcome check(std::string& knownHash);

    WrongTries m_tries;
    PasswordCost m_cost;
};

/// Whoever logs on chooses the password that takes the place of the one given, as a supervisor
/// wants it. The log-on writes it.
class NewPassword final : public PasswordForm {
  public:
    NewPassword(IMessages& messages, std::string name, std::string given)
        : PasswordForm(messages), m_name(std::move(name)) {
        old = std::move(given);
    }

    bool asksForOld() const override { return false; }
    bool canConfirm() const override { return !wanted.empty() || !confirmation.empty(); }
    bool confirm() override;

  private:
    std::string name() const override { return m_name; }

    std::string m_name;
};

}  // namespace chengheng
