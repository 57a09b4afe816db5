#include "accounts/chart/account_sql.h"
#include "accounts/codes/code_levels.h"
#include "books/demo/demo_parts.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"
#include "data/tables/currency.h"

namespace chengheng {
namespace {

constexpr const char* foreignPage = "外币金额式";
constexpr const char* quantityPage = "数量金额式";

Status readAccounts(DemoBooks& books) {
    books.accounts.clear();
    for (const _CodeInfo& account : readRows<_CodeInfo>(books.database(), nullptr))
        books.accounts.emplace(account.sCode, account);
    return books.accounts.empty() ? books.database().lastStatus() : Status::done();
}

void setFeatures(const DemoBooks& books, const demo::Account& given, _CodeInfo& account) {
    const std::string_view unit = given.unit;
    account.sAssBook = given.letters;
    account.sHelp = given.mnemonic;
    account.byExchId = static_cast<std::uint8_t>(books.idOf<_CyrencyInfo>(given.currency));
    account.bAmount = unit.empty() ? 0 : 1;
    account.sUnit = unit;
    if (account.byExchId != 0) account.sPage = foreignPage;
    if (account.bAmount != 0) account.sPage = quantityPage;
}

Status edit(DemoBooks& books, const _CodeInfo& account) {
    const bool isDone = books.database().Code_Edit(account) == 0;
    return isDone ? Status::done() : books.database().lastStatus();
}

/// An account below another takes over its class, direction and ledger page.
Status addAccount(DemoBooks& books, const demo::Account& given, const CodeLevels& levels) {
    const auto above = books.accounts.find(levels.parentOf(given.code));
    if (above == books.accounts.end()) return Status::of(Failure::missing, given.code);
    _CodeInfo& parent = above->second;
    if (parent.bEnd != 0) {
        parent.bEnd = 0;
        if (Status status = edit(books, parent); !status) return status;
    }
    _CodeInfo account;
    account.sCode = given.code;
    account.sName = given.name;
    account.sType = parent.sType;
    account.bDirect = parent.bDirect;
    account.sPage = parent.sPage;
    account.byGrade = static_cast<std::uint8_t>(levels.gradeOf(given.code));
    account.bEnd = 1;
    setFeatures(books, given, account);
    Status status = books.add(account, account.lId);
    books.accounts.emplace(account.sCode, account);
    return status;
}

Status changeAccount(DemoBooks& books, const demo::Account& given) {
    const auto found = books.accounts.find(given.code);
    if (found == books.accounts.end()) return Status::of(Failure::missing, given.code);
    setFeatures(books, given, found->second);
    return edit(books, found->second);
}

}  // namespace

Status writeDemoAccounts(DemoBooks& books) {
    const CodeLevels levels(demo::levelPattern);
    Status status = readAccounts(books);
    for (const demo::Account& account : demo::accounts()) {
        if (!status) break;
        status = account.name == nullptr ? changeAccount(books, account)
                                         : addAccount(books, account, levels);
    }
    if (status) status = books.run(account_sql::designation(demo::cashAccount, demo::bankAccount));
    return status ? readAccounts(books) : status;
}

}  // namespace chengheng
