#include "accounts/transfer/chart_import.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "accounts/changing/account_locks.h"
#include "accounts/changing/chart_writing.h"
#include "accounts/chart/account_sql.h"
#include "accounts/transfer/import_texts.h"
#include "base/values/text.h"
#include "data/access/host_database.h"
#include "data/tables/accounts.h"
#include "session/open_books.h"
#include "sheets/files/sheet_files.h"
#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

namespace texts = import_texts;

constexpr std::size_t rowsAtOnce = 500;

Result refusal(std::string text) {
    return Result::refused({.text = std::move(text), .icon = MessageIcon::warning, .beep = true});
}

Result runBatch(const std::string& batch) {
    return g_pDB->QRYExecuteSQL(batch) != 0 ? Result::done() : Result::failed();
}

/// Writes a plan step by step and tells how far it is.
class PlanWriter {
  public:
    PlanWriter(const ImportPlan& plan, const ImportProgress& progress)
        : m_plan(plan), m_progress(progress) {}

    Result write() {
        return inTurn({[this] { return tellProgress(0); }, [this] { return writeAdded(); },
                       [this] { return writeChanged(); }});
    }

  private:
    Result tellProgress(std::size_t more) {
        m_done += more;
        const std::size_t total = m_plan.added.size() + m_plan.changed.size();
        if (!m_progress || m_progress(m_done, total)) return Result::done();
        return Result::refused({.text = texts::importCancelled});
    }

    Result writeAdded() {
        if (m_plan.added.empty()) return Result::done();
        int lastId = g_pDB->Code_GetLastId();
        if (!g_pDB->lastStatus()) return Result::failed();
        std::span<const _CodeInfo> left = m_plan.added;
        while (!left.empty()) {
            const auto part = left.first(std::min(rowsAtOnce, left.size()));
            Result result = runBatch(account_sql::addAccounts(part, lastId + 1));
            if (result.outcome == Outcome::done) result = tellProgress(part.size());
            if (result.outcome != Outcome::done) return result;
            lastId += static_cast<int>(part.size());
            left = left.subspan(part.size());
        }
        return runBatch(account_sql::setLastAccountId(lastId));
    }

    Result writeChanged() {
        for (const _CodeInfo& account : m_plan.changed) {
            Result result = editAccount(account);
            if (result.outcome == Outcome::done) result = tellProgress(1);
            if (result.outcome != Outcome::done) return result;
        }
        return Result::done();
    }

    const ImportPlan& m_plan;
    const ImportProgress& m_progress;
    std::size_t m_done = 0;
};

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
        told(m_messages, Result::failed());
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

Result ChartImport::applyUnderLocks(const ImportPlan& plan, const ImportProgress& progress) {
    ChartState state;
    if (!readChartState(*g_pDB, state)) return Result::failed();
    if (planImport(m_sheet, state) != plan)
        return Result::stale(
            {.text = texts::planOutdated, .icon = MessageIcon::warning, .beep = true});
    return inOneUnit([&] { return PlanWriter(plan, progress).write(); });
}

Outcome exportChart(IMessages& messages, const std::string& path) {
    if (!isSheetName(path))
        return told(messages, refusal(fmt::format(sheet_texts::fileKindUnknown, path)));
    ChartState state;
    if (!selectOpenBooks() || !readChartState(*g_pDB, state))
        return told(messages, Result::failed());
    const Sheet sheet = chartSheet(state.accounts, state.currencies);
    const auto failure = writeSheet(sheet, path);
    if (!failure) return Outcome::done;
    return told(messages,
                {Outcome::failed,
                 Notice{.text = failure->text(), .icon = MessageIcon::warning, .beep = true}});
}

}  // namespace chengheng
