#include "accounts/window/import_window.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "accounts/transfer/import_texts.h"
#include "screen/colours.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"
#include "screen/screen_texts.h"
#include "screen/shown.h"
#include "screen/wait_window.h"

namespace chengheng {
namespace {

constexpr int importTemplate = 132;
constexpr QSize importWindowSize(860, 520);
constexpr std::size_t paintedRows = 64;
constexpr std::array planColumns{
    GridColumn{"行", 6, CellAlignment::number},
    GridColumn{"结果", 8, CellAlignment::centre},
    GridColumn{"科目编码", 18},
    GridColumn{"科目名称", 30},
    GridColumn{"说明", 40},
};

template <class... Values>
std::string filled(const char* text, const Values&... values) {
    return fmt::format(fmt::runtime(text), values...);
}

/// Why a row is refused, or what the import will ask about it.
std::string remarkOf(const PlannedRow& row) {
    if (row.fate == RowFate::refused) return refusalText(row);
    return fmt::format("{}", fmt::join(row.questions, " "));
}

QLabel* plainLabel(const std::string& text, QWidget* parent) {
    auto* label = new QLabel(shown(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

/// The rows of a plan; those refused stand out.
class PlannedRows final : public GridModel {
  public:
    explicit PlannedRows(const ImportPlan& plan) : GridModel(planColumns), m_plan(plan) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_plan.rows.size());
    }

  protected:
    QString text(int row, int column) const override {
        const PlannedRow& planned = m_plan.rows[static_cast<std::size_t>(row)];
        switch (column) {
            case 0:
                return QString::number(planned.row);
            case 1:
                return shown(fateTitle(planned.fate));
            case 2:
                return shown(planned.code);
            case 3:
                return shown(planned.name);
            default:
                return shown(remarkOf(planned));
        }
    }
    QColor foreground(int row, int) const override {
        const bool isRefused = m_plan.rows[static_cast<std::size_t>(row)].fate == RowFate::refused;
        return isRefused ? colours::seal : QColor();
    }

  private:
    const ImportPlan& m_plan;
};

ImportWindow::ImportWindow(ChartImport& import, ImportPlan plan, const std::string& file,
                           QWidget* parent)
    : CNxMiddleDialog(importTemplate, parent),
      m_import(import),
      m_plan(std::move(plan)),
      m_rows(std::make_unique<PlannedRows>(m_plan)) {
    setWindowTitle(shown(import_texts::title));
    buildControls(file);
    resize(importWindowSize);
}

ImportWindow::~ImportWindow() = default;

std::string ImportWindow::advice() const {
    if (!m_plan.isAcceptable()) return import_texts::isRefused;
    const bool hasWork = !m_plan.added.empty() || !m_plan.changed.empty();
    return hasWork ? import_texts::isReady : import_texts::hasNothingNew;
}

void ImportWindow::buildControls(const std::string& file) {
    auto* grid = new CVCF1(shown(import_texts::rows), CVCF1::Unit::row, this);
    grid->setGridModel(m_rows.get());
    grid->horizontalHeader()->setStretchLastSection(true);
    const auto refused = std::ranges::find(m_plan.rows, RowFate::refused, &PlannedRow::fate);
    const bool hasRefused = refused != m_plan.rows.end();
    grid->setCurrentRow(hasRefused ? static_cast<int>(refused - m_plan.rows.begin()) : 0);

    auto* buttons = new QDialogButtonBox(this);
    auto* applies = buttons->addButton(shown(import_texts::apply), QDialogButtonBox::AcceptRole);
    applies->setEnabled(advice() == import_texts::isReady);
    buttons->addButton(shown(screen_texts::cancel), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, guarded([this] { apply(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });

    auto* rows = new QVBoxLayout(this);
    rows->addWidget(plainLabel(filled(import_texts::file, file), this));
    rows->addWidget(plainLabel(
        filled(import_texts::summary, m_plan.count(RowFate::added), m_plan.count(RowFate::changed),
               m_plan.count(RowFate::unchanged), m_plan.count(RowFate::refused)),
        this));
    rows->addWidget(grid, 1);
    if (!m_plan.ignored.empty())
        rows->addWidget(plainLabel(
            filled(import_texts::ignored, fmt::format("{}", fmt::join(m_plan.ignored, "、"))),
            this));
    rows->addWidget(plainLabel(advice(), this));
    rows->addWidget(buttons);
}

void ImportWindow::apply() {
    Outcome outcome = Outcome::failed;
    {
        // Up from the first row on, so that it does not lie over what is asked before.
        std::unique_ptr<WaitWindow> wait;
        outcome = m_import.apply(m_plan, [this, &wait](std::size_t done, std::size_t) {
            if (!wait) wait = std::make_unique<WaitWindow>(shown(import_texts::working), this);
            if (done % paintedRows == 0)
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            return true;
        });
    }
    if (outcome == Outcome::refused) return;
    if (outcome == Outcome::done)
        messages().tell({.text = filled(import_texts::done, m_plan.count(RowFate::added),
                                        m_plan.count(RowFate::changed))});
    EndDialog(outcome == Outcome::done ? Accepted : Rejected);
}

}  // namespace chengheng
