#include "accounts/transfer/chart_import.h"

#include "accounts/changing/account_locks.h"
#include "accounts/chart/account_texts.h"
#include "accounts/transfer/import_texts.h"
#include "data/access/host_database.h"
#include "session/open_books.h"
#include "sheets/files/plan_import.h"
#include "sheets/files/sheet_export.h"

namespace chengheng {
namespace {

namespace texts = import_texts;

/// Of the writing of a plan.
UntoldOutcome outcomeOf(const Status& status) {
    if (status) return UntoldOutcome::done();
    if (status.failure == Failure::cancelled)
        return UntoldOutcome::refused({.text = texts::importCancelled});
    if (status.failure == Failure::missing)
        return UntoldOutcome::stale(
            {.text = account_texts::deletedMeanwhile(status.detail), .beep = true});
    return UntoldOutcome::failed();
}

}  // namespace

std::optional<ImportPlan> ChartImport::plan(const std::string& path) {
    const auto sheet = readSheetToImport(m_messages, path);
    return sheet ? plan(*sheet, path) : std::nullopt;
}

std::optional<ImportPlan> ChartImport::plan(const Sheet& sheet, const std::string& name) {
    if (auto failure = readChartSheet(sheet, m_sheet)) {
        m_messages.tell(sheetWarning(whileReading(std::move(*failure), name).text()));
        return std::nullopt;
    }
    ChartState state;
    if (!selectOpenBooks() || !readChartState(*g_pDB, state)) {
        told(m_messages, UntoldOutcome::failed());
        return std::nullopt;
    }
    return planImport(m_sheet, state);
}

Outcome ChartImport::apply(const ImportPlan& plan, const ImportProgress& progress) {
    if (!isAccepted(m_messages, plan)) return Outcome::refused;
    return underLocks(m_messages, account_locks::inOrder,
                      [&] { return applyUnderLocks(plan, progress); });
}

UntoldOutcome ChartImport::applyUnderLocks(const ImportPlan& plan, const ImportProgress& progress) {
    ChartState state;
    if (!readChartState(*g_pDB, state)) return UntoldOutcome::failed();
    if (planImport(m_sheet, state) != plan) return planOutdated();
    return inOneUnit(
        account_locks::inOrder.right,
        [&plan] {
            return importInWords(texts::chartTitle, plan.added.size(), plan.changed.size());
        },
        [&] { return outcomeOf(writePlan(*g_pDB, plan, progress)); });
}

Outcome exportChart(IMessages& messages, const std::string& path, Overwrite overwrite) {
    ChartState state;
    if (!selectOpenBooks() || !readChartState(*g_pDB, state))
        return told(messages, UntoldOutcome::failed());
    return exportSheet(messages, chartSheet(state.accounts, state.currencies), path, overwrite);
}

}  // namespace chengheng
