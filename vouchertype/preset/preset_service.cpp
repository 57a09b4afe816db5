#include "vouchertype/preset/preset_service.h"

#include <fmt/format.h>

#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/lookups/CGetData.h"
#include "data/tables/accounts.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "vouchertype/preset/preset_sql.h"
#include "vouchertype/preset/preset_texts.h"

namespace chengheng {
namespace {

std::unique_ptr<TableLocks> takeLocks() {
    return std::make_unique<TableLocks>(*g_pDB, "Code", "Sign");
}

/// The code of the first account that meets a condition, empty for none; false when it cannot be
/// read.
bool readCode(const char* condition, std::string& code) {
    const RowLease<_CodeInfo> lease(*g_pDB, condition);
    if (lease.isFound()) code = lease.rows().front()->sCode;
    return lease.isRead();
}

bool readAccounts(PresetAccounts& accounts) {
    return readCode(preset_sql::cashAccount, accounts.cash) &&
           readCode(preset_sql::bankAccount, accounts.bank);
}

UntoldOutcome addTypes(PresetSet set) {
    if (presetRows(set).empty()) return UntoldOutcome::done();
    PresetAccounts accounts;
    if (!readAccounts(accounts)) return UntoldOutcome::failed();
    for (const _SignInfo& type : presetTypes(set, accounts)) {
        int id = 0;
        if (g_pDB->Sign_AddNew(type, id) != 0) return UntoldOutcome::failed();
    }
    return UntoldOutcome::done();
}

std::string typesInWords(PresetSet set) {
    std::string words = preset_texts::logged;
    for (const PresetRow& row : presetRows(set))
        words += fmt::format(" {} {}", row.called.number, row.called.name);
    return words;
}

}  // namespace

std::optional<PresetAccounts> PresetService::accounts() {
    PresetAccounts accounts;
    if (!selectOpenBooks() || !readAccounts(accounts)) return std::nullopt;
    return accounts;
}

UntoldOutcome PresetService::write(PresetSet set) {
    if (!selectOpenBooks()) return UntoldOutcome::failed();
    auto locks = takeLocks();
    if (!locks->areGranted()) return UntoldOutcome::failed();
    if (const UntoldOutcome asked = askedFor(WriteRight::voucherTypes);
        asked.outcome != Outcome::done)
        return asked;
    const int stored = CGetData::LoadSignMemoryMapTable(g_lpszNbZwDBName);
    if (stored < 0) return UntoldOutcome::failed();
    if (stored > 0) {
        if (set == PresetSet::unclassified) {
            m_kept.push_back(std::move(locks));
            m_kept.push_back(takeLocks());
        }
        return UntoldOutcome::refused({.text = preset_texts::alreadySet});
    }
    return inOneUnit(
        WriteRight::voucherTypes, [set] { return typesInWords(set); },
        [set] { return addTypes(set); });
}

Outcome PresetService::finish(PresetSet set) {
    const Outcome outcome = told(m_messages, write(set));
    const bool isWritten = outcome == Outcome::done;
    if (isWritten && CGetData::LoadSignMemoryMapTable(g_lpszNbZwDBName) < 0)
        tellLastFailure(m_messages);
    return outcome;
}

}  // namespace chengheng
