#include "opening/window/figure_plan_window.h"

#include <fmt/format.h>

#include <QPushButton>
#include <array>

#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"
#include "screen/shown.h"
#include "sheets/sheet.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

constexpr QSize planWindowSize(1040, 520);
constexpr std::array planColumns{
    GridColumn{texts::planCell, 8},
    GridColumn{texts::planHeading, 14},
    GridColumn{texts::planFate, 6, CellAlignment::centre},
    GridColumn{texts::code, 14},
    GridColumn{texts::name, 20},
    GridColumn{texts::planContent, 16},
    GridColumn{texts::planBefore, 18, CellAlignment::number},
    GridColumn{texts::planAfter, 18, CellAlignment::number},
    GridColumn{texts::planRemark, 26},
};

const char* fateTitle(CellFate fate) {
    switch (fate) {
        case CellFate::changed:
            return texts::fateChanged;
        case CellFate::unchanged:
            return texts::fateUnchanged;
        case CellFate::ignored:
            return texts::fateIgnored;
        case CellFate::refused:
            break;
    }
    return texts::fateRefused;
}

std::string amountText(const PlannedCell& cell, double amount) {
    return cell.fate == CellFate::changed ? ftoaWithSap(amount, decimalsOf(cell.figure.measure))
                                          : std::string();
}

const char* adviceOn(const FigurePlan& plan) {
    if (plan.count(CellFate::refused) > 0) return texts::planRefused;
    return plan.mayBeApplied() ? texts::planReady : texts::planHasNothing;
}

class PlannedFigures final : public PlanModel {
  public:
    explicit PlannedFigures(const FigurePlan& plan) : PlanModel(planColumns), m_plan(plan) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_plan.cells.size());
    }
    bool isRefused(int row) const override { return cellAt(row).fate == CellFate::refused; }

  protected:
    QString text(int row, int column) const override {
        const PlannedCell& cell = cellAt(row);
        switch (column) {
            case 0:
                return shown(cellAddress(cell.row + 1, cell.column + 1));
            case 1:
                return shown(cell.heading);
            case 2:
                return shown(fateTitle(cell.fate));
            case 3:
                return shown(cell.code);
            case 4:
                return shown(cell.name);
            case 5:
                return shown(cell.text);
            case 6:
                return shown(amountText(cell, cell.before));
            case 7:
                return shown(amountText(cell, cell.figure.value));
            default:
                return shown(cell.disagrees ? texts::figuresDisagreeHere : cell.reason);
        }
    }

  private:
    const PlannedCell& cellAt(int row) const { return m_plan.cells[static_cast<std::size_t>(row)]; }

    const FigurePlan& m_plan;
};

PlanContent contentOf(const char* title, const std::string& heading, const FigurePlan& plan) {
    PlanContent content{.title = title,
                        .rowsName = texts::planCells,
                        .below = {adviceOn(plan)},
                        .apply = texts::planApply,
                        .mayBeApplied = plan.mayBeApplied()};
    if (!heading.empty()) content.above.push_back(heading);
    content.above.push_back(fmt::format(
        texts::planSummary, plan.count(CellFate::changed), plan.count(CellFate::unchanged),
        plan.count(CellFate::ignored), plan.count(CellFate::refused)));
    return content;
}

}  // namespace

FigurePlanWindow::FigurePlanWindow(const char* title, const std::string& heading,
                                   const FigurePlan& plan, QWidget* parent)
    : PlanWindow(contentOf(title, heading, plan), std::make_unique<PlannedFigures>(plan), parent) {
    resize(planWindowSize);
    if (plan.mayBeApplied()) applyButton().setFocus();
}

}  // namespace chengheng
