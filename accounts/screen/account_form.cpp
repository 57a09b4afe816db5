#include "accounts/screen/account_form.h"

#include <algorithm>
#include <vector>

#include "accounts/chart/account_sql.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "accounts/codes/mnemonic.h"
#include "accounts/codes/proposed_code.h"
#include "data/access/host_database.h"

namespace chengheng {
namespace {

/// The codes below an account in code order; with none given those of the top.
std::vector<std::string> codesBelow(std::string_view parent) {
    StoredChart chart(*g_pDB);
    const std::string condition =
        parent.empty() ? std::string(account_sql::topLevel) : account_sql::below(parent);
    std::vector<std::string> codes;
    for (const _CodeInfo& account : chart.accounts(condition)) codes.push_back(account.sCode);
    std::ranges::sort(codes);
    return codes;
}

std::vector<_zCodeClassInfo> knownClasses() {
    return AccountService::classes().value_or(std::vector<_zCodeClassInfo>());
}

bool isClass(std::string_view name) {
    const auto classes = knownClasses();
    return std::ranges::find(classes, name, &_zCodeClassInfo::sClsName) != classes.end();
}

}  // namespace

AccountForm::AccountForm(IMessages& messages, const CodeLevels& levels, const ChartScreen& screen)
    : m_service(messages, levels), m_levels(levels), m_screen(screen) {}

void AccountForm::beginNew(std::string_view parent, std::string_view className) {
    m_shown.reset();
    m_place = parent;
    m_opened = {};
    m_isClassGiven = isClass(className);
    m_opened.page = account_texts::ledgerPages.front();
    m_opened.code = proposedBelow(parent);
    if (m_opened.code.empty()) m_opened.code = proposedBeside(parent);
    m_opened.className = m_isClassGiven ? std::string(className) : classFor(m_opened.code);
    // An account without a class would stand on no tab but that of all accounts.
    const auto classes = knownClasses();
    if (m_opened.className.empty() && !classes.empty())
        m_opened.className = classes.front().sClsName;
}

Outcome AccountForm::beginCopy(std::string_view code) {
    _CodeInfo account;
    const Outcome outcome = AccountService::find(code, account);
    if (outcome != Outcome::done) return outcome;
    m_shown.reset();
    m_place = code;
    m_isClassGiven = true;
    beginSibling(copyOf(account), code);
    return outcome;
}

Outcome AccountForm::beginModification(std::string_view code) {
    _CodeInfo account;
    const Outcome outcome = AccountService::find(code, account);
    if (outcome != Outcome::done) return outcome;
    m_shown = account;
    m_place = code;
    m_opened = entryOf(account);
    return outcome;
}

void AccountForm::beginSibling(const AccountEntry& like, std::string_view code) {
    m_opened = like;
    m_opened.direction.reset();
    m_opened.code = proposedBeside(code);
}

std::string AccountForm::proposedBelow(std::string_view parent) const {
    return proposedChild(m_levels, codesBelow(parent), parent);
}

std::string AccountForm::proposedBeside(std::string_view code) const {
    return proposedSibling(m_levels, codesBelow(m_levels.parentOf(code)), code);
}

bool AccountForm::isChanged(const AccountEntry& typed) const {
    return tidied(typed) != tidied(m_opened);
}

AccountChange AccountForm::save(const AccountEntry& typed) {
    if (m_shown) {
        AccountChange change = m_service.modify(*m_shown, typed);
        if (change.outcome != Outcome::done) return change;
        m_shown = change.account;
        m_place = change.account.sCode;
        m_opened = entryOf(change.account);
        return change;
    }
    AccountChange change = m_service.add(typed);
    if (change.outcome != Outcome::done) return change;
    m_place = change.account.sCode;
    AccountEntry like = copyOf(change.account);
    like.name.clear();
    beginSibling(like, change.account.sCode);
    return change;
}

std::string AccountForm::neighbour(Step step) const {
    const int count = m_screen.count();
    if (count == 0) return {};
    const int place = m_screen.placeOf(m_place);
    const bool isOnAccount = m_screen.rowOfCode(m_place) >= 0;
    switch (step) {
        case Step::first:
            return m_screen.codeAt(0);
        case Step::previous:
            return m_screen.codeAt(place - 1);
        case Step::next:
            return m_screen.codeAt(isOnAccount ? place + 1 : place);
        case Step::last:
            return m_screen.codeAt(count - 1);
    }
    return {};
}

Outcome AccountForm::goTo(std::string_view code) {
    return isAdding() ? beginCopy(code) : beginModification(code);
}

std::string AccountForm::mnemonicFor(std::string_view name) {
    StoredChart chart(*g_pDB);
    std::string proposed = proposedMnemonic(
        name, [&chart](std::string_view taken) { return chart.isMnemonicTaken(taken, 0); });
    return chart.isRead() ? proposed : std::string();
}

std::string AccountForm::classFor(std::string_view code) const {
    if (m_isClassGiven) return {};
    const std::string parent = m_levels.parentOf(code);
    if (!parent.empty()) {
        _CodeInfo account;
        const bool isThere = AccountService::find(parent, account) == Outcome::done;
        return isThere ? account.sType : std::string();
    }
    const auto classes = knownClasses();
    const auto number = code.empty() ? 0 : code.front() - '0';
    if (m_levels.gradeOf(code) != 1 || number < 1 || number > static_cast<int>(classes.size())) {
        return {};
    }
    return classes[static_cast<std::size_t>(number - 1)].sClsName;
}

}  // namespace chengheng
