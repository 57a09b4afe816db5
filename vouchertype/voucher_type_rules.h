#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/messages/checks.h"
#include "data/tables/settlement.h"
#include "vouchertype/restriction_kind.h"

namespace chengheng {

inline constexpr int voucherTypeNumberWidth = 2;  ///< in characters
inline constexpr int voucherTypeNameWidth = 16;
inline constexpr int restrictionAccountWidth = 16;

/// The fields that get the focus when an input is refused.
inline constexpr const char* voucherTypeNumberField = "sSign";
inline constexpr const char* voucherTypeNameField = "sSignName";
inline constexpr const char* voucherTypeRestrictedField = "byLimit";
inline constexpr const char* debitRequiredField = "debitRequired";
inline constexpr const char* creditRequiredField = "creditRequired";
inline constexpr const char* bothForbiddenField = "bothForbidden";
inline constexpr const char* accountOneField = "sCode1";
inline constexpr const char* accountTwoField = "sCode2";

/// A kind of restriction that is none of those known is one, too: it must be chosen anew before the
/// type is saved.
inline bool isRestricted(const _SignInfo& type) {
    return type.byLimit != stored(RestrictionKind::none);
}

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
