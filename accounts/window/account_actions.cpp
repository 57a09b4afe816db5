#include "accounts/window/account_actions.h"

#include <fmt/format.h>

#include "accounts/chart/account_texts.h"
#include "accounts/window/account_window.h"
#include "accounts/window/designation_window.h"
#include "accounts/window/used_window.h"
#include "screen/history/history_window.h"
#include "session/last_failure.h"

namespace chengheng {

bool AccountActions::hasBegun(const Status& status, const std::string& code) {
    if (status.failure == Failure::missing)
        tellGone(code);
    else if (!status)
        tellLastFailure(m_messages);
    return status.isDone();
}

void AccountActions::tellGone(const std::string& code) {
    m_messages.tell({.text = account_texts::deletedMeanwhile(code)});
    listAnew();
}

void AccountActions::listAnew() {
    if (!m_grid.listAnew()) tellLastFailure(m_messages);
}

void AccountActions::runWindow(AccountForm& form) {
    AccountWindow window(form,
                         {.saved = [this](const _CodeInfo& account) { m_grid.place(account); },
                          .moved = [this](const std::string& code) { m_grid.goToCode(code); }},
                         m_grid.window());
    window.DoModal();
    if (window.hasMetForeignChange()) listAnew();
    m_grid.viewport()->update();
    m_grid.setFocus();
}

void AccountActions::add(const std::string& className) {
    AccountForm form = newForm();
    const std::string code = m_grid.currentCode();
    if (hasBegun(form.beginNew(code, className), code)) runWindow(form);
}

void AccountActions::addCopy() {
    const std::string code = m_grid.currentCode();
    AccountForm form = newForm();
    if (hasBegun(form.beginCopy(code), code)) runWindow(form);
}

void AccountActions::modify() {
    const std::string code = m_grid.currentCode();
    AccountForm form = newForm();
    if (hasBegun(form.beginModification(code), code)) runWindow(form);
}

void AccountActions::remove() {
    const std::string code = m_grid.currentCode();
    const std::string name = m_grid.screen().text(m_grid.currentRow(), ListColumn::name);
    const AccountChange change = AccountService(m_messages, m_levels).remove(code, name);
    if (change.outcome == Outcome::stale) tellGone(code);
    if (change.outcome == Outcome::done) m_grid.removeCurrent();
}

void AccountActions::designate() {
    if (DesignationWindow(m_grid.window()).DoModal() == QDialog::Accepted) listAnew();
}

void AccountActions::showHistory() {
    const ListedAccount& account = m_grid.currentAccount();
    HistoryWindow({fmt::format(account_texts::codeAndName, account.code, account.name),
                   {.table = "Code", .id = account.id}},
                  m_grid.window())
        .DoModal();
}

void AccountActions::showUses() { UsedWindow(m_grid.currentCode(), m_grid.window()).DoModal(); }

}  // namespace chengheng
