#include "vouchertype/voucher_type_service.h"

#include <fmt/format.h>

#include <array>

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/lookups/existence.h"
#include "data/tables/definitions.h"
#include "data/tables/vouchers.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "vouchertype/voucher_type_rules.h"
#include "vouchertype/voucher_type_sql.h"
#include "vouchertype/voucher_type_texts.h"

namespace chengheng {
namespace {

namespace texts = voucher_type_texts;

/// Whether the vouchers of a table carry a type.
using HasCarriers = std::optional<bool> (*)(CNbCwDB& database, const std::string& condition);

constexpr std::array<HasCarriers, 3> carriers{hasRows<_UnregMainInfo>, hasRows<_RegMainInfo>,
                                              hasRows<_AutoMainInfo>};

/// Nothing when a table cannot be read.
std::optional<bool> isNumberUsed(std::string_view number) {
    const std::string condition = voucher_type_sql::ofNumber(number);
    for (const HasCarriers hasCarriers : carriers) {
        const auto found = hasCarriers(*g_pDB, condition);
        if (!found || *found) return found;
    }
    return false;
}

/// `whenGone` is told where there is no such type.
UntoldOutcome readType(int id, _SignInfo& type, const char* whenGone) {
    _SignInfo* row = nullptr;
    UntoldOutcome result = outcomeOfRow(g_pDB->Sign_GetInfo(row, id), {.text = whenGone});
    if (result.outcome != Outcome::done) return result;
    type = *row;
    g_pDB->Sign_ReleaseAllBuffer();
    return result;
}

UntoldOutcome check(const _SignInfo& loaded, const _SignInfo& wanted) {
    // An answer that cannot be read refuses, too, and is then told as the failure it is.
    bool hasFailed = false;
    const auto known = [&hasFailed](std::optional<bool> answer, bool whenFailed) {
        hasFailed = !answer;
        return answer.value_or(whenFailed);
    };
    const std::string sameNumber = loaded.lId == 0
                                       ? voucher_type_sql::ofNumber(wanted.sSign)
                                       : voucher_type_sql::ofNewNumber(wanted.sSign, loaded.sSign);
    const auto refusal = firstRefusal(
        voucherTypeChecks(),
        {.wanted = wanted,
         .loaded = loaded,
         .isLoadedUsed = [&] { return known(isNumberUsed(loaded.sSign), true); },
         .isNumberTaken = [&] { return known(hasRows<_SignInfo>(*g_pDB, sameNumber), true); },
         .isFirstLevelAccount =
             [&](std::string_view code) {
                 const auto condition = voucher_type_sql::ofFirstLevelAccount(code);
                 return known(hasRows<_CodeInfo>(*g_pDB, condition), false);
             }});
    if (hasFailed) return UntoldOutcome::failed();
    return refusal ? UntoldOutcome::refused(refusal->notice) : UntoldOutcome::done();
}

UntoldOutcome addType(const _SignInfo& type, int& id) {
    UntoldOutcome result = check({}, type);
    if (result.outcome != Outcome::done) return result;
    return g_pDB->Sign_AddNew(type, id) == 0 ? result : UntoldOutcome::failed();
}

UntoldOutcome modifyType(const _SignInfo& loaded, const _SignInfo& wanted) {
    _SignInfo stored;
    UntoldOutcome result = readType(loaded.lId, stored, texts::goneBelowTyped);
    if (result.outcome != Outcome::done || stored == wanted) return result;
    if (stored != loaded)
        return UntoldOutcome::stale(
            {.text = fmt::format(texts::changedBelowTyped, voucherTypeInWords(stored),
                                 voucherTypeInWords(wanted))});
    result = check(loaded, wanted);
    if (result.outcome != Outcome::done) return result;
    return outcomeOfRow(g_pDB->Sign_Edit(wanted), {.text = texts::goneBelowTyped});
}

UntoldOutcome deleteType(const _SignInfo& confirmed) {
    const int existence = SignIsExist(confirmed.sSign);
    if (existence < 0) return UntoldOutcome::failed();
    _SignInfo stored;
    const UntoldOutcome result = readType(confirmed.lId, stored, texts::gone);
    // Deleted already, as the operator wants it: there is nothing to say.
    if (result.outcome == Outcome::stale) return {Outcome::stale};
    if (result.outcome != Outcome::done) return result;
    if (existence != 0 || stored != confirmed)
        return UntoldOutcome::stale({.text = texts::changed});
    const auto isUsed = isNumberUsed(stored.sSign);
    if (!isUsed) return UntoldOutcome::failed();
    if (*isUsed) return UntoldOutcome::refused({.text = texts::used});
    return outcomeOfRow(g_pDB->Sign_Delete(stored.lId), {.text = texts::gone});
}

template <class Record>
std::optional<std::vector<Record>> readAllOf(IMessages& messages, const char* condition) {
    if (selectOpenBooks()) {
        const RowLease<Record> lease(*g_pDB, condition);
        if (lease.isRead()) return lease.copy();
    }
    tellLastFailure(messages);
    return std::nullopt;
}

}  // namespace

std::optional<std::vector<_SignInfo>> VoucherTypeService::readAll() {
    return readAllOf<_SignInfo>(m_messages, voucher_type_sql::inOrder);
}

std::optional<std::vector<_CodeInfo>> VoucherTypeService::firstLevelAccounts() {
    return readAllOf<_CodeInfo>(m_messages, voucher_type_sql::firstLevelInOrder);
}

Outcome VoucherTypeService::read(int id, _SignInfo& type, bool& isUsed) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    const UntoldOutcome result = readType(id, type, texts::gone);
    if (result.outcome != Outcome::done) return told(m_messages, result);
    const auto found = isNumberUsed(type.sSign);
    if (!found) return told(m_messages, UntoldOutcome::failed());
    isUsed = *found;
    return Outcome::done;
}

Outcome VoucherTypeService::add(_SignInfo& type) {
    int id = 0;
    const Outcome outcome = changeRecords(
        m_messages, voucherTypeLocks,
        [&] { return fmt::format(texts::loggedAddition, voucherTypeLeafText(type)); },
        [&] { return addType(type, id); });
    if (outcome == Outcome::done) type.lId = id;
    return outcome;
}

Outcome VoucherTypeService::modify(const _SignInfo& loaded, const _SignInfo& wanted) {
    return changeRecords(
        m_messages, voucherTypeLocks,
        [&] {
            return fmt::format(texts::loggedChange, changedName(voucherTypeLeafText(loaded),
                                                                voucherTypeLeafText(wanted)));
        },
        [&] { return modifyType(loaded, wanted); });
}

Outcome VoucherTypeService::remove(int id) {
    if (id == 0) return told(m_messages, UntoldOutcome::refused({.text = texts::nothingSelected}));
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    _SignInfo stored;
    const UntoldOutcome there = readType(id, stored, texts::gone);
    if (there.outcome != Outcome::done) return told(m_messages, there);
    const Answer answer =
        m_messages.ask({.text = fmt::format(texts::deletion, stored.sSign, stored.sSignName)});
    if (answer != Answer::yes) return Outcome::refused;
    return changeRecords(
        m_messages, voucherTypeLocks,
        [&] { return fmt::format(texts::loggedDeletion, voucherTypeLeafText(stored)); },
        [&] { return deleteType(stored); });
}

}  // namespace chengheng
