#pragma once

#include <string>
#include <utility>

#include "base/messages/messages.h"

namespace chengheng {

enum class RefusalKind {
    wrongInput,      ///< what a person gave or wanted cannot be
    alreadyThere,    ///< what was to be made exists
    outdated,        ///< books of an older layout are to be upgraded first
    failed,          ///< a file, a server or the machine failed
    unconfirmed,     ///< whether it was done is not known
    serverPassword,  ///< a server wants a password, or another one
    newPassword,     ///< the operator is to choose a new password first
};

/// Why something was not done.
struct Refusal {
    RefusalKind kind = RefusalKind::failed;
    Notice notice = {};
    /// What stands in the way where more can be shown of it: the code of an account in use.
    std::string obstacle = {};
};

/// Wrong input: a beep, the warning picture and the focus on the field.
inline Refusal inputRefusal(std::string text, const char* field) {
    return {
        RefusalKind::wrongInput,
        {.text = std::move(text), .icon = MessageIcon::warning, .beep = true, .focusField = field}};
}

inline Refusal existsRefusal(std::string text, const char* field) {
    Refusal refusal = inputRefusal(std::move(text), field);
    refusal.kind = RefusalKind::alreadyThere;
    return refusal;
}

inline Refusal failureRefusal(std::string text, const char* field = "") {
    return {
        RefusalKind::failed,
        {.text = std::move(text), .icon = MessageIcon::stop, .beep = true, .focusField = field}};
}

}  // namespace chengheng
