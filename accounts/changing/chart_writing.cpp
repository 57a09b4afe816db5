#include "accounts/changing/chart_writing.h"

#include "accounts/chart/account_sql.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "data/access/host_database.h"

namespace chengheng {
namespace {

Result doneIf(bool isDone) { return isDone ? Result::done() : Result::failed(); }

}  // namespace

Result inTurn(std::initializer_list<std::function<Result()>> steps) {
    for (const auto& step : steps) {
        Result result = step();
        if (result.outcome != Outcome::done) return result;
    }
    return Result::done();
}

Result addAccount(_CodeInfo& account) {
    int id = 0;
    if (g_pDB->Code_AddNew(account, id) != 0) return Result::failed();
    account.lId = id;
    return Result::done();
}

Result editAccount(const _CodeInfo& account) {
    return resultOfRow(g_pDB->Code_Edit(account),
                       {.text = account_texts::deletedMeanwhile(account.sCode), .beep = true});
}

Result deleteAccount(int id) { return doneIf(g_pDB->Code_Delete(id) == 0); }

Result endsNoMore(const std::optional<_CodeInfo>& parent) {
    if (!parent) return Result::done();
    _CodeInfo account = *parent;
    account.bEnd = 0;
    return editAccount(account);
}

Result endsAgainWithoutChildren(const std::string& code) {
    if (code.empty()) return Result::done();
    StoredChart chart(*g_pDB);
    const bool hasChildren = chart.hasAccountsBelow(code);
    if (hasChildren || !chart.isRead()) return doneIf(chart.isRead());
    return doneIf(g_pDB->QRYExecuteSQL(account_sql::makeEndAccount(code)) != 0);
}

}  // namespace chengheng
