#include "accounts/rules/account_checks.h"

#include <algorithm>
#include <array>

#include "accounts/chart/account_texts.h"
#include "accounts/rules/code_structure_check.h"
#include "accounts/rules/entry_refusal.h"

namespace chengheng {
namespace {

using account_texts::Accounting;

bool isCodeTaken(const AccountFacts& facts) {
    const auto found = facts.chart.accountOf(facts.entry.code);
    return found && !facts.isOwn(*found);
}

CodeFacts codeFacts(const AccountFacts& facts) {
    // The account itself is no parent of its own new code.
    const bool hasParent = facts.parent && !facts.isOwn(*facts.parent);
    return {facts.entry.code, facts.levels, [&facts] { return isCodeTaken(facts); }, hasParent};
}

std::optional<Refusal> wholeCode(const AccountFacts& facts) {
    return firstRefusal(codeChecks(), codeFacts(facts));
}

std::optional<Refusal> codeText(const AccountFacts& facts) {
    return firstRefusal(codeTextChecks(), codeFacts(facts));
}

std::optional<Refusal> codePlace(const AccountFacts& facts) {
    return firstRefusal(codePlaceChecks(), codeFacts(facts));
}

std::optional<Refusal> uniqueCode(const AccountFacts& facts) {
    return entryRefusalIf(isCodeTaken(facts), account_texts::codeNotUnique, account_field::code);
}

std::optional<Refusal> noChildren(const AccountFacts& facts) {
    const std::string& code = facts.before->sCode;
    if (!facts.isCodeChanged() || !facts.chart.hasChildren(code)) return std::nullopt;
    return entryRefusal(account_texts::hasChildren(code), account_field::code);
}

std::optional<Refusal> notUsed(const AccountFacts& facts) {
    if (!facts.isCodeChanged()) return std::nullopt;
    const std::string& code = facts.before->sCode;
    for (const UsePlace place : usePlaces)
        if (facts.chart.isUsed(place, {facts.before->lId}, SumsUse::anyRow))
            return entryRefusal(account_texts::used(code, place), account_field::code, code);
    return std::nullopt;
}

std::optional<Refusal> name(const AccountFacts& facts) {
    return entryRefusalIf(facts.entry.name.empty(), account_texts::nameMissing,
                          account_field::name);
}

std::optional<Refusal> mnemonic(const AccountFacts& facts) {
    const std::string& entered = facts.entry.mnemonic;
    const bool isTaken =
        !entered.empty() && facts.chart.isMnemonicTaken(entered, facts.accountId());
    return entryRefusalIf(isTaken, account_texts::mnemonicTaken, account_field::mnemonic);
}

std::optional<Refusal> chosenCurrency(const AccountFacts& facts) {
    return entryRefusalIf(facts.entry.keepsForeign && facts.entry.currencyId == 0,
                          account_texts::currencyMissing, account_field::currency);
}

std::optional<Refusal> existingCurrency(const AccountFacts& facts) {
    const AccountEntry& entry = facts.entry;
    const bool isGone =
        entry.keepsForeign && entry.currencyId != 0 && !facts.chart.hasCurrency(entry.currencyId);
    return entryRefusalIf(isGone, account_texts::currencyGone, account_field::currency);
}

std::optional<Refusal> unit(const AccountFacts& facts) {
    return entryRefusalIf(facts.entry.keepsQuantity && facts.entry.unit.empty(),
                          account_texts::unitMissing, account_field::unit);
}

bool isMerelyTotals(const AccountFacts& facts, UsePlace place) {
    return place == UsePlace::sums && facts.parentSums == ParentSums::mayBeTotals && facts.parent &&
           facts.chart.hasOnlyTotals(*facts.parent);
}

std::optional<Refusal> unusedParent(const AccountFacts& facts, std::span<const UsePlace> places) {
    if (!facts.parent || !facts.isCodeChanged()) return std::nullopt;
    const std::string& code = facts.parent->sCode;
    for (const UsePlace place : places)
        if (facts.chart.isUsed(place, {facts.parent->lId}, SumsUse::openingMoney) &&
            !isMerelyTotals(facts, place))
            return entryRefusal(account_texts::parentUsed(code, place), account_field::code, code);
    return std::nullopt;
}

std::optional<Refusal> parentOfAdded(const AccountFacts& facts) {
    return unusedParent(facts, placesOfParent);
}

std::optional<Refusal> parentOfModified(const AccountFacts& facts) {
    return unusedParent(facts, usePlaces);
}

constexpr std::array additions{
    Check<AccountFacts>{"code", wholeCode},
    Check<AccountFacts>{"name", name},
    Check<AccountFacts>{"mnemonic", mnemonic},
    Check<AccountFacts>{"currency is chosen", chosenCurrency},
    Check<AccountFacts>{"currency is there", existingCurrency},
    Check<AccountFacts>{"unit", unit},
    Check<AccountFacts>{"parent is not used", parentOfAdded},
};

constexpr std::array modifications{
    Check<AccountFacts>{"code is there, without a blank", codeText},
    Check<AccountFacts>{"code is unique", uniqueCode},
    Check<AccountFacts>{"changed code has no children", noChildren},
    Check<AccountFacts>{"changed code is not used", notUsed},
    Check<AccountFacts>{"code has its place", codePlace},
    Check<AccountFacts>{"name", name},
    Check<AccountFacts>{"mnemonic", mnemonic},
    Check<AccountFacts>{"currency is there", existingCurrency},
    Check<AccountFacts>{"currency is chosen", chosenCurrency},
    Check<AccountFacts>{"unit", unit},
    Check<AccountFacts>{"new parent is not used", parentOfModified},
};

/// The kinds of accounting that an entry changes, in the order in which they are asked about.
std::vector<Accounting> changedKinds(const AccountEntry& before, const AccountEntry& entry) {
    const auto currencyOf = [](const AccountEntry& side) {
        return side.keepsForeign ? side.currencyId : 0;
    };
    const auto dimensionsOf = [](const AccountEntry& side) {
        const AuxiliaryBooks& books = side.books;
        return std::array{books.byPerson, books.byUnit, books.byDepartment, books.byProject};
    };
    const auto unitOf = [](const AccountEntry& side) {
        return side.keepsQuantity ? std::optional(side.unit) : std::nullopt;
    };
    std::vector<Accounting> kinds;
    if (currencyOf(before) != currencyOf(entry)) kinds.push_back(Accounting::foreign);
    if (dimensionsOf(before) != dimensionsOf(entry)) kinds.push_back(Accounting::auxiliary);
    if (unitOf(before) != unitOf(entry)) kinds.push_back(Accounting::quantity);
    return kinds;
}

constexpr const char* fieldOf(Accounting kind) {
    switch (kind) {
        case Accounting::foreign:
            return account_field::currency;
        case Accounting::auxiliary:
            return account_field::auxiliary;
        case Accounting::quantity:
            break;
    }
    return account_field::quantity;
}

}  // namespace

AccountFacts::AccountFacts(AccountEntry tidiedEntry, const _CodeInfo* accountBefore,
                           const CodeLevels& codeLevels,
                           const std::vector<_zCodeClassInfo>& allClasses, IChartFacts& chartFacts)
    : entry(std::move(tidiedEntry)),
      before(accountBefore),
      levels(codeLevels),
      classes(allClasses),
      chart(chartFacts) {
    const std::string code = parentCode();
    if (!code.empty()) parent = chart.accountOf(code);
}

int AccountFacts::categoryNumber() const {
    const auto found = std::ranges::find(classes, entry.className, &_zCodeClassInfo::sClsName);
    return found == classes.end() ? 0 : static_cast<int>(found - classes.begin()) + 1;
}

std::span<const Check<AccountFacts>> additionChecks() { return additions; }
std::span<const Check<AccountFacts>> modificationChecks() { return modifications; }

bool passesWithTotals(const AccountFacts& facts) {
    AccountFacts accepting = facts;
    accepting.parentSums = ParentSums::mayBeTotals;
    return !firstRefusal(additionChecks(), accepting);
}

std::vector<AccountQuestion> additionQuestions(const AccountFacts& facts) {
    if (!departsFromCategory(facts.levels, facts.entry.code, facts.categoryNumber())) return {};
    const Question question{.text = account_texts::codeDepartsFromCategory,
                            .buttons = AnswerButtons::okCancel,
                            .preset = Answer::ok};
    return {{question, account_field::code}};
}

std::vector<AccountQuestion> modificationQuestions(const AccountFacts& facts) {
    const auto kinds = changedKinds(entryOf(*facts.before), facts.entry);
    if (kinds.empty()) return {};
    std::vector<AccountQuestion> questions;
    for (const UsePlace place : usePlaces) {
        if (!facts.chart.isUsed(place, {facts.before->lId}, SumsUse::anyRow)) continue;
        for (const Accounting kind : kinds)
            questions.push_back(
                {{.text = account_texts::changeOfUsed(facts.before->sCode, place, kind),
                  .buttons = AnswerButtons::okCancel,
                  .icon = MessageIcon::stop},
                 fieldOf(kind)});
    }
    return questions;
}

}  // namespace chengheng
