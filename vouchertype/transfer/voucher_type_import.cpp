#include "vouchertype/transfer/voucher_type_import.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"
#include "session/open_books.h"
#include "sheets/files/plan_import.h"
#include "sheets/files/sheet_export.h"
#include "vouchertype/transfer/voucher_type_sheet.h"
#include "vouchertype/transfer/voucher_type_transfer_texts.h"
#include "vouchertype/voucher_type_service.h"
#include "vouchertype/voucher_type_sql.h"
#include "vouchertype/voucher_type_texts.h"

namespace chengheng {
namespace {

bool readTypes(std::vector<_SignInfo>& types) {
    const RowLease<_SignInfo> lease(*g_pDB, voucher_type_sql::inOrder);
    types = lease.copy();
    return lease.isRead();
}

/// False when a table cannot be read.
bool readState(VoucherTypeState& state) {
    if (!readTypes(state.types)) return false;
    const RowLease<_CodeInfo> accounts(*g_pDB, voucher_type_sql::firstLevelInOrder);
    for (const _CodeInfo* account : accounts.rows())
        state.firstLevelAccounts.push_back(account->sCode);
    return accounts.isRead();
}

bool goesOn(const ImportProgress& progress, std::size_t done, std::size_t total) {
    return !progress || progress(done, total);
}

UntoldOutcome cancelled() {
    return UntoldOutcome::refused({.text = voucher_type_transfer_texts::cancelled});
}

UntoldOutcome write(VoucherTypePlan plan, const ImportProgress& progress) {
    const std::size_t total = plan.added.size() + plan.changed.size();
    std::size_t done = plan.added.size();
    if (!goesOn(progress, 0, total)) return cancelled();
    if (!plan.added.empty() && g_pDB->addAll<_SignInfo>(plan.added) != 0)
        return UntoldOutcome::failed();
    if (!goesOn(progress, done, total)) return cancelled();
    for (const _SignInfo& type : plan.changed) {
        if (g_pDB->Sign_Edit(type) != 0) return UntoldOutcome::failed();
        if (!goesOn(progress, ++done, total)) return cancelled();
    }
    return UntoldOutcome::done();
}

}  // namespace

std::optional<VoucherTypePlan> VoucherTypeImport::plan(const std::string& path) {
    auto sheet = readSheetToImport(m_messages, path);
    return sheet ? plan(std::move(*sheet), path) : std::nullopt;
}

std::optional<VoucherTypePlan> VoucherTypeImport::plan(Sheet sheet, const std::string& name) {
    if (auto failure = m_sheet.read(std::move(sheet), voucher_type_columns::wanted)) {
        m_messages.tell(sheetWarning(whileReading(std::move(*failure), name).text()));
        return std::nullopt;
    }
    m_state = {};
    if (!selectOpenBooks() || !readState(m_state)) {
        told(m_messages, UntoldOutcome::failed());
        return std::nullopt;
    }
    return planVoucherTypes(m_sheet, m_state);
}

Outcome VoucherTypeImport::apply(const VoucherTypePlan& plan, const ImportProgress& progress) {
    if (!isAccepted(m_messages, plan)) return Outcome::refused;
    return underLocks(m_messages, voucherTypeLocks,
                      [&] { return applyUnderLocks(plan, progress); });
}

/// Where the books are as they were, so is the plan.
UntoldOutcome VoucherTypeImport::applyUnderLocks(const VoucherTypePlan& plan,
                                                 const ImportProgress& progress) {
    VoucherTypeState state;
    if (!readState(state)) return UntoldOutcome::failed();
    if (state != m_state && planVoucherTypes(m_sheet, state) != plan) return planOutdated();
    return inOneUnit(
        voucherTypeLocks.right,
        [&plan] {
            return importInWords(voucher_type_texts::title, plan.added.size(), plan.changed.size());
        },
        [&] { return write(plan, progress); });
}

Outcome exportVoucherTypes(IMessages& messages, const std::string& path, Overwrite overwrite) {
    std::vector<_SignInfo> types;
    if (!selectOpenBooks() || !readTypes(types)) return told(messages, UntoldOutcome::failed());
    return exportSheet(messages, exportedVoucherTypes(types), path, overwrite);
}

}  // namespace chengheng
