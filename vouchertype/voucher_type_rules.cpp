#include "vouchertype/voucher_type_rules.h"

#include <fmt/format.h>

#include <array>

#include "base/values/text.h"
#include "vouchertype/voucher_type_texts.h"

namespace chengheng {
namespace {

namespace texts = voucher_type_texts;

Refusal refusalAt(const char* text, const char* field) {
    return {RefusalKind::wrongInput, {.text = text, .focusField = field}};
}

std::optional<Refusal> renumberedWhileUsed(const VoucherTypeFacts& facts) {
    const bool isRenumbered = facts.loaded.lId != 0 && facts.wanted.sSign != facts.loaded.sSign;
    if (!isRenumbered || !facts.isLoadedUsed()) return std::nullopt;
    return refusalAt(texts::used, voucherTypeNumberField);
}

std::optional<Refusal> numberTaken(const VoucherTypeFacts& facts) {
    if (!facts.isNumberTaken()) return std::nullopt;
    return refusalAt(texts::numberTaken, voucherTypeNumberField);
}

std::optional<Refusal> noAccount(const VoucherTypeFacts& facts) {
    const _SignInfo& type = facts.wanted;
    if (!isRestricted(type) || !type.sCode1.empty() || !type.sCode2.empty()) return std::nullopt;
    return refusalAt(texts::noAccount, accountOneField);
}

std::optional<Refusal> wrongAccountOne(const VoucherTypeFacts& facts) {
    if (!isRestricted(facts.wanted) || facts.isFirstLevelAccount(facts.wanted.sCode1))
        return std::nullopt;
    return refusalAt(texts::wrongAccount, accountOneField);
}

/// An empty one is no account either.
std::optional<Refusal> wrongAccountTwo(const VoucherTypeFacts& facts) {
    if (!isRestricted(facts.wanted) || facts.isFirstLevelAccount(facts.wanted.sCode2))
        return std::nullopt;
    return refusalAt(texts::wrongAccount, accountTwoField);
}

std::optional<Refusal> equalAccounts(const VoucherTypeFacts& facts) {
    if (!isRestricted(facts.wanted) || facts.wanted.sCode1 != facts.wanted.sCode2)
        return std::nullopt;
    return refusalAt(texts::equalAccounts, accountTwoField);
}

std::optional<Refusal> noRestriction(const VoucherTypeFacts& facts) {
    if (isRestrictionKind(facts.wanted.byLimit)) return std::nullopt;
    return refusalAt(texts::noRestriction, debitRequiredField);
}

constexpr std::array checks{
    Check<VoucherTypeFacts>{"one in use keeps its number", renumberedWhileUsed},
    Check<VoucherTypeFacts>{"no other type has its number", numberTaken},
    Check<VoucherTypeFacts>{"a restriction names an account", noAccount},
    Check<VoucherTypeFacts>{"account one is a first-level account", wrongAccountOne},
    Check<VoucherTypeFacts>{"account two is a first-level account", wrongAccountTwo},
    Check<VoucherTypeFacts>{"the accounts differ", equalAccounts},
    Check<VoucherTypeFacts>{"the kind of restriction is chosen", noRestriction},
};

}  // namespace

void setRestricted(_SignInfo& type, bool isRestricted) {
    type.byLimit = stored(isRestricted ? RestrictionKind::debitRequired : RestrictionKind::none);
    if (isRestricted) return;
    type.sCode1.clear();
    type.sCode2.clear();
}

_SignInfo tidied(_SignInfo type) {
    for (std::string* text : {&type.sSign, &type.sSignName, &type.sCode1, &type.sCode2})
        *text = std::string(withoutBlanksAround(*text));
    return type;
}

std::string voucherTypeLeafText(const _SignInfo& type) { return type.sSign + ' ' + type.sSignName; }

std::string voucherTypeInWords(const _SignInfo& type) {
    if (!isRestricted(type)) return voucherTypeLeafText(type);
    const bool hasBoth = !type.sCode1.empty() && !type.sCode2.empty();
    const char* kind = restrictionKindText(type.byLimit);
    return fmt::format(texts::restrictedType, voucherTypeLeafText(type),
                       kind == nullptr ? texts::unknownRestriction : kind,
                       type.sCode1 + (hasBoth ? texts::accountSeparator : "") + type.sCode2);
}

std::span<const Check<VoucherTypeFacts>> voucherTypeChecks() { return checks; }

}  // namespace chengheng
