#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/messages/checks.h"
#include "data/tables/settlement.h"
#include "forms/leaf_list.h"

namespace chengheng {

inline constexpr int settleNumberWidth = 2;  ///< in characters
inline constexpr int settleNameWidth = 24;

/// The fields that get the focus when an input is refused.
inline constexpr const char* settleNumberField = "sStlId";
inline constexpr const char* settleNameField = "sSettle";

/// What stands in the form of a settlement method.
struct SettleInput {
    std::string number;
    std::string name;
    bool usesChequeRegister = false;

    bool operator==(const SettleInput&) const = default;
};

SettleInput settleInput(const _SettleInfo& method);

/// The method that the input makes of another one. Blanks around number and name are no part
/// of them: a leaf is told apart into both at its first blank.
_SettleInfo settleRecord(const SettleInput& input, const _SettleInfo& base);

/// "1 现金"
std::string settleLeafText(const _SettleInfo& method);
/// Number and name out of a leaf's text, cut at the first blank.
struct SettleLeafParts {
    std::string_view number;
    std::string_view name;
};
SettleLeafParts settleLeafParts(std::string_view leafText);

/// What the checks for a second method of the same number or name look at.
struct SettleClashFacts {
    const _SettleInfo& wanted;     ///< its id is 0 when it is to be added
    std::span<const Leaf> leaves;  ///< in the order of the list
    /// Whether a stored method other than the wanted one has this number or name.
    std::function<bool(std::string_view)> hasStoredNumber;
    std::function<bool(std::string_view)> hasStoredName;
};

/// A refusal of a method's number or name: a beep, and the focus on the field.
Refusal settleNumberRefusal(const char* text);
Refusal settleNameRefusal(const char* text);

/// Whether the wanted method may stand beside the others.
std::span<const Check<SettleClashFacts>> settleClashChecks();

}  // namespace chengheng
