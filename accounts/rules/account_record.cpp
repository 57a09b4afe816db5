#include "accounts/rules/account_record.h"

namespace chengheng {
namespace {

std::int16_t directionOf(const AccountFacts& facts) {
    if (facts.entry.direction) return *facts.entry.direction;
    if (facts.parent) return facts.parent->bDirect;
    const int number = facts.categoryNumber();
    return number == 0 ? std::int16_t{1} : facts.classes[number - 1].bDirect;
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
    return account;
}

_CodeInfo modifiedAccount(const AccountFacts& facts) {
    _CodeInfo account = *facts.before;
    fill(facts, account);
    return account;
}

}  // namespace chengheng
