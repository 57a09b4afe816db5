#include "opening/storing/saving.h"

#include "data/access/unit_of_work.h"
#include "opening/sheet/opening_log_texts.h"
#include "opening/storing/posting.h"
#include "opening/storing/zero_row_sweep.h"
#include "session/record_change.h"

namespace chengheng {

Status postParents(CNbCwDB& database, const OpeningSheet& sheet) {
    for (const OpeningAccount& account : sheet.accounts()) {
        if (account.isEnd) continue;
        if (const Status status = postAccount(database, account, sheet.layout()); !status)
            return status;
    }
    return Status::done();
}

Status saveOpeningBooks(CNbCwDB& database, OpeningBooks& books) {
    UnitOfWork unit(database, unitWords(WriteRight::opening, [] {
                        return std::string(opening_log_texts::loggedSaving);
                    }));
    OpeningBooks read;
    bool isBrowsing = false;
    Status status = unit.status();
    if (status) status = holdSums(database);
    if (status) status = readIsBrowsing(database, isBrowsing);
    if (status && !isBrowsing) status = sweepZeroRows(database);
    if (status) status = readOpeningBooks(database, read);
    if (status && !isBrowsing) status = postParents(database, read.sheet);
    if (status) status = unit.commit();
    if (status) books = std::move(read);
    return status;
}

}  // namespace chengheng
