#include "accounts/screen/account_form.h"

#include <algorithm>
#include <vector>

#include "accounts/chart/account_sql.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "accounts/codes/mnemonic.h"
#include "accounts/codes/proposed_code.h"
#include "data/access/host_database.h"
#include "session/last_failure.h"

namespace chengheng {
namespace {

using Codes = std::vector<std::string>;

/// The codes below an account in code order; with none given those of the top. Nothing when
/// they cannot be read.
std::optional<Codes> codesBelow(std::string_view parent) {
    StoredChart chart(*g_pDB);
    const std::string condition =
        parent.empty() ? std::string(account_sql::topLevel) : account_sql::below(parent);
    Codes codes;
    for (const _CodeInfo& account : chart.accounts(condition)) codes.push_back(account.sCode);
    std::ranges::sort(codes);
    return chart.isRead() ? std::optional(std::move(codes)) : std::nullopt;
}

/// The entry of an account beside another one, with that one's settings.
AccountEntry siblingOf(const _CodeInfo& account, std::string code) {
    AccountEntry entry = copyOf(account);
    entry.direction.reset();
    entry.code = std::move(code);
    return entry;
}

bool isClass(const std::vector<_zCodeClassInfo>& classes, std::string_view name) {
    return std::ranges::find(classes, name, &_zCodeClassInfo::sClsName) != classes.end();
}

}  // namespace

AccountForm::AccountForm(IMessages& messages, const CodeLevels& levels, const ChartScreen& screen)
    : m_messages(messages), m_service(messages, levels), m_levels(levels), m_screen(screen) {}

Outcome AccountForm::beginNew(std::string_view parent, std::string_view className) {
    const auto classes = AccountService::classes();
    if (!classes) return Outcome::failed;
    auto code = proposedBelow(parent);
    if (code && code->empty()) code = proposedBeside(parent);
    if (!code) return Outcome::failed;
    const bool isClassGiven = isClass(*classes, className);
    auto proposedClass = isClassGiven ? std::string(className) : classOf(*code);
    if (!proposedClass) return Outcome::failed;
    // An account without a class would stand on no tab but that of all accounts.
    if (proposedClass->empty() && !classes->empty()) proposedClass = classes->front().sClsName;
    m_shown.reset();
    m_place = parent;
    m_isClassGiven = isClassGiven;
    m_opened = {.code = *std::move(code),
                .className = *std::move(proposedClass),
                .page = account_texts::ledgerPages.front()};
    return Outcome::done;
}

Outcome AccountForm::beginCopy(std::string_view code) {
    _CodeInfo account;
    const Outcome outcome = AccountService::find(code, account);
    if (outcome != Outcome::done) return outcome;
    const auto proposed = proposedBeside(code);
    if (!proposed) return Outcome::failed;
    m_shown.reset();
    m_place = code;
    m_isClassGiven = true;
    m_opened = siblingOf(account, *proposed);
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

std::optional<std::string> AccountForm::proposedBelow(std::string_view parent) const {
    const auto codes = codesBelow(parent);
    if (!codes) return std::nullopt;
    return proposedChild(m_levels, *codes, parent);
}

std::optional<std::string> AccountForm::proposedBeside(std::string_view code) const {
    const auto codes = codesBelow(m_levels.parentOf(code));
    if (!codes) return std::nullopt;
    return proposedSibling(m_levels, *codes, code);
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
    const auto proposed = proposedBeside(change.account.sCode);
    if (!proposed) m_messages.tell(lastFailureNotice());
    m_opened = siblingOf(change.account, proposed.value_or(""));
    m_opened.name.clear();
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

std::optional<std::string> AccountForm::mnemonicFor(std::string_view name) {
    StoredChart chart(*g_pDB);
    std::string proposed = proposedMnemonic(
        name, [&chart](std::string_view taken) { return chart.isMnemonicTaken(taken, 0); });
    return chart.isRead() ? std::optional(std::move(proposed)) : std::nullopt;
}

std::optional<std::string> AccountForm::classFor(std::string_view code) const {
    return m_isClassGiven ? std::string() : classOf(code);
}

std::optional<std::string> AccountForm::classOf(std::string_view code) const {
    const std::string parent = m_levels.parentOf(code);
    if (!parent.empty()) {
        _CodeInfo account;
        const Outcome outcome = AccountService::find(parent, account);
        return outcome == Outcome::failed ? std::nullopt : std::optional(account.sType);
    }
    const auto classes = AccountService::classes();
    if (!classes) return std::nullopt;
    const auto number = code.empty() ? 0 : code.front() - '0';
    if (m_levels.gradeOf(code) != 1 || number < 1 || number > static_cast<int>(classes->size())) {
        return std::string();
    }
    return (*classes)[static_cast<std::size_t>(number - 1)].sClsName;
}

}  // namespace chengheng
