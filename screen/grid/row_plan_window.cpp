#include "screen/grid/row_plan_window.h"

#include <fmt/format.h>

#include <QCoreApplication>

#include "screen/shown.h"
#include "screen/wait_window.h"
#include "sheets/plan_texts.h"

namespace chengheng {
namespace {

namespace texts = plan_texts;

constexpr QSize windowSize(860, 520);
constexpr std::size_t paintedRows = 64;

/// Why a row is refused, or what the import will ask about it.
std::string remarkOf(const PlannedRow& row) {
    if (row.fate == RowFate::refused) return row.reason;
    return fmt::format("{}", fmt::join(row.questions, " "));
}

class PlannedRows final : public PlanModel {
  public:
    PlannedRows(const RowPlan& plan, const RowPlanWords& words)
        : PlanModel(std::span<const GridColumn>()),
          m_plan(plan),
          m_columns{GridColumn{texts::rowColumn, 6, CellAlignment::number},
                    GridColumn{texts::fateColumn, 8, CellAlignment::centre},
                    GridColumn{words.code, 18},
                    GridColumn{words.name, 30},
                    GridColumn{texts::placeColumn, 16},
                    GridColumn{texts::remarkColumn, 40}} {
        setGridColumns(m_columns);
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_plan.rows.size());
    }
    bool isRefused(int row) const override { return planned(row).fate == RowFate::refused; }
    bool isQuestionable(int row) const override { return !planned(row).questions.empty(); }

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

    const RowPlan& m_plan;
    const std::vector<GridColumn> m_columns;
};

const char* adviceOn(const RowPlan& plan, const char* ready) {
    if (!plan.isAcceptable()) return texts::isRefused;
    return plan.changesSomething() ? ready : texts::hasNothingNew;
}

PlanContent contentOf(const RowPlanWords& words, const RowPlan& plan, const std::string& file) {
    PlanContent content{
        .title = words.title,
        .above = {words.source.empty() ? fmt::format(texts::file, file) : words.source,
                  fmt::format(texts::summary, plan.count(RowFate::added),
                              plan.count(RowFate::changed), plan.count(RowFate::unchanged),
                              plan.count(RowFate::refused))},
        .rowsName = texts::rows,
        .apply = words.button,
        .mayBeApplied = plan.isAcceptable() && plan.changesSomething()};
    if (!plan.ignored.empty())
        content.below.push_back(
            fmt::format(texts::ignored, fmt::join(plan.ignored, texts::listSeparator)));
    content.below.emplace_back(adviceOn(plan, words.ready));
    return content;
}

}  // namespace

RowPlanWindow::RowPlanWindow(RowPlanWords words, const RowPlan& plan, const std::string& file,
                             Apply apply, QWidget* parent)
    : PlanWindow(contentOf(words, plan, file), std::make_unique<PlannedRows>(plan, words), parent),
      m_words(std::move(words)),
      m_apply(std::move(apply)) {
    resize(windowSize);
}

void RowPlanWindow::apply() {
    Outcome outcome = Outcome::failed;
    {
        // Up from the first row on, so that it does not lie over what is asked before.
        std::unique_ptr<WaitWindow> wait;
        outcome = m_apply([this, &wait](std::size_t done, std::size_t) {
            if (!wait) wait = std::make_unique<WaitWindow>(shown(m_words.working), this);
            if (done % paintedRows == 0)
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            return true;
        });
    }
    if (outcome == Outcome::refused) return;
    if (outcome == Outcome::done && !m_words.done.empty()) messages().tell({.text = m_words.done});
    EndDialog(outcome == Outcome::done ? Accepted : Rejected);
}

}  // namespace chengheng
