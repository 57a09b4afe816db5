#pragma once

#include <functional>
#include <span>
#include <string>

#include "accounts/codes/code_levels.h"
#include "base/messages/checks.h"

namespace chengheng {

/// What the checks of a code look at. The chart is asked only by the check that needs it.
struct CodeFacts {
    std::string code;  ///< as typed, but without blanks at its end
    CodeLevels levels;
    /// Whether an account other than the one being saved has the code.
    std::function<bool()> isTaken;
    bool hasParent;  ///< whether the account above is in the chart
};

/// The checks of a new account's code, in their order. Every refusal beeps, shows the
/// information picture and brings the focus back to the code.
std::span<const Check<CodeFacts>> codeChecks();

/// Those of the code's text alone: that there is one, without a blank in it.
std::span<const Check<CodeFacts>> codeTextChecks();

/// Those of the code's place in the tree alone: its level, and the account above it.
std::span<const Check<CodeFacts>> codePlaceChecks();

}  // namespace chengheng
