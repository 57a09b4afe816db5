#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/messages/checks.h"
#include "data/tables/operators.h"
#include "operators/operator_rights.h"

namespace chengheng {

inline constexpr int operatorNameWidth = 20;  ///< in characters
inline constexpr int passwordWidth = 60;

/// The fields that get the focus when an input is refused.
inline constexpr const char* operatorNameField = "sUserName";
inline constexpr const char* passwordField = "sPassword";
inline constexpr const char* confirmationField = "confirmation";

/// An operator with the rights that stand beside them.
struct OperatorRecord {
    _UsersInfo user;
    OperatorRights rights;
    /// Whether the next log-on asks for a new password first, as far as it was read.
    bool wantsNewPassword = false;

    bool isSupervisor() const { return user.bManager != 0; }
};

/// Operators and rights in the order in which they are read, made one by their places. Nothing
/// when there is not one string of rights for each operator, when two operators have one id, or
/// when there is no operator at all.
std::optional<std::vector<OperatorRecord>> pairedOperators(std::span<const _UsersInfo> users,
                                                           std::span<const _UserAuthInfo> rights);

/// What stands in the dialog for an operator.
struct OperatorInput {
    std::string name;
    std::string password;
    std::string confirmation;
    bool wantsNewPassword = false;  ///< at the next log-on, before anything else
};

/// The name without the blanks around it.
std::string_view operatorName(const OperatorInput& input);

/// Whether there is something to confirm: a name, and something other than the dialog opened with.
bool isOperatorInputChanged(const OperatorInput& input, const OperatorInput& opened);

/// What the checks of the dialog look at.
struct OperatorInputFacts {
    const OperatorInput& input;
    bool isAddition = true;
    /// Whether another operator has this name.
    std::function<bool(std::string_view name)> isNameTaken;
};

std::span<const Check<OperatorInputFacts>> operatorInputChecks();

/// What the checks of a deletion look at.
struct OperatorDeletionFacts {
    std::string_view name;
    bool isLoggedOn = false;
    bool hasPostedVouchers = false;  ///< made, checked or posted one
    bool isLastSupervisor = false;
};

std::span<const Check<OperatorDeletionFacts>> operatorDeletionChecks();

/// What the checks look at when a supervisor is to be one no longer.
struct SupervisorEndFacts {
    std::string_view name;
    bool isOwn = false;  ///< who is logged on here
    bool isLastSupervisor = false;
};

std::span<const Check<SupervisorEndFacts>> supervisorEndChecks();

/// What an operator may do, in words: "会计科目(全部);出纳(现金日记帐、资金日报)".
std::string rightsInWords(const OperatorRights& rights);

}  // namespace chengheng
