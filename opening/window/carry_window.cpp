#include "opening/window/carry_window.h"
#include "opening/window/carry_window_texts.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <utility>
#include <vector>

#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr QSize carryWindowSize(1040, 560);

CellAlignment alignmentOf(const CarryTable::Column& column) {
    if (column.alignment == Alignment::right) return CellAlignment::number;
    return column.alignment == Alignment::center ? CellAlignment::centre : CellAlignment::text;
}

std::vector<GridColumn> columnsOf(const CarryTable& table) {
    std::vector<GridColumn> columns;
    for (const CarryTable::Column& column : table.columns)
        columns.push_back({column.heading, column.width, alignmentOf(column)});
    return columns;
}

/// The table itself lives in the window.
class CarryRows final : public PlanModel {
  public:
    explicit CarryRows(std::shared_ptr<const CarryTable> table)
        : PlanModel(std::span<const GridColumn>()),
          m_columns(columnsOf(*table)),
          m_table(std::move(table)) {
        setGridColumns(m_columns);
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_table->rows.size());
    }
    bool isRefused(int row) const override { return rowAt(row).isInTheWay; }

  protected:
    QString text(int row, int column) const override {
        return shown(rowAt(row).cells[static_cast<std::size_t>(column)]);
    }

  private:
    const CarryTable::Row& rowAt(int row) const {
        return m_table->rows[static_cast<std::size_t>(row)];
    }

    const std::vector<GridColumn> m_columns;
    const std::shared_ptr<const CarryTable> m_table;
};

PlanContent contentOf(const CarryTable& table, bool isQuestion) {
    return {.title = table.title,
            .above = table.above,
            .rowsName = carry_window_texts::carryRows,
            .below = table.below,
            .apply = isQuestion ? carry_window_texts::repeatButton : "",
            .mayBeApplied = isQuestion};
}

}  // namespace

CarryWindow::CarryWindow(std::shared_ptr<const CarryTable> table, std::string question,
                         QWidget* parent)
    : PlanWindow(contentOf(*table, !question.empty()), std::make_unique<CarryRows>(table), parent),
      m_table(std::move(table)),
      m_question(std::move(question)) {
    resize(carryWindowSize);
    const auto add = [this](const char* text, ReportOutput output) {
        auto* const button = buttons().addButton(shown(text), QDialogButtonBox::ActionRole);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, guarded([this, output] { print(output); }));
    };
    add(carry_window_texts::carryPreviewButton, ReportOutput::preview);
    add(carry_window_texts::carryPrintButton, ReportOutput::print);
}

void CarryWindow::apply() {
    if (messages().ask({.text = m_question}) == Answer::yes) EndDialog(Accepted);
}

void CarryWindow::print(ReportOutput output) {
    hostReportPrinter().put(reportOf(*m_table), output);
}

}  // namespace chengheng
