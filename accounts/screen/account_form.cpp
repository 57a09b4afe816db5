#include "accounts/screen/account_form.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "accounts/chart/account_sql.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "accounts/codes/mnemonic.h"
#include "accounts/codes/proposed_code.h"
#include "accounts/screen/chart_texts.h"
#include "data/access/host_database.h"
#include "session/last_failure.h"

namespace chengheng {
namespace {

/// The codes below an account in code order; with none given those of the top.
Status codesBelow(std::string_view parent, std::vector<std::string>& codes) {
    StoredChart chart(*g_pDB);
    const std::string condition =
        parent.empty() ? std::string(account_sql::topLevel) : account_sql::below(parent);
    for (const _CodeInfo& account : chart.accounts(condition)) codes.push_back(account.sCode);
    std::ranges::sort(codes);
    return chart.status();
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

Status AccountForm::beginNew(std::string_view parent, std::string_view className) {
    AccountEntry entry{.className = std::string(className)};
    std::optional<_CodeInfo> above;
    std::vector<_zCodeClassInfo> classes;
    Status status = AccountService::readClasses(classes);
    if (status) status = proposeBelow(parent, entry.code);
    if (status && entry.code.empty()) status = proposeBeside(parent, entry.code);
    if (status) status = readAbove(entry.code, above);
    if (!status) return status;
    takeAccounting(above, entry);
    const bool isClassGiven = isClass(classes, className);
    if (!isClassGiven) entry.className = classFor(entry.code, above, classes);
    // An account without a class would stand on no tab but that of all accounts.
    if (entry.className.empty() && !classes.empty()) entry.className = classes.front().sClsName;
    m_shown.reset();
    m_place = parent;
    m_isClassGiven = isClassGiven;
    m_isCopy = false;
    m_opened = std::move(entry);
    return status;
}

Status AccountForm::beginCopy(std::string_view code) {
    _CodeInfo account;
    std::string proposed;
    Status status = AccountService::find(code, account);
    if (status) status = proposeBeside(code, proposed);
    if (!status) return status;
    m_shown.reset();
    m_place = code;
    m_isClassGiven = true;
    m_isCopy = true;
    m_opened = siblingOf(account, std::move(proposed));
    return status;
}

Status AccountForm::beginModification(std::string_view code) {
    _CodeInfo account;
    Status status = AccountService::find(code, account);
    if (!status) return status;
    m_place = code;
    m_opened = entryOf(account);
    m_shown = std::move(account);
    return Status::done();
}

Status AccountForm::proposeBelow(std::string_view parent, std::string& code) const {
    std::vector<std::string> codes;
    Status status = codesBelow(parent, codes);
    if (status) code = proposedChild(m_levels, codes, parent);
    return status;
}

Status AccountForm::proposeBeside(std::string_view place, std::string& code) const {
    std::vector<std::string> codes;
    Status status = codesBelow(m_levels.parentOf(place), codes);
    if (status) code = proposedSibling(m_levels, codes, place);
    return status;
}

bool AccountForm::isChanged(const AccountEntry& typed) const {
    return tidied(typed) != tidied(m_opened);
}

AccountChange AccountForm::save(const AccountEntry& typed, ParentSums parentSums) {
    if (m_shown) {
        AccountChange change = m_service.modify(*m_shown, typed);
        if (change.changedThere) goOnOver(*change.changedThere, typed);
        if (change.outcome != Outcome::done) return change;
        m_shown = change.account;
        m_place = change.account.sCode;
        m_opened = entryOf(change.account);
        return change;
    }
    AccountChange change = m_service.add(typed, parentSums);
    if (change.outcome != Outcome::done) return change;
    m_place = change.account.sCode;
    if (!beginNext(change.account.sType)) tellLastFailure(m_messages);
    return change;
}

void AccountForm::goOnOver(const _CodeInfo& stored, const AccountEntry& typed) {
    m_kept = typedOver(m_opened, typed, entryOf(stored));
    m_shown = stored;
    m_place = stored.sCode;
    m_opened = entryOf(stored);
}

Status AccountForm::beginNext(const std::string& className) {
    std::optional<_CodeInfo> above;
    m_isCopy = false;
    m_opened = {.className = className};
    Status status = proposeBeside(m_place, m_opened.code);
    if (status) status = readAbove(m_opened.code, above);
    takeAccounting(above, m_opened);
    return status;
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

Status AccountForm::goTo(std::string_view code) {
    return isAdding() ? beginCopy(code) : beginModification(code);
}

Status AccountForm::proposeMnemonic(std::string_view name, std::string& mnemonic) {
    StoredChart chart(*g_pDB);
    std::string proposed = proposedMnemonic(
        name, [&chart](std::string_view taken) { return chart.isMnemonicTaken(taken, 0); });
    if (chart.isRead()) mnemonic = std::move(proposed);
    return chart.status();
}

Status AccountForm::explainClass(std::string_view className, std::string& text) const {
    text.clear();
    if (!m_shown || m_shown->sType == className) return Status::done();
    bool isUsed = false;
    const Status status = AccountService::readUse(*m_shown, isUsed);
    if (!status || !isUsed) return status;
    const char* direction = m_shown->bDirect == 1 ? account_texts::debit : account_texts::credit;
    text = m_shown->bEnd == 0
               ? fmt::format(chart_texts::classOfUsedAbove, m_shown->sCode, className)
               : fmt::format(chart_texts::classOfUsed, m_shown->sCode, className, direction);
    return status;
}

Status AccountForm::proposeFor(std::string_view code, AccountEntry& entry) const {
    std::optional<_CodeInfo> above;
    std::vector<_zCodeClassInfo> classes;
    Status status = readAbove(code, above);
    if (status) status = AccountService::readClasses(classes);
    if (!status) return status;
    std::string proposedClass = m_isClassGiven ? "" : classFor(code, above, classes);
    if (!proposedClass.empty()) entry.className = std::move(proposedClass);
    // While a code is being typed it stands nowhere.
    const bool hasPlace = above || m_levels.gradeOf(code) == 1;
    if (hasPlace && !m_isCopy) takeAccounting(above, entry);
    return status;
}

Status AccountForm::readAbove(std::string_view code, std::optional<_CodeInfo>& above) const {
    const std::string parent = m_levels.parentOf(code);
    if (parent.empty()) return Status::done();
    _CodeInfo account;
    const Status status = AccountService::find(parent, account);
    if (status.failure == Failure::missing) return Status::done();
    if (status) above = std::move(account);
    return status;
}

std::string AccountForm::classFor(std::string_view code, const std::optional<_CodeInfo>& above,
                                  const std::vector<_zCodeClassInfo>& classes) const {
    if (above) return above->sType;
    const auto number = code.empty() ? 0 : code.front() - '0';
    const bool isNumbered = number >= 1 && number <= static_cast<int>(classes.size());
    if (m_levels.gradeOf(code) != 1 || !isNumbered) return {};
    return classes[static_cast<std::size_t>(number - 1)].sClsName;
}

}  // namespace chengheng
