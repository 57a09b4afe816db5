#include "opening/window/figure_plan_window.h"

#include <fmt/format.h>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"
#include "screen/colours.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"
#include "screen/screen_texts.h"
#include "screen/shown.h"
#include "sheets/sheet.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

constexpr int planTemplate = 127;
constexpr QSize planWindowSize(900, 520);
constexpr std::array planColumns{
    GridColumn{"单元格", 8},
    GridColumn{"结果", 6, CellAlignment::centre},
    GridColumn{"科目编码", 14},
    GridColumn{"内容", 16},
    GridColumn{"原来", 18, CellAlignment::number},
    GridColumn{"改为", 18, CellAlignment::number},
    GridColumn{"说明", 26},
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

QLabel* plainLabel(const std::string& text, QWidget* parent) {
    auto* label = new QLabel(shown(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

const char* adviceOn(const FigurePlan& plan) {
    if (plan.count(CellFate::refused) > 0) return texts::planRefused;
    return plan.mayBeApplied() ? texts::planReady : texts::planHasNothing;
}

}  // namespace

/// The cells of a plan; those refused stand out.
class PlannedFigures final : public GridModel {
  public:
    explicit PlannedFigures(const FigurePlan& plan) : GridModel(planColumns), m_plan(plan) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_plan.cells.size());
    }

  protected:
    QString text(int row, int column) const override {
        const PlannedCell& cell = m_plan.cells[static_cast<std::size_t>(row)];
        switch (column) {
            case 0:
                return shown(columnLetters(cell.column + 1) + std::to_string(cell.row + 1));
            case 1:
                return shown(fateTitle(cell.fate));
            case 2:
                return shown(cell.code);
            case 3:
                return shown(cell.text);
            case 4:
                return shown(amountText(cell, cell.before));
            case 5:
                return shown(amountText(cell, cell.figure.value));
            default:
                return shown(cell.reason);
        }
    }
    QColor foreground(int row, int) const override {
        const bool isRefused =
            m_plan.cells[static_cast<std::size_t>(row)].fate == CellFate::refused;
        return isRefused ? colours::seal : QColor();
    }

  private:
    const FigurePlan& m_plan;
};

FigurePlanWindow::FigurePlanWindow(const char* title, const std::string& heading,
                                   const FigurePlan& plan, QWidget* parent)
    : CNxMiddleDialog(planTemplate, parent),
      m_plan(plan),
      m_rows(std::make_unique<PlannedFigures>(m_plan)) {
    setWindowTitle(shown(title));
    buildControls(heading);
    resize(planWindowSize);
}

FigurePlanWindow::~FigurePlanWindow() = default;

void FigurePlanWindow::buildControls(const std::string& heading) {
    auto* grid = new CVCF1(shown(texts::planCells), CVCF1::Unit::row, this);
    grid->setGridModel(m_rows.get());
    grid->horizontalHeader()->setStretchLastSection(true);
    const auto refused = std::ranges::find(m_plan.cells, CellFate::refused, &PlannedCell::fate);
    const bool hasRefused = refused != m_plan.cells.end();
    grid->setCurrentRow(hasRefused ? static_cast<int>(refused - m_plan.cells.begin()) : 0);

    auto* buttons = new QDialogButtonBox(this);
    auto* applies = buttons->addButton(shown(texts::planApply), QDialogButtonBox::AcceptRole);
    applies->setEnabled(m_plan.mayBeApplied());
    applies->setDefault(m_plan.mayBeApplied());
    buttons->addButton(shown(screen_texts::cancel), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { EndDialog(Accepted); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });

    auto* rows = new QVBoxLayout(this);
    if (!heading.empty()) rows->addWidget(plainLabel(heading, this));
    rows->addWidget(
        plainLabel(fmt::format(fmt::runtime(texts::planSummary), m_plan.count(CellFate::changed),
                               m_plan.count(CellFate::unchanged), m_plan.count(CellFate::ignored),
                               m_plan.count(CellFate::refused)),
                   this));
    rows->addWidget(grid, 1);
    rows->addWidget(plainLabel(adviceOn(m_plan), this));
    rows->addWidget(buttons);
    if (m_plan.mayBeApplied()) applies->setFocus();
}

}  // namespace chengheng
