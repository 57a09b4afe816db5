#include "accounts/changing/designation.h"

#include <fmt/format.h>

#include "accounts/changing/account_locks.h"
#include "accounts/chart/account_sql.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "data/access/host_database.h"
#include "data/lookups/CGetData.h"
#include "data/lookups/existence.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/record_change.h"

namespace chengheng {
namespace {

UntoldOutcome checkExistence(const std::string& code) {
    const int existence = CodeIsExist(code);
    if (existence < 0) return UntoldOutcome::failed();
    if (existence == 0) return UntoldOutcome::done();
    return UntoldOutcome::stale({.text = account_texts::deletedMeanwhile(code)});
}

UntoldOutcome designateUnderLocks(const std::string& cash, const std::string& bank) {
    for (const std::string& code : {cash, bank}) {
        UntoldOutcome result = checkExistence(code);
        if (result.outcome != Outcome::done) return result;
    }
    return inOneUnit(
        account_locks::inOrder.right,
        [&] { return fmt::format(account_texts::loggedDesignation, cash, bank); },
        [&] {
            const bool isDone = g_pDB->QRYExecuteSQL(account_sql::designation(cash, bank)) != 0;
            return isDone ? UntoldOutcome::done() : UntoldOutcome::failed();
        });
}

int positionOf(const std::vector<_CodeInfo>& accounts, std::int16_t _CodeInfo::*mark) {
    for (std::size_t at = 0; at < accounts.size(); ++at)
        if (accounts[at].*mark != 0) return static_cast<int>(at);
    return -1;
}

}  // namespace

DesignationChoices designationChoices(const std::vector<_CodeInfo>& topLevel) {
    DesignationChoices choices;
    for (const _CodeInfo& account : topLevel)
        choices.accounts.push_back(account.sCode + "   " + account.sName);
    choices.cash = positionOf(topLevel, &_CodeInfo::bCash);
    choices.bank = positionOf(topLevel, &_CodeInfo::bBank);
    return choices;
}

DesignationChoices DesignationService::choices() {
    if (selectOpenBooks()) {
        StoredChart chart(*g_pDB);
        const auto topLevel = chart.accounts(account_sql::topLevel);
        if (chart.isRead()) return designationChoices(topLevel);
    }
    tellLastFailure(m_messages);
    return {};
}

bool DesignationService::designate(const std::string& cashText, const std::string& bankText) {
    if (cashText == bankText) {
        m_messages.tell({.text = account_texts::designatedTwice});
        return false;
    }
    const std::string cash = CGetData::GetCode_Separator(cashText);
    const std::string bank = CGetData::GetCode_Separator(bankText);
    const Question question{.text = account_texts::askDesignation(cash, bank),
                            .buttons = AnswerButtons::okCancel,
                            .preset = Answer::ok};
    if (m_messages.ask(question) != Answer::ok) return true;
    const Outcome outcome = underLocks(m_messages, account_locks::inOrder,
                                       [&] { return designateUnderLocks(cash, bank); });
    return outcome == Outcome::done;
}

}  // namespace chengheng
