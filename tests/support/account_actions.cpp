#include "tests/support/account_actions.h"

#include "accounts/changing/designation.h"
#include "accounts/transfer/chart_import.h"
#include "data/tables/accounts.h"
#include "session/last_failure.h"
#include "sheets/delimited/delimited_text.h"

namespace chengheng {
namespace {

Outcome add(AccountBooks& books) { return books.service().add(assetEntry("220201")).outcome; }

Outcome renumber(AccountBooks& books) {
    _CodeInfo shown;
    if (!AccountService::find("100101", shown)) {
        tellLastFailure(books.messages());  // as the window does
        return Outcome::failed;
    }
    AccountEntry entry = entryOf(shown);
    entry.code = "220207";
    return books.service().modify(shown, entry).outcome;
}

Outcome remove(AccountBooks& books) {
    books.messages().willAnswer(Answer::ok);
    return books.service().remove("100101", "科目").outcome;
}

Outcome designate(AccountBooks& books) {
    books.messages().willAnswer(Answer::ok);
    const bool isDone =
        DesignationService(books.messages()).designate("1001   科目", "1002   科目");
    return isDone ? Outcome::done : Outcome::failed;
}

Outcome import(AccountBooks& books) {
    Sheet sheet;
    if (readCsv("code,name\n1001,库存现金\n100102,美元\n220201,甲\n", sheet))
        return Outcome::refused;
    ChartImport chart(books.messages());
    const auto plan = chart.plan(sheet, "科目.csv");
    return plan ? chart.apply(*plan) : Outcome::failed;
}

}  // namespace

void prepareActions(AccountBooks& books) {
    for (const char* code : {"1001", "100101", "1002", "100201", "2202"}) books.add(code);
}

const std::vector<AccountAction>& accountActions() {
    static const std::vector<AccountAction> actions{{"addition", add},
                                                    {"modification", renumber},
                                                    {"deletion", remove},
                                                    {"designation", designate},
                                                    {"import", import}};
    return actions;
}

}  // namespace chengheng
