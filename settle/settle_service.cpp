#include "settle/settle_service.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/lookups/existence.h"
#include "data/tables/vouchers.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "settle/settle_rules.h"
#include "settle/settle_sql.h"
#include "settle/settle_texts.h"

namespace chengheng {
namespace {

constexpr LockLists lockLists{WriteRight::settlement, "RecpBank RecpEnter UnregMain UnregSub",
                              "Settle"};

/// A table that refers to methods by their number.
struct Referrer {
    std::optional<bool> (*hasRows)(CNbCwDB& database, const std::string& condition);
    std::string (*condition)(std::string_view number);
};

constexpr std::array referrers{
    Referrer{hasRows<_UnregSubInfo>, settle_sql::ofNumber},
    Referrer{hasRows<_RegSubInfo>, settle_sql::ofNumber},
    Referrer{hasRows<_RecpBankInfo>, settle_sql::ofNoteMethod},
};

/// Nothing when a table cannot be read.
std::optional<bool> isNumberUsed(std::string_view number) {
    for (const Referrer& referrer : referrers) {
        const auto found = referrer.hasRows(*g_pDB, referrer.condition(number));
        if (!found || *found) return found;
    }
    return false;
}

std::string wordsOf(const _SettleInfo& method) {
    const std::string text = settleLeafText(method);
    return settleInput(method).usesChequeRegister ? fmt::format(settle_texts::withRegister, text)
                                                  : text;
}

UntoldOutcome readMethod(int id, _SettleInfo& method) {
    _SettleInfo* row = nullptr;
    const UntoldOutcome result =
        outcomeOfRow(g_pDB->Settle_GetInfo(row, id), Notice{.text = settle_texts::gone});
    if (result.outcome != Outcome::done) return result;
    method = *row;
    g_pDB->Settle_ReleaseAllBuffer();
    return result;
}

UntoldOutcome refuseClash(const _SettleInfo& wanted, std::span<const Leaf> leaves) {
    // An answer that cannot be read refuses, too, and is then told as the failure it is.
    bool hasFailed = false;
    const auto hasOther = [&](const std::string& condition) {
        const RowLease<_SettleInfo> lease(*g_pDB, condition.c_str());
        hasFailed = !lease.isRead();
        return hasFailed || std::ranges::any_of(lease.rows(), [&](const _SettleInfo* row) {
                   return row->lId != wanted.lId;
               });
    };
    const auto refusal = firstRefusal(
        settleClashChecks(),
        {.wanted = wanted,
         .leaves = leaves,
         .hasStoredNumber = [&](auto number) { return hasOther(settle_sql::ofNumber(number)); },
         .hasStoredName = [&](auto name) { return hasOther(settle_sql::ofName(name)); }});
    if (hasFailed) return UntoldOutcome::failed();
    return refusal ? UntoldOutcome::refused(refusal->notice) : UntoldOutcome::done();
}

UntoldOutcome addMethod(const _SettleInfo& method, std::span<const Leaf> leaves, int& id) {
    UntoldOutcome result = refuseClash(method, leaves);
    if (result.outcome != Outcome::done) return result;
    return g_pDB->Settle_AddNew(method, id) == 0 ? result : UntoldOutcome::failed();
}

UntoldOutcome modifyMethod(const _SettleInfo& loaded, const _SettleInfo& wanted,
                           std::span<const Leaf> leaves) {
    if (wanted.sStlId != loaded.sStlId) {
        const auto isUsed = isNumberUsed(loaded.sStlId);
        if (!isUsed) return UntoldOutcome::failed();
        if (*isUsed)
            return UntoldOutcome::refused(
                settleNumberRefusal(settle_texts::usedNotModified).notice);
    }
    _SettleInfo stored;
    UntoldOutcome result = readMethod(loaded.lId, stored);
    if (result.outcome == Outcome::stale)
        return UntoldOutcome::stale({.text = settle_texts::goneBelowTyped});
    if (result.outcome != Outcome::done || stored == wanted) return result;
    if (stored != loaded)
        return UntoldOutcome::stale({.text = fmt::format(settle_texts::changedBelowTyped,
                                                         wordsOf(stored), wordsOf(wanted))});
    result = refuseClash(wanted, leaves);
    if (result.outcome != Outcome::done) return result;
    return outcomeOfRow(g_pDB->Settle_Edit(wanted), {.text = settle_texts::gone});
}

UntoldOutcome deleteMethod(const _SettleInfo& loaded) {
    const int existence = SettleIsExist(loaded.sStlId);
    if (existence < 0) return UntoldOutcome::failed();
    _SettleInfo stored;
    const UntoldOutcome result = readMethod(loaded.lId, stored);
    // Deleted already, as the operator wants it: there is nothing to say.
    if (result.outcome == Outcome::stale) return {Outcome::stale};
    if (result.outcome != Outcome::done) return result;
    if (existence != 0 || stored != loaded)
        return UntoldOutcome::stale({.text = settle_texts::changed});
    const auto isUsed = isNumberUsed(stored.sStlId);
    if (!isUsed) return UntoldOutcome::failed();
    if (*isUsed) return UntoldOutcome::refused({.text = settle_texts::usedNotDeleted});
    return outcomeOfRow(g_pDB->Settle_Delete(stored.lId), {.text = settle_texts::gone});
}

}  // namespace

std::optional<std::vector<_SettleInfo>> SettleService::readAll() {
    if (selectOpenBooks()) {
        const RowLease<_SettleInfo> lease(*g_pDB, settle_sql::inOrder);
        if (lease.isRead()) return lease.copy();
    }
    tellLastFailure(m_messages);
    return std::nullopt;
}

Outcome SettleService::read(int id, _SettleInfo& method, bool& isUsed) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    const UntoldOutcome result = readMethod(id, method);
    if (result.outcome != Outcome::done) return told(m_messages, result);
    const auto found = isNumberUsed(method.sStlId);
    if (!found) return told(m_messages, UntoldOutcome::failed());
    isUsed = *found;
    return Outcome::done;
}

Outcome SettleService::add(_SettleInfo& method, std::span<const Leaf> leaves) {
    int id = 0;
    const Outcome outcome = changeRecords(
        m_messages, lockLists,
        [&] { return fmt::format(settle_texts::loggedAddition, settleLeafText(method)); },
        [&] { return addMethod(method, leaves, id); });
    if (outcome == Outcome::done) method.lId = id;
    return outcome;
}

Outcome SettleService::modify(const _SettleInfo& loaded, const _SettleInfo& wanted,
                              std::span<const Leaf> leaves) {
    return changeRecords(
        m_messages, lockLists,
        [&] {
            return fmt::format(settle_texts::loggedChange,
                               changedName(settleLeafText(loaded), settleLeafText(wanted)));
        },
        [&] { return modifyMethod(loaded, wanted, leaves); });
}

Outcome SettleService::remove(const Leaf* leaf, const _SettleInfo& loaded) {
    if (leaf == nullptr)
        return told(m_messages, UntoldOutcome::refused({.text = settle_texts::nothingSelected}));
    const auto [number, name] = settleLeafParts(leaf->text);
    const Answer answer =
        m_messages.ask({.text = fmt::format(settle_texts::deletion, number, name)});
    if (answer != Answer::yes) return Outcome::refused;
    return changeRecords(
        m_messages, lockLists,
        [&] { return fmt::format(settle_texts::loggedDeletion, settleLeafText(loaded)); },
        [&] { return deleteMethod(loaded); });
}

}  // namespace chengheng
