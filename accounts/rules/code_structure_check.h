#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "accounts/codes/code_levels.h"
#include "base/messages/messages.h"

namespace chengheng {

/// The field that gets the focus when a code is refused.
inline constexpr const char* codeField = "sCode";

/// What the checks of a code look at. The lookups ask the chart; a check asks only what it
/// needs, so that a code refused for its text costs no reading.
struct CodeFacts {
    std::string code;  ///< as typed, but without blanks at its end
    CodeLevels levels;
    /// Whether an account other than the one being saved has this code.
    std::function<bool(std::string_view)> isTaken;
    /// Whether an account has this code.
    std::function<bool(std::string_view)> hasAccount;
};

/// One check: whether it refuses, and what is then said.
struct CodeCheck {
    const char* name;
    bool (*refuses)(const CodeFacts& facts);
    const char* message;
};

/// The checks of a new account's code, in their order.
extern const std::array<CodeCheck, 5> codeChecks;

/// What the first of the checks that refuses the code says; nothing when it may stand. Every
/// refusal beeps, shows the information picture and brings the focus back to the code.
std::optional<Notice> codeRefusal(const CodeFacts& facts);

/// The same for the code's text alone: that there is one, without a blank in it.
std::optional<Notice> codeTextRefusal(const CodeFacts& facts);

/// The same for the code's place in the tree alone: its level, and the account above it.
std::optional<Notice> codePlaceRefusal(const CodeFacts& facts);

}  // namespace chengheng
