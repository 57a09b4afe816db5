#include "accounts/window/import_window.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <array>

#include "accounts/chart/account_texts.h"
#include "accounts/transfer/import_texts.h"
#include "screen/shown.h"
#include "screen/wait_window.h"

namespace chengheng {
namespace {

namespace texts = import_texts;

constexpr QSize importWindowSize(860, 520);
constexpr std::size_t paintedRows = 64;
constexpr std::array planColumns{
    GridColumn{texts::rowColumn, 6, CellAlignment::number},
    GridColumn{texts::fateColumn, 8, CellAlignment::centre},
    GridColumn{account_texts::codeColumn, 18},
    GridColumn{account_texts::nameColumn, 30},
    GridColumn{texts::placeColumn, 16},
    GridColumn{texts::remarkColumn, 40},
};

/// Why a row is refused, or what the import will ask about it.
std::string remarkOf(const PlannedRow& row) {
    if (row.fate == RowFate::refused) return row.reason;
    return fmt::format("{}", fmt::join(row.questions, " "));
}

class PlannedRows final : public PlanModel {
  public:
    explicit PlannedRows(const ImportPlan& plan) : PlanModel(planColumns), m_plan(plan) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_plan.rows.size());
    }
    bool isRefused(int row) const override { return planned(row).fate == RowFate::refused; }

  protected:
    QString text(int row, int column) const override {
        switch (column) {
            case 0:
                return QString::number(planned(row).row);
            case 1:
                return shown(fateTitle(planned(row).fate));
            case 2:
                return shown(planned(row).code);
            case 3:
                return shown(planned(row).name);
            case 4:
                return shown(refusedPlace(planned(row)));
            default:
                return shown(remarkOf(planned(row)));
        }
    }

  private:
    const PlannedRow& planned(int row) const { return m_plan.rows[static_cast<std::size_t>(row)]; }

    const ImportPlan& m_plan;
};

bool hasWork(const ImportPlan& plan) { return !plan.added.empty() || !plan.changed.empty(); }

const char* adviceOn(const ImportPlan& plan) {
    if (!plan.isAcceptable()) return texts::isRefused;
    return hasWork(plan) ? texts::isReady : texts::hasNothingNew;
}

PlanContent contentOf(const ImportPlan& plan, const std::string& file) {
    PlanContent content{
        .title = texts::title,
        .above = {fmt::format(texts::file, file),
                  fmt::format(texts::summary, plan.count(RowFate::added),
                              plan.count(RowFate::changed), plan.count(RowFate::unchanged),
                              plan.count(RowFate::refused))},
        .rowsName = texts::rows,
        .apply = texts::apply,
        .mayBeApplied = plan.isAcceptable() && hasWork(plan)};
    if (!plan.ignored.empty())
        content.below.push_back(
            fmt::format(texts::ignored, fmt::join(plan.ignored, texts::listSeparator)));
    content.below.emplace_back(adviceOn(plan));
    return content;
}

}  // namespace

ImportWindow::ImportWindow(ChartImport& import, const ImportPlan& plan, const std::string& file,
                           QWidget* parent)
    : PlanWindow(contentOf(plan, file), std::make_unique<PlannedRows>(plan), parent),
      m_import(import),
      m_plan(plan) {
    resize(importWindowSize);
}

void ImportWindow::apply() {
    Outcome outcome = Outcome::failed;
    {
        // Up from the first row on, so that it does not lie over what is asked before.
        std::unique_ptr<WaitWindow> wait;
        outcome = m_import.apply(m_plan, [this, &wait](std::size_t done, std::size_t) {
            if (!wait) wait = std::make_unique<WaitWindow>(shown(texts::working), this);
            if (done % paintedRows == 0)
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            return true;
        });
    }
    if (outcome == Outcome::refused) return;
    if (outcome == Outcome::done)
        messages().tell({.text = fmt::format(texts::done, m_plan.count(RowFate::added),
                                             m_plan.count(RowFate::changed))});
    EndDialog(outcome == Outcome::done ? Accepted : Rejected);
}

}  // namespace chengheng
