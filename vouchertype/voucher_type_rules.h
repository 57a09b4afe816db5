#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/messages/checks.h"
#include "data/tables/settlement.h"

namespace chengheng {

inline constexpr int voucherTypeNumberWidth = 2;  ///< in characters
inline constexpr int voucherTypeNameWidth = 16;
inline constexpr int restrictionAccountWidth = 16;

/// The fields that get the focus when an input is refused.
inline constexpr const char* voucherTypeNumberField = "sSign";
inline constexpr const char* voucherTypeNameField = "sSignName";
inline constexpr const char* voucherTypeRestrictedField = "byLimit";
inline constexpr const char* firstRestrictionField = "debitRequired";
inline constexpr const char* accountOneField = "sCode1";
inline constexpr const char* accountTwoField = "sCode2";

// The kinds of restriction as `byLimit` holds them. One above these is of no kind known here: the
// type is restricted, and a kind must be chosen before it is saved again.
inline constexpr std::uint8_t unrestricted = 0;
inline constexpr std::uint8_t debitRequired = 1;   ///< the debit side has one of the accounts
inline constexpr std::uint8_t creditRequired = 2;  ///< the credit side has one of them
inline constexpr std::uint8_t bothForbidden = 3;   ///< neither side has one of them

inline bool isRestricted(const _SignInfo& type) { return type.byLimit != unrestricted; }
inline bool isKnownRestriction(std::uint8_t kind) {
    return kind >= debitRequired && kind <= bothForbidden;
}
/// 借方必有 and so on; null for a kind that is none of them.
const char* restrictionText(std::uint8_t kind);

/// What checking and unchecking 限制 makes of a type: the first kind, or no kind and no accounts.
void setRestricted(_SignInfo& type, bool isRestricted);

/// A type as it is stored: blanks around its texts are no part of them.
_SignInfo tidied(_SignInfo type);

/// "收 收款凭证"
std::string voucherTypeLeafText(const _SignInfo& type);
/// The same with what restricts it: "收 收款凭证(借方必有 1001、1002)"
std::string voucherTypeInWords(const _SignInfo& type);

/// What the checks of a type to be saved look at. What is asked is asked only when it matters.
struct VoucherTypeFacts {
    const _SignInfo& wanted;  ///< tidied
    const _SignInfo& loaded;  ///< the one that it replaces; its id is 0 when there is none
    std::function<bool()> isLoadedUsed;
    /// Whether a stored type has the number, when a type is modified one other than the loaded.
    std::function<bool()> isNumberTaken;
    std::function<bool(std::string_view code)> isFirstLevelAccount;
};

std::span<const Check<VoucherTypeFacts>> voucherTypeChecks();

}  // namespace chengheng
