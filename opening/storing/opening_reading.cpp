#include "opening/storing/opening_reading.h"

#include <optional>

#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/connection/database.h"
#include "data/tables/balances.h"
#include "data/tables/books.h"
#include "data/tables/currency.h"
#include "data/tables/vouchers.h"
#include "opening/storing/opening_sql.h"
#include "opening/storing/posting.h"

namespace chengheng {
namespace {

/// The texts are taken out of the record.
OpeningAccount accountFrom(_CodeInfo& record) {
    OpeningAccount account;
    account.id = record.lId;
    account.code = std::move(record.sCode);
    account.name = std::move(record.sName);
    account.type = std::move(record.sType);
    account.unit = std::move(record.sUnit);
    account.grade = record.byGrade;
    account.currency = record.byExchId;
    account.isEnd = record.bEnd != 0;
    account.isDebit = record.bDirect == 1;
    account.hasQuantity = record.bAmount != 0;
    account.auxiliary = auxiliaryKindOf(record.sAssBook);
    return account;
}

Status readParameters(CNbCwDB& database, _zAccountMInfo& parameters) {
    const RowLease<_zAccountMInfo> rows(database, nullptr);
    if (!rows.isFound()) return database.lastStatus();
    parameters = *rows.rows().front();
    return Status::done();
}

Status readAccounts(CNbCwDB& database, std::vector<OpeningAccount>& accounts) {
    const RowLease<_CodeInfo> rows(database, opening_sql::accountsInOrder);
    if (!rows.isRead()) return database.lastStatus();
    accounts.reserve(rows.rows().size());
    for (_CodeInfo* record : rows.rows()) accounts.push_back(accountFrom(*record));
    return Status::done();
}

Status readCurrencies(CNbCwDB& database, std::vector<OpeningCurrency>& currencies) {
    const RowLease<_CyrencyInfo> rows(database, opening_sql::currencies);
    if (!rows.isRead()) return database.lastStatus();
    for (const _CyrencyInfo* row : rows.rows()) currencies.push_back({row->lId, row->sExchName});
    return Status::done();
}

Status readFigures(CNbCwDB& database, const char* condition, OpeningSheet& sheet) {
    const RowLease<_AccSumInfo> rows(database, condition);
    if (!rows.isRead()) return database.lastStatus();
    for (const _AccSumInfo* row : rows.rows()) {
        const auto place = sheet.placeOfId(row->lCodeId);
        if (!place) continue;
        OpeningAccount& account = sheet.accounts()[*place];
        takeFigures(*row, sheet.layout(), account.isDebit, account.balances);
    }
    return Status::done();
}

template <class Record>
Status readHasRows(CNbCwDB& database, const char* condition, bool& hasAny) {
    const std::optional<bool> found = hasRows<Record>(database, condition);
    if (!found) return database.lastStatus();
    hasAny = *found;
    return Status::done();
}

Status readSheet(CNbCwDB& database, OpeningLayout layout, OpeningSheet& sheet) {
    std::vector<OpeningAccount> accounts;
    std::vector<OpeningCurrency> currencies;
    Status status = readAccounts(database, accounts);
    if (status) status = readCurrencies(database, currencies);
    if (!status) return status;
    sheet = OpeningSheet(layout, std::move(accounts), std::move(currencies));
    status = readFigures(database, opening_sql::firstPeriod, sheet);
    if (status && layout == OpeningLayout::midYear)
        status = readFigures(database, opening_sql::secondPeriod, sheet);
    return status;
}

}  // namespace

Status readIsBrowsing(CNbCwDB& database, bool& isBrowsing) {
    const Database* const selected = database.selectedDatabase();
    if (selected != nullptr && selected->isReadOnly()) {
        isBrowsing = true;
        return Status::done();
    }
    return readHasRows<_RegMainInfo>(database, opening_sql::vouchers, isBrowsing);
}

Status readHasSums(CNbCwDB& database, bool& hasSums) {
    return readHasRows<_AccSumInfo>(database, opening_sql::anyRow, hasSums);
}

Status readAuxiliaryOpenings(CNbCwDB& database, OpeningLayout layout,
                             std::map<std::int32_t, double>& sums) {
    const SelectedCells cells(database, layout == OpeningLayout::simple
                                            ? opening_sql::auxiliaryOpenings
                                            : opening_sql::auxiliaryOpeningsMidYear);
    sums.clear();
    if (!cells.isRead()) return database.lastStatus();
    for (int row = 0; row < cells.rows(); ++row)
        sums[cells.number<std::int32_t>(row, 0)] = cells.number<double>(row, 1);
    return Status::done();
}

Status readClasses(CNbCwDB& database, std::vector<_zCodeClassInfo>& classes) {
    const RowLease<_zCodeClassInfo> rows(database, opening_sql::classesInOrder);
    if (!rows.isRead()) return database.lastStatus();
    classes = rows.copy();
    return Status::done();
}

Status readOpeningBooks(CNbCwDB& database, OpeningBooks& books) {
    OpeningBooks read;
    _zAccountMInfo parameters;
    bool isBrowsing = false;
    Status status = readParameters(database, parameters);
    if (status) status = readIsBrowsing(database, isBrowsing);
    if (status) status = readHasSums(database, read.hasSums);
    if (status) status = readClasses(database, read.classes);
    if (!status) return status;
    const bool isSimple = parameters.dtStart.month == 1;
    status =
        readSheet(database, isSimple ? OpeningLayout::simple : OpeningLayout::midYear, read.sheet);
    if (!status) return status;
    read.levelPattern = parameters.sCodeLen;
    read.year = parameters.lYear;
    read.start = parameters.dtStart;
    read.sheet.setBrowsing(isBrowsing);
    if (!isBrowsing) read.sheet.rollUp();
    books = std::move(read);
    return status;
}

}  // namespace chengheng
