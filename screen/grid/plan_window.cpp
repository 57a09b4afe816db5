#include "screen/grid/plan_window.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "screen/colours.h"
#include "screen/grid/CVCF1.h"
#include "screen/screen_texts.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

void addLines(QVBoxLayout& rows, const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        auto* label = new QLabel(shown(line));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        rows.addWidget(label);
    }
}

int firstRowToLookAt(const PlanModel& rows) {
    int questionable = 0;
    for (int row = rows.rowCount() - 1; row >= 0; --row)
        if (rows.isQuestionable(row)) questionable = row;
    for (int row = 0; row < rows.rowCount(); ++row)
        if (rows.isRefused(row)) return row;
    return questionable;
}

}  // namespace

QColor PlanModel::foreground(int row, int) const {
    return isRefused(row) ? colours::seal : QColor();
}

PlanWindow::PlanWindow(const PlanContent& content, std::unique_ptr<PlanModel> rows, QWidget* parent)
    : CNxMiddleDialog(parent), m_rows(std::move(rows)) {
    setWindowTitle(shown(content.title));
    buildControls(content);
}

PlanWindow::~PlanWindow() = default;

void PlanWindow::buildControls(const PlanContent& content) {
    auto* grid = new CVCF1(shown(content.rowsName), CVCF1::Unit::row, this);
    grid->setGridModel(m_rows.get());
    grid->setCurrentRow(firstRowToLookAt(*m_rows));
    auto* rows = new QVBoxLayout(this);
    addLines(*rows, content.above);
    rows->addWidget(grid, 1);
    addLines(*rows, content.below);
    buildButtons(content);
    rows->addWidget(m_buttons);
}

void PlanWindow::buildButtons(const PlanContent& content) {
    m_buttons = new QDialogButtonBox(this);
    const bool isOnlySeen = content.apply.empty();
    if (!isOnlySeen) {
        m_apply = m_buttons->addButton(shown(content.apply), QDialogButtonBox::AcceptRole);
        m_apply->setEnabled(content.mayBeApplied);
    }
    QPushButton* const reject =
        m_buttons->addButton(shown(isOnlySeen ? screen_texts::close : screen_texts::cancel),
                             QDialogButtonBox::RejectRole);
    if (isOnlySeen) reject->setDefault(true);
    connect(m_buttons, &QDialogButtonBox::accepted, this, guarded([this] { apply(); }));
    connect(m_buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
}

}  // namespace chengheng
