#include "accounts/changing/chart_writing.h"

#include "accounts/chart/account_sql.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "data/access/host_database.h"

namespace chengheng {
namespace {

UntoldOutcome doneIf(bool isDone) {
    return isDone ? UntoldOutcome::done() : UntoldOutcome::failed();
}

}  // namespace

UntoldOutcome inTurn(std::initializer_list<std::function<UntoldOutcome()>> steps) {
    for (const auto& step : steps) {
        UntoldOutcome result = step();
        if (result.outcome != Outcome::done) return result;
    }
    return UntoldOutcome::done();
}

UntoldOutcome addAccount(_CodeInfo& account) {
    int id = 0;
    if (g_pDB->Code_AddNew(account, id) != 0) return UntoldOutcome::failed();
    account.lId = id;
    return UntoldOutcome::done();
}

UntoldOutcome editAccount(const _CodeInfo& account) {
    return outcomeOfRow(g_pDB->Code_Edit(account),
                        {.text = account_texts::deletedMeanwhile(account.sCode), .beep = true});
}

UntoldOutcome deleteAccount(int id) { return doneIf(g_pDB->Code_Delete(id) == 0); }

UntoldOutcome endsNoMore(const std::optional<_CodeInfo>& parent) {
    if (!parent) return UntoldOutcome::done();
    _CodeInfo account = *parent;
    account.bEnd = 0;
    return editAccount(account);
}

UntoldOutcome endsAgainWithoutChildren(const std::string& code) {
    if (code.empty()) return UntoldOutcome::done();
    StoredChart chart(*g_pDB);
    const bool hasChildren = chart.hasAccountsBelow(code);
    if (hasChildren || !chart.isRead()) return doneIf(chart.isRead());
    return doneIf(g_pDB->QRYExecuteSQL(account_sql::makeEndAccount(code)) != 0);
}

}  // namespace chengheng
