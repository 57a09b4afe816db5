#include "accounts/transfer/chart_import.h"

#include <fmt/format.h>

#include <algorithm>

#include "accounts/changing/account_locks.h"
#include "accounts/chart/account_texts.h"
#include "accounts/transfer/import_texts.h"
#include "base/values/text.h"
#include "data/access/host_database.h"
#include "session/open_books.h"
#include "sheets/files/sheet_export.h"
#include "sheets/files/sheet_files.h"

namespace chengheng {
namespace {

namespace texts = import_texts;

UntoldOutcome refusal(std::string text) {
    return UntoldOutcome::refused(
        {.text = std::move(text), .icon = MessageIcon::warning, .beep = true});
}

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

std::size_t rowsWithQuestions(const ImportPlan& plan) {
    return static_cast<std::size_t>(std::ranges::count_if(
        plan.rows, [](const PlannedRow& row) { return !row.questions.empty(); }));
}

}  // namespace

std::optional<ImportPlan> ChartImport::plan(const std::string& path) {
    Sheet sheet;
    if (const auto failure = readSheet(path, sheet)) {
        told(m_messages, refusal(failure->text()));
        return std::nullopt;
    }
    return plan(sheet, path);
}

std::optional<ImportPlan> ChartImport::plan(const Sheet& sheet, const std::string& name) {
    if (auto failure = readChartSheet(sheet, m_sheet)) {
        told(m_messages, refusal(whileReading(std::move(*failure), name).text()));
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
    const std::size_t refused = plan.count(RowFate::refused);
    if (refused > 0) return told(m_messages, refusal(fmt::format(texts::rowsRefused, refused)));
    if (const std::size_t asked = rowsWithQuestions(plan); asked > 0) {
        const Question question{.text = fmt::format(texts::askAcceptance, asked),
                                .buttons = AnswerButtons::okCancel,
                                .icon = MessageIcon::stop,
                                .preset = Answer::cancel};
        if (m_messages.ask(question) != Answer::ok) return Outcome::refused;
    }
    return underLocks(m_messages, account_locks::inOrder,
                      [&] { return applyUnderLocks(plan, progress); });
}

UntoldOutcome ChartImport::applyUnderLocks(const ImportPlan& plan, const ImportProgress& progress) {
    ChartState state;
    if (!readChartState(*g_pDB, state)) return UntoldOutcome::failed();
    if (planImport(m_sheet, state) != plan)
        return UntoldOutcome::stale(
            {.text = texts::planOutdated, .icon = MessageIcon::warning, .beep = true});
    return inOneUnit([&] { return outcomeOf(writePlan(*g_pDB, plan, progress)); });
}

Outcome exportChart(IMessages& messages, const std::string& path, Overwrite overwrite) {
    ChartState state;
    if (!selectOpenBooks() || !readChartState(*g_pDB, state))
        return told(messages, UntoldOutcome::failed());
    return exportSheet(messages, chartSheet(state.accounts, state.currencies), path, overwrite);
}

}  // namespace chengheng
