#include <algorithm>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/account_sql.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/chart_state.h"
#include "accounts/transfer/import_plan.h"
#include "accounts/transfer/import_texts.h"
#include "accounts/transfer/plan_writing.h"
#include "books/demo/demo_parts.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"

namespace chengheng {
namespace {

enum LedgerPage : std::size_t { foreignPage = 1, quantityPage = 2 };

/// What a chart in a spreadsheet would say of the account: all but its class and direction, which
/// it has from the one above.
ChartRow rowOf(const demo::Account& given, const ChartState& state) {
    ChartRow row;
    const auto say = [&row](ChartField field, const char* text) {
        row.cells[static_cast<std::size_t>(field)] = text;
    };
    const auto choose = [&say](ChartField field, bool isOn) {
        say(field, isOn ? import_texts::yes : import_texts::no);
    };
    const auto known = std::ranges::find(state.accounts, given.code, &_CodeInfo::sCode);
    say(ChartField::code, given.code);
    if (given.name != nullptr)
        say(ChartField::name, given.name);
    else if (known != state.accounts.end())
        say(ChartField::name, known->sName.c_str());
    say(ChartField::mnemonic, given.mnemonic);
    say(ChartField::currency, given.currency);
    say(ChartField::unit, given.unit);
    if (given.currency[0] != '\0') say(ChartField::page, account_texts::ledgerPages[foreignPage]);
    if (given.unit[0] != '\0') say(ChartField::page, account_texts::ledgerPages[quantityPage]);
    const AuxiliaryBooks books = booksOfLetters(given.letters);
    choose(ChartField::byPerson, books.byPerson);
    choose(ChartField::byUnit, books.byUnit);
    choose(ChartField::byDepartment, books.byDepartment);
    choose(ChartField::byProject, books.byProject);
    return row;
}

Status importAccounts(DemoBooks& books) {
    ChartState state;
    if (!readChartState(books.database(), state)) return books.database().lastStatus();
    ChartSheet sheet;
    for (const demo::Account& account : demo::accounts())
        sheet.rows.push_back(rowOf(account, state));
    const ImportPlan plan = planImport(sheet, state);
    const auto refused = std::ranges::find(plan.rows, RowFate::refused, &PlannedRow::fate);
    if (refused != plan.rows.end())
        return Status::of(Failure::refused, refused->code + ": " + refused->reason);
    return writePlan(books.database(), plan);
}

Status readAccounts(DemoBooks& books) {
    const RowLease<_CodeInfo> lease(books.database(), nullptr);
    if (!lease.isRead()) return books.database().lastStatus();
    for (const _CodeInfo* account : lease.rows()) books.accounts.emplace(account->sCode, *account);
    return Status::done();
}

}  // namespace

Status writeDemoAccounts(DemoBooks& books) {
    Status status = importAccounts(books);
    if (status) status = books.run(account_sql::designation(demo::cashAccount, demo::bankAccount));
    return status ? readAccounts(books) : status;
}

}  // namespace chengheng
