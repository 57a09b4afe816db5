#include "auxiliary/entries/entry_reading.h"

#include <utility>

#include "auxiliary/entries/directory_names.h"
#include "auxiliary/entries/entry_row.h"
#include "auxiliary/members/auxiliary_sql.h"
#include "data/access/row_lease.h"
#include "data/tables/balances.h"

namespace chengheng {
namespace {

constexpr std::int16_t debit = 1;
/// Books that begin mid-year carry the opening balance from here on; in others all are alike.
constexpr std::uint8_t openingPeriod = 2;

/// The texts are taken out of the row, of which there may be many.
AuxiliaryEntry entryOf(EntryRow& row) {
    return {.lineId = row.lId,
            .headerId = row.lTieId,
            .content = {.date = row.dtDate,
                        .sign = std::move(row.sSign),
                        .number = row.lNumber,
                        .summary = std::move(row.sDigest),
                        .of = {.department = row.lDeptId,
                               .person = row.lPersonId,
                               .unit = row.lEnterId,
                               .item = row.lItemId,
                               .itemClass = std::move(row.sItemId)},
                        .isDebit = row.bDirect == debit,
                        .money = row.mMoney,
                        .foreign = row.mFgn,
                        .quantity = row.dAmt},
            .names = {}};
}

}  // namespace

AuxiliaryAccount auxiliaryAccount(const _CodeInfo& record) {
    return {.id = record.lId,
            .code = record.sCode,
            .name = record.sName,
            .isDebit = record.bDirect == debit,
            .hasForeign = record.byExchId != 0,
            .hasQuantity = record.bAmount != 0};
}

Status readAuxiliaryAccounts(CNbCwDB& database, const AuxiliaryMember& member,
                             std::vector<AuxiliaryAccount>& accounts) {
    const RowLease<_CodeInfo> lease(database, auxiliary_sql::endAccounts);
    if (!lease.isRead()) return database.lastStatus();
    accounts.clear();
    for (const _CodeInfo* row : lease.rows())
        if (row->lId > 0 && auxiliaryKindOf(row->sAssBook) == member.kind)
            accounts.push_back(auxiliaryAccount(*row));
    return Status::done();
}

EntryContent entryContent(_RegSubInfo line, const _RegMainInfo& header) {
    return {.date = header.dtDate,
            .sign = header.sSign,
            .number = header.lNumber,
            .summary = std::move(line.sDigest),
            .of = {.department = line.lDeptId,
                   .person = line.lPersonId,
                   .unit = line.lEnterId,
                   .item = line.lItemId,
                   .itemClass = std::move(line.sItemId)},
            .isDebit = line.bDirect == debit,
            .money = line.mMoney,
            .foreign = line.mFgn,
            .quantity = line.dAmt};
}

Status readEntries(CNbCwDB& database, const AuxiliaryMember& member,
                   const AuxiliaryAccount& account, std::vector<AuxiliaryEntry>& entries) {
    std::vector<AuxiliaryEntry> read;
    {
        const std::string condition = member.entriesOf(account.id) + auxiliary_sql::asAdded;
        const RowLease<EntryRow> lease(database, condition.c_str());
        if (!lease.isRead()) return database.lastStatus();
        read.reserve(lease.rows().size());
        for (EntryRow* row : lease.rows()) read.push_back(entryOf(*row));
    }
    DirectoryNames names;
    const Status status = read.empty() ? Status::done() : names.read(database, member);
    if (!status) return status;
    for (AuxiliaryEntry& entry : read) entry.names = names.namesOf(entry.content.of);
    entries = std::move(read);
    return status;
}

Status readPostedFigures(CNbCwDB& database, const AuxiliaryAccount& account,
                         EntryFigures& figures) {
    const RowLease<_AccSumInfo> lease(database, auxiliary_sql::accountSums(account.id).c_str());
    if (!lease.isRead()) return database.lastStatus();
    figures = {};
    for (const _AccSumInfo* row : lease.rows()) {
        const bool isFirst = row == lease.rows().front();
        if (isFirst || row->byPeroid == openingPeriod)
            figures = {row->mBegin, row->mFgnBegin, row->dAmtBegin};
        if (row->byPeroid == openingPeriod) break;
    }
    return Status::done();
}

}  // namespace chengheng
