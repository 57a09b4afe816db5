#include "auxiliary/entries/entry_reading.h"

#include <unordered_map>

#include "auxiliary/entries/directory_names.h"
#include "auxiliary/members/auxiliary_sql.h"
#include "data/access/row_lease.h"
#include "data/tables/balances.h"

namespace chengheng {
namespace {

constexpr std::int16_t debit = 1;
/// Books that begin mid-year carry the opening balance from here on; in others all are alike.
constexpr std::uint8_t openingPeriod = 2;

using Headers = std::unordered_map<std::int32_t, _RegMainInfo>;

Status readHeaders(CNbCwDB& database, Headers& headers) {
    const RowLease<_RegMainInfo> lease(database, auxiliary_sql::openingHeaders);
    if (!lease.isRead()) return database.lastStatus();
    headers.reserve(lease.rows().size());
    for (const _RegMainInfo* row : lease.rows()) headers.emplace(row->lId, *row);
    return Status::done();
}

/// A header that is not among those of opening entries; an entry without one is shown, too.
Status readOtherHeader(CNbCwDB& database, std::int32_t tieId, Headers& headers) {
    const RowLease<_RegMainInfo> lease(database, auxiliary_sql::headerOf(tieId).c_str());
    if (!lease.isRead()) return database.lastStatus();
    headers.emplace(tieId, lease.isFound() ? *lease.rows().front() : _RegMainInfo());
    return Status::done();
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

EntryContent entryContent(const _RegSubInfo& line, const _RegMainInfo& header) {
    return {.date = header.dtDate,
            .sign = header.sSign,
            .number = header.lNumber,
            .summary = line.sDigest,
            .of = {.department = line.lDeptId,
                   .person = line.lPersonId,
                   .unit = line.lEnterId,
                   .item = line.lItemId,
                   .itemClass = line.sItemId},
            .isDebit = line.bDirect == debit,
            .money = line.mMoney,
            .foreign = line.mFgn,
            .quantity = line.dAmt};
}

Status readEntries(CNbCwDB& database, const AuxiliaryMember& member,
                   const AuxiliaryAccount& account, std::vector<AuxiliaryEntry>& entries) {
    std::vector<_RegSubInfo> lines;
    {
        const std::string condition = member.entriesOf(account.id) + auxiliary_sql::asAdded;
        const RowLease<_RegSubInfo> lease(database, condition.c_str());
        if (!lease.isRead()) return database.lastStatus();
        lines = lease.copy();
    }
    Headers headers;
    DirectoryNames names;
    Status status = Status::done();
    if (!lines.empty()) status = readHeaders(database, headers);
    if (status && !lines.empty()) status = names.read(database, member);
    std::vector<AuxiliaryEntry> read;
    read.reserve(lines.size());
    for (const _RegSubInfo& line : lines) {
        if (status && !headers.contains(line.lTieId))
            status = readOtherHeader(database, line.lTieId, headers);
        if (!status) return status;
        AuxiliaryEntry& entry = read.emplace_back();
        entry.lineId = line.lId;
        entry.headerId = line.lTieId;
        entry.content = entryContent(line, headers.at(line.lTieId));
        entry.names = names.namesOf(entry.content.of);
    }
    if (status) entries = std::move(read);
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
