#include "accounts/rules/deletion_checks.h"

#include <array>

#include "accounts/chart/account_texts.h"

namespace chengheng {
namespace {

using Refusal = std::optional<AccountRefusal>;

Refusal warningIf(bool isRefused, const char* text) {
    if (!isRefused) return std::nullopt;
    return AccountRefusal{{.text = text, .icon = MessageIcon::warning}};
}

Refusal endAccount(const DeletionFacts& facts) {
    return warningIf(facts.account.bEnd == 0, account_texts::notAnEndAccount);
}

Refusal noBankAccount(const DeletionFacts& facts) {
    return warningIf(facts.account.bBank != 0, account_texts::isBankAccount);
}

Refusal noCashAccount(const DeletionFacts& facts) {
    return warningIf(facts.account.bCash != 0, account_texts::isCashAccount);
}

Refusal notUsed(const DeletionFacts& facts) {
    for (const UsePlace place : usePlaces) {
        if (!facts.chart.isUsed(place, facts.idsWithBelow, SumsUse::anyRow)) continue;
        AccountRefusal refusal;
        refusal.notice.text = account_texts::usedWithBelow(place);
        refusal.usedCode = facts.account.sCode;
        return refusal;
    }
    return std::nullopt;
}

constexpr std::array checks{
    DeletionCheck{"end account", endAccount},
    DeletionCheck{"no bank account", noBankAccount},
    DeletionCheck{"no cash account", noCashAccount},
    DeletionCheck{"not used", notUsed},
};

}  // namespace

std::span<const DeletionCheck> deletionChecks() { return checks; }

std::optional<AccountRefusal> deletionRefusal(const DeletionFacts& facts) {
    for (const DeletionCheck& check : checks)
        if (Refusal refusal = check.refusal(facts)) return refusal;
    return std::nullopt;
}

}  // namespace chengheng
