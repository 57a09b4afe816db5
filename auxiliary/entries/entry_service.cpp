#include "auxiliary/entries/entry_service.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "accounts/chart/account_sql.h"
#include "auxiliary/entries/balance_carry.h"
#include "auxiliary/entries/dimension_lookup.h"
#include "auxiliary/entries/directory_names.h"
#include "auxiliary/entries/entry_reading.h"
#include "auxiliary/members/auxiliary_sql.h"
#include "auxiliary/members/auxiliary_texts.h"
#include "data/access/row_lease.h"
#include "data/access/table_locks.h"
#include "data/tables/accounts.h"
#include "data/tables/vouchers.h"
#include "opening/storing/opening_reading.h"
#include "opening/storing/posting.h"
#include "session/host_globals.h"

namespace chengheng {
namespace {

constexpr const char* writtenTables = "AssAcc AccSum RegMain RegSug";  // sic
constexpr const char* accounts = "Code";
/// From here on reading all names costs less than asking for each.
constexpr std::size_t manyChanges = 64;

/// The chart, where the member's list does not name it.
const char* furtherTables(const AuxiliaryMember& member) {
    const std::string_view listed = member.lookupTables;
    const bool isListed = listed.substr(listed.rfind(' ') + 1) == accounts;
    return isListed ? "" : accounts;
}

/// One call of the service, under its locks.
class EntryWriting {
  public:
    EntryWriting(const AuxiliaryMember& member, const AuxiliaryAccount& account,
                 std::span<EntryChange> changes)
        : m_member(member), m_account(account), m_changes(changes), m_carry(member, account) {}

    UntoldOutcome run();

  private:
    UntoldOutcome refuseVouchers();
    UntoldOutcome refuseAccount();
    UntoldOutcome refuseNames(const AuxiliaryEntry& after, bool isAddition);
    Status readHasName(Dimension dimension, const AuxiliaryEntry& entry, bool& hasName);
    UntoldOutcome write(EntryChange& change);
    UntoldOutcome readStored(const AuxiliaryEntry& entry);
    bool eraseRows() const;
    UntoldOutcome erase() const;
    UntoldOutcome edit(AuxiliaryEntry& after);
    void append(AuxiliaryEntry& after);
    UntoldOutcome writeAdditions();
    void fill(const EntryContent& content);

    const AuxiliaryMember& m_member;
    const AuxiliaryAccount& m_account;
    std::span<EntryChange> m_changes;
    BalanceCarry m_carry;
    std::optional<DirectoryNames> m_names;  ///< all of them, for many changes
    _RegSubInfo m_line;
    _RegMainInfo m_header;
    bool m_hasHeader = false;
    // What comes, until all of it is written at once.
    std::vector<AuxiliaryEntry*> m_additions;
    std::vector<_RegMainInfo> m_newHeaders;
    std::vector<_RegSubInfo> m_newLines;
};

UntoldOutcome EntryWriting::run() {
    if (!holdSums(*g_pDB)) return UntoldOutcome::failed();
    UntoldOutcome result = refuseVouchers();
    if (result.outcome == Outcome::done) result = refuseAccount();
    for (EntryChange& change : m_changes) {
        if (result.outcome == Outcome::done && change.after)
            result = refuseNames(*change.after, !change.before);
        if (result.outcome == Outcome::done) result = write(change);
        if (result.outcome != Outcome::done) return result;
    }
    result = writeAdditions();
    if (result.outcome != Outcome::done) return result;
    bool isTooLarge = false;
    if (!m_carry.write(*g_pDB, isTooLarge)) return UntoldOutcome::failed();
    if (isTooLarge)
        return UntoldOutcome::refused({.text = auxiliary_texts::tooLarge, .beep = true});
    if (m_additions.empty()) return result;
    const std::string counters =
        auxiliary_sql::setVoucherCounters(m_newHeaders.back().lId, m_newLines.back().lId);
    return g_pDB->QRYExecuteSQL(counters) != 0 ? result : UntoldOutcome::failed();
}

UntoldOutcome EntryWriting::refuseVouchers() {
    bool isBrowsing = false;
    if (!readIsBrowsing(*g_pDB, isBrowsing)) return UntoldOutcome::failed();
    if (!isBrowsing) return UntoldOutcome::done();
    return UntoldOutcome::stale({.text = auxiliary_texts::vouchersMeanwhile});
}

/// The account as it is read again must be the one whose entries are shown.
UntoldOutcome EntryWriting::refuseAccount() {
    const std::string condition = account_sql::ofCode(m_account.code);
    const RowLease<_CodeInfo> lease(*g_pDB, condition.c_str());
    if (!lease.isRead()) return UntoldOutcome::failed();
    if (!lease.isFound()) {
        const EntryChange& first = m_changes.front();
        const char* const text = !first.before ? auxiliary_texts::accountGoneAdding
                                 : first.after ? auxiliary_texts::accountGoneModifying
                                               : auxiliary_texts::accountGoneDeleting;
        return UntoldOutcome::stale({.text = text});
    }
    const _CodeInfo& stored = *lease.rows().front();
    const AuxiliaryAccount now = auxiliaryAccount(stored);
    const bool isSame = now.id == m_account.id && stored.bEnd != 0 &&
                        now.isDebit == m_account.isDebit &&
                        auxiliaryKindOf(stored.sAssBook) == m_member.kind;
    return isSame ? UntoldOutcome::done()
                  : UntoldOutcome::stale({.text = auxiliary_texts::accountChanged});
}

Status EntryWriting::readHasName(Dimension dimension, const AuxiliaryEntry& entry, bool& hasName) {
    const EntryDimensions& of = entry.content.of;
    const std::string& name = nameOf(entry.names, dimension);
    if (m_changes.size() < manyChanges) return readIsNamed(*g_pDB, dimension, of, name, hasName);
    Status status = Status::done();
    if (!m_names) status = m_names.emplace().read(*g_pDB, m_member);
    if (status) hasName = !name.empty() && nameOf(m_names->namesOf(of), dimension) == name;
    return status;
}

/// Whatever the entry names must still be there by that name.
UntoldOutcome EntryWriting::refuseNames(const AuxiliaryEntry& after, bool isAddition) {
    for (const DimensionWords& words : m_member.dimensions) {
        bool hasName = false;
        if (!readHasName(words.dimension, after, hasName)) return UntoldOutcome::failed();
        if (!hasName)
            return UntoldOutcome::refused(
                {.text = isAddition ? words.goneAdding : words.goneModifying});
    }
    if (m_member.mismatch == nullptr) return UntoldOutcome::done();
    const EntryDimensions& of = after.content.of;
    std::int32_t department = 0;
    if (!readDepartmentOf(*g_pDB, of.person.value_or(0), department))
        return UntoldOutcome::failed();
    return department == of.department ? UntoldOutcome::done()
                                       : UntoldOutcome::refused({.text = m_member.mismatch});
}

UntoldOutcome EntryWriting::write(EntryChange& change) {
    if (change.before) {
        const UntoldOutcome result = readStored(*change.before);
        if (result.outcome != Outcome::done) return result;
        m_carry.takeOff(entryContent(m_line, m_header));
        if (!change.after) return erase();
    }
    if (!change.after) return UntoldOutcome::done();
    m_carry.put(change.after->content);
    if (change.before) return edit(*change.after);
    append(*change.after);
    return UntoldOutcome::done();
}

/// The line and its header as they are now; stale when they are not what was read.
UntoldOutcome EntryWriting::readStored(const AuxiliaryEntry& entry) {
    {
        const std::string condition = auxiliary_sql::line(entry.lineId);
        const RowLease<_RegSubInfo> lease(*g_pDB, condition.c_str());
        if (!lease.isRead()) return UntoldOutcome::failed();
        if (!lease.isFound()) return UntoldOutcome::stale({.text = auxiliary_texts::entryGone});
        m_line = *lease.rows().front();
    }
    const std::string condition = auxiliary_sql::headerOf(m_line.lTieId);
    const RowLease<_RegMainInfo> lease(*g_pDB, condition.c_str());
    if (!lease.isRead()) return UntoldOutcome::failed();
    m_hasHeader = lease.isFound();
    m_header = m_hasHeader ? *lease.rows().front() : _RegMainInfo();
    const bool isSame = m_line.lCodeId == m_account.id && m_line.bBegin != 0 &&
                        entryContent(m_line, m_header) == entry.content;
    return isSame ? UntoldOutcome::done()
                  : UntoldOutcome::stale({.text = auxiliary_texts::entryChanged});
}

/// The line, and its header unless that bears another line, too.
bool EntryWriting::eraseRows() const {
    if (g_pDB->RegSub_Delete(m_line.lId) != 0) return false;
    if (!m_hasHeader) return true;
    const auto isShared = hasRows<_RegSubInfo>(*g_pDB, auxiliary_sql::linesOfHeader(m_header.lId));
    return isShared && (*isShared || g_pDB->RegMain_Delete(m_header.lId) == 0);
}

UntoldOutcome EntryWriting::erase() const {
    if (eraseRows()) return UntoldOutcome::done();
    UntoldOutcome failure = UntoldOutcome::failed();
    // Whoever gave up waiting knows it; everybody else is told what failed and why.
    if (failure.notice) {
        failure.notice->detail = failure.notice->text + '\n' + failure.notice->detail;
        failure.notice->text = auxiliary_texts::deletionFailed;
    }
    return failure;
}

void EntryWriting::fill(const EntryContent& content) {
    m_header.dtDate = content.date;
    m_header.sSign = content.sign;
    m_header.lNumber = content.number;
    m_line.sDigest = content.summary;
    m_line.lCodeId = m_account.id;
    m_line.bDirect = content.isDebit ? 1 : 0;
    m_line.mMoney = content.money;
    m_line.mFgn = content.foreign;
    m_line.dAmt = content.quantity;
    m_line.lDeptId = content.of.department;
    m_line.lPersonId = content.of.person;
    m_line.lEnterId = content.of.unit;
    m_line.lItemId = content.of.item;
    m_line.sItemId = content.of.itemClass;
    m_line.bBegin = 1;
}

UntoldOutcome EntryWriting::edit(AuxiliaryEntry& after) {
    fill(after.content);
    after.lineId = m_line.lId;
    after.headerId = m_line.lTieId;
    const bool isWritten =
        g_pDB->RegSub_Edit(m_line) == 0 && (!m_hasHeader || g_pDB->RegMain_Edit(m_header) == 0);
    return isWritten ? UntoldOutcome::done() : UntoldOutcome::failed();
}

/// A header of no period, or the books would seem to have vouchers.
void EntryWriting::append(AuxiliaryEntry& after) {
    m_header = {};
    m_line = {};
    fill(after.content);
    if (g_lpLogonUserInfo != nullptr) m_header.lUBill = g_lpLogonUserInfo->lUserId;
    m_line.lLine = 1;
    m_newHeaders.push_back(m_header);
    m_newLines.push_back(m_line);
    m_additions.push_back(&after);
}

/// The ids lie above those of posted and unposted vouchers alike.
UntoldOutcome EntryWriting::writeAdditions() {
    if (m_additions.empty()) return UntoldOutcome::done();
    if (g_pDB->addAll<_RegMainInfo>(m_newHeaders) != 0) return UntoldOutcome::failed();
    for (std::size_t at = 0; at < m_additions.size(); ++at)
        m_newLines[at].lTieId = m_newHeaders[at].lId;
    if (g_pDB->addAll<_RegSubInfo>(m_newLines) != 0) return UntoldOutcome::failed();
    for (std::size_t at = 0; at < m_additions.size(); ++at) {
        m_additions[at]->headerId = m_newHeaders[at].lId;
        m_additions[at]->lineId = m_newLines[at].lId;
    }
    return UntoldOutcome::done();
}

/// Entries that come, or go, among others that change are changes, too.
std::string changesInWords(const AuxiliaryAccount& account, std::span<const EntryChange> changes) {
    const bool areAdded = std::ranges::none_of(
        changes, [](const EntryChange& each) { return each.before.has_value(); });
    const bool areDeleted = std::ranges::none_of(
        changes, [](const EntryChange& each) { return each.after.has_value(); });
    const char* const deed = areAdded     ? auxiliary_texts::addition
                             : areDeleted ? auxiliary_texts::erasure
                                          : auxiliary_texts::modification;
    return fmt::format(auxiliary_texts::logged, deed, account.code, account.name, changes.size());
}

}  // namespace

Outcome EntryService::write(const AuxiliaryAccount& account, std::span<EntryChange> changes,
                            const EntryFollowUp& followUp) {
    if (changes.empty()) return Outcome::done;
    return underLocks(m_messages, {WriteRight::opening, m_member.lookupTables, writtenTables}, [&] {
        const TableLocks further(*g_pDB, furtherTables(m_member), "");
        if (!further.areGranted()) return UntoldOutcome::failed();
        EntryWriting writing(m_member, account, changes);
        const auto words = [&] { return changesInWords(account, changes); };
        return inOneUnit(WriteRight::opening, words, [&] {
            UntoldOutcome result = writing.run();
            const bool isDone = result.outcome == Outcome::done;
            return isDone && followUp && !followUp() ? UntoldOutcome::failed() : result;
        });
    });
}

Outcome EntryService::add(const AuxiliaryAccount& account, AuxiliaryEntry& entry) {
    EntryChange change{.before = {}, .after = entry};
    const Outcome outcome = write(account, {&change, 1});
    if (outcome == Outcome::done) entry = *change.after;
    return outcome;
}

Outcome EntryService::modify(const AuxiliaryAccount& account, const AuxiliaryEntry& before,
                             AuxiliaryEntry& after) {
    EntryChange change{.before = before, .after = after};
    const Outcome outcome = write(account, {&change, 1});
    if (outcome == Outcome::done) after = *change.after;
    return outcome;
}

Outcome EntryService::remove(const AuxiliaryAccount& account, const AuxiliaryEntry& entry) {
    EntryChange change{.before = entry, .after = {}};
    return write(account, {&change, 1});
}

}  // namespace chengheng
