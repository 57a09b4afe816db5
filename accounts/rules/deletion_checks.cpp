#include "accounts/rules/deletion_checks.h"

#include <array>

#include "accounts/chart/account_texts.h"

namespace chengheng {
namespace {

std::optional<Refusal> warningIf(bool isRefused, const char* text) {
    if (!isRefused) return std::nullopt;
    return Refusal{RefusalKind::wrongInput, {.text = text, .icon = MessageIcon::warning}};
}

std::optional<Refusal> endAccount(const DeletionFacts& facts) {
    return warningIf(facts.account.bEnd == 0, account_texts::notAnEndAccount);
}

std::optional<Refusal> noBankAccount(const DeletionFacts& facts) {
    return warningIf(facts.account.bBank != 0, account_texts::isBankAccount);
}

std::optional<Refusal> noCashAccount(const DeletionFacts& facts) {
    return warningIf(facts.account.bCash != 0, account_texts::isCashAccount);
}

std::optional<Refusal> notUsed(const DeletionFacts& facts) {
    for (const UsePlace place : usePlaces) {
        if (!facts.chart.isUsed(place, facts.idsWithBelow, SumsUse::anyRow)) continue;
        return Refusal{RefusalKind::wrongInput,
                       {.text = account_texts::usedWithBelow(place)},
                       facts.account.sCode};
    }
    return std::nullopt;
}

constexpr std::array deletions{
    Check<DeletionFacts>{"end account", endAccount},
    Check<DeletionFacts>{"no bank account", noBankAccount},
    Check<DeletionFacts>{"no cash account", noCashAccount},
    Check<DeletionFacts>{"not used", notUsed},
};

}  // namespace

std::span<const Check<DeletionFacts>> deletionChecks() { return deletions; }

}  // namespace chengheng
