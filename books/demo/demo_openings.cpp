#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "auxiliary/entries/entry_reading.h"
#include "auxiliary/entries/entry_service.h"
#include "base/messages/messages.h"
#include "base/values/numbers.h"
#include "books/demo/demo_parts.h"
#include "books/demo/demo_sql.h"
#include "data/tables/accounts.h"
#include "data/tables/directories.h"
#include "data/tables/operators.h"
#include "opening/storing/opening_reading.h"
#include "opening/storing/posting.h"
#include "session/host_globals.h"

namespace chengheng {
namespace {

/// The day before the books begin.
Date entryDate(const DemoBooks& books) {
    return {static_cast<std::int16_t>(books.year() - 1), 12, 31};
}

/// Keeps what a service says; nobody is there to be asked.
class KeptNotice final : public IMessages {
  public:
    void tell(const Notice& notice) override { text = notice.text; }
    Answer ask(const Question&) override { return Answer::no; }

    std::string text;
};

AuxiliaryEntry entryOf(const DemoBooks& books, const demo::Entry& given, std::int32_t number) {
    const std::string_view person = given.person;
    AuxiliaryEntry entry;
    entry.names = {given.department, given.person, given.unit, given.item};
    EntryContent& content = entry.content;
    content.date = entryDate(books);
    content.sign = demo::transferVoucherType;
    content.number = number;
    content.summary = given.digest;
    content.isDebit = books.accounts.at(given.code).bDirect != 0;
    content.money = given.money;
    content.of.department = books.idOf<_DeptInfo>(given.department);
    if (!person.empty()) content.of.person = books.idOf<_PersonInfo>(person);
    content.of.unit = books.idOf<_EnterInfo>(given.unit);
    if (const auto item = books.items.find(given.item); item != books.items.end()) {
        content.of.item = item->second.id;
        content.of.itemClass = item->second.classCode;
    }
    return entry;
}

Status writeEntriesOf(DemoBooks& books, const _CodeInfo& account,
                      std::vector<EntryChange>& changes) {
    KeptNotice messages;
    EntryService service(messages, memberOf(auxiliaryKindOf(account.sAssBook)));
    switch (service.write(auxiliaryAccount(account), changes)) {
        case Outcome::done:
            return Status::done();
        case Outcome::failed:
            if (!books.database().lastStatus()) return books.database().lastStatus();
            break;
        case Outcome::refused:
        case Outcome::stale:
            break;
    }
    return Status::of(Failure::refused, account.sCode + ": " + messages.text);
}

/// As the bookkeeper would enter them, those of one account together.
Status writeEntries(DemoBooks& books) {
    const HostSession session({.database = &books.database(),
                               .databaseName = books.database().selectedName(),
                               .logonUser = {.lUserId = books.idOf<_UsersInfo>(demo::bookkeeper)}});
    Status status = Status::done();
    std::vector<EntryChange> changes;
    std::int32_t number = 0;
    const auto entries = demo::entries();
    for (auto entry = entries.begin(); status && entry != entries.end();) {
        const std::string_view code = entry->code;
        changes.clear();
        for (; entry != entries.end() && entry->code == code; ++entry)
            changes.push_back({.before = {}, .after = entryOf(books, *entry, ++number)});
        status = writeEntriesOf(books, books.accounts.find(code)->second, changes);
    }
    return status;
}

/// Adds to the figures of an end account.
void addTo(OpeningSheet& sheet, const char* code, double money, double foreign, double quantity) {
    const auto place = sheet.placeOfCode(code);
    if (!place) return;
    const double added[] = {money, foreign, quantity};
    for (const Measure measure : measures) {
        double& opening = sheet.accounts()[*place].balance(measure).opening;
        opening += added[static_cast<std::size_t>(measure)];
        Round(opening, decimalsOf(measure));
    }
}

/// The sums of every account, those above end accounts by the roll-up of the opening balances.
Status writeSums(DemoBooks& books) {
    OpeningBooks opening;
    Status status = readOpeningBooks(books.database(), opening);
    OpeningSheet& sheet = opening.sheet;
    for (const demo::Opening& given : demo::openings())
        addTo(sheet, given.code, given.money, given.foreign, given.quantity);
    sheet.rollUp();
    for (const OpeningAccount& account : sheet.accounts())
        if (status) status = postAccount(books.database(), account, sheet.layout());
    return status;
}

}  // namespace

Status writeDemoOpenings(DemoBooks& books) {
    const Status status = writeEntries(books);
    return status ? writeSums(books) : status;
}

Status writeDemoTurnover(DemoBooks& books) { return books.run(demo_sql::turnover()); }

}  // namespace chengheng
