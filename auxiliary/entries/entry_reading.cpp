#include "auxiliary/entries/entry_reading.h"

#include <span>
#include <unordered_map>
#include <utility>

#include "auxiliary/entries/directory_names.h"
#include "auxiliary/members/auxiliary_sql.h"
#include "data/access/row_lease.h"
#include "data/tables/balances.h"

namespace chengheng {
namespace {

constexpr std::int16_t debit = 1;
/// Books that begin mid-year carry the opening balance from here on; in others all are alike.
constexpr std::uint8_t openingPeriod = 2;

/// A header that is not among those of opening entries; an entry without one is shown, too.
Status readOtherHeader(CNbCwDB& database, std::int32_t tieId, _RegMainInfo& header) {
    const RowLease<_RegMainInfo> lease(database, auxiliary_sql::headerOf(tieId).c_str());
    if (lease.isFound()) header = *lease.rows().front();
    return lease.isRead() ? Status::done() : database.lastStatus();
}

/// Lines whose headers are elsewhere.
using StrayLines = std::vector<std::pair<std::size_t, _RegSubInfo>>;

/// An entry for each line; its texts are taken out of the rows, of which there may be many.
Status takeRows(CNbCwDB& database, std::span<_RegSubInfo* const> lines,
                std::vector<AuxiliaryEntry>& entries, StrayLines& strays) {
    const RowLease<_RegMainInfo> lease(database, auxiliary_sql::openingHeaders);
    if (!lease.isRead()) return database.lastStatus();
    std::unordered_map<std::int32_t, const _RegMainInfo*> headers;
    headers.reserve(lease.rows().size());
    for (const _RegMainInfo* row : lease.rows()) headers.emplace(row->lId, row);
    entries.reserve(lines.size());
    for (_RegSubInfo* line : lines) {
        AuxiliaryEntry& entry = entries.emplace_back();
        entry.lineId = line->lId;
        entry.headerId = line->lTieId;
        const auto header = headers.find(line->lTieId);
        if (header == headers.end())
            strays.emplace_back(entries.size() - 1, *line);
        else
            entry.content = entryContent(std::move(*line), *header->second);
    }
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
    StrayLines strays;
    Status status = Status::done();
    {
        const std::string condition = member.entriesOf(account.id) + auxiliary_sql::asAdded;
        const RowLease<_RegSubInfo> lease(database, condition.c_str());
        if (!lease.isRead()) return database.lastStatus();
        if (lease.isFound()) status = takeRows(database, lease.rows(), read, strays);
    }
    for (const auto& [place, line] : strays) {
        _RegMainInfo header;
        if (status) status = readOtherHeader(database, line.lTieId, header);
        read[place].content = entryContent(line, header);
    }
    DirectoryNames names;
    if (status && !read.empty()) status = names.read(database, member);
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
