#include "accounts/rules/account_record.h"

namespace chengheng {
namespace {

std::int16_t directionOf(const AccountFacts& facts) {
    if (facts.entry.direction) return *facts.entry.direction;
    if (facts.parent) return facts.parent->bDirect;
    const int number = facts.categoryNumber();
    return number == 0 ? std::int16_t{1} : facts.classes[number - 1].bDirect;
}

/// Below a designated account everything is marked as that is, whenever it came there.
void markAsParent(const AccountFacts& facts, _CodeInfo& account) {
    account.bCash = facts.parent ? facts.parent->bCash : std::int16_t{0};
    account.bBank = facts.parent ? facts.parent->bBank : std::int16_t{0};
}

void fill(const AccountFacts& facts, _CodeInfo& account) {
    fillRecord(facts.entry, account);
    account.byGrade = static_cast<std::uint8_t>(facts.levels.gradeOf(account.sCode));
}

}  // namespace

_CodeInfo newAccount(const AccountFacts& facts) {
    _CodeInfo account;
    fill(facts, account);
    account.bEnd = 1;
    account.bDirect = directionOf(facts);
    markAsParent(facts, account);
    return account;
}

_CodeInfo modifiedAccount(const AccountFacts& facts) {
    _CodeInfo account = *facts.before;
    fill(facts, account);
    // An account that stays at the top is itself what was designated.
    const bool staysAtTop = !facts.parent && facts.levels.parentOf(facts.before->sCode).empty();
    if (facts.isCodeChanged() && !staysAtTop) markAsParent(facts, account);
    return account;
}

}  // namespace chengheng
