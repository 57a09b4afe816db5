#include "accounts/window/used_window.h"

#include <fmt/format.h>

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>

#include "accounts/screen/chart_texts.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr QSize usedWindowSize(800, 420);
constexpr int placesWidth = 180;
constexpr int columnCharacters = 6;

/// Whether a column holds amounts, told by its first cell: "1,234.50".
bool holdsAmounts(const UseSection& section, std::size_t column) {
    if (section.rows.empty() || column >= section.rows.front().size()) return false;
    const std::string& cell = section.rows.front()[column];
    return cell.find('.') != cell.npos && cell.find_first_not_of("-0123456789,.") == cell.npos;
}

std::vector<GridColumn> columnsOf(const UseSection& section) {
    std::vector<GridColumn> columns;
    for (const std::string& heading : section.headings) {
        const bool isAmount = holdsAmounts(section, columns.size());
        columns.push_back({heading.c_str(), columnCharacters,
                           isAmount ? CellAlignment::number : CellAlignment::text});
    }
    return columns;
}

}  // namespace

/// What stands in one place.
class UseRows final : public GridModel {
  public:
    explicit UseRows(const UseSection& section)
        : GridModel({}), m_section(section), m_columns(columnsOf(section)) {
        setGridColumns(m_columns);
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_section.rows.size());
    }

  protected:
    QString text(int row, int column) const override {
        const auto& cells = m_section.rows[static_cast<std::size_t>(row)];
        const auto place = static_cast<std::size_t>(column);
        return place < cells.size() ? shown(cells[place]) : QString();
    }

  private:
    const UseSection& m_section;
    std::vector<GridColumn> m_columns;
};

UsedWindow::UsedWindow(std::string code, QWidget* parent)
    : CNxMiddleDialog(parent), m_code(std::move(code)) {
    setWindowTitle(shown(chart_texts::usedTitle));
}

UsedWindow::~UsedWindow() = default;

bool UsedWindow::OnInitDialog() {
    if (!SelectDatabase() || !findUses(m_code, m_sections)) {
        TellFailure();
        EndDialog(Rejected);
        return false;
    }
    buildControls();
    resize(usedWindowSize);
    return true;
}

void UsedWindow::buildControls() {
    auto* rows = new QVBoxLayout(this);
    if (m_sections.empty()) {
        rows->addWidget(makeLabel(fmt::format(chart_texts::usedNowhere, m_code)), 1,
                        Qt::AlignCenter);
    } else {
        rows->addWidget(makeLabel(fmt::format(chart_texts::usedHeading, m_code)));
        rows->addLayout(buildPlaces(), 1);
        rows->addWidget(m_more);
        m_places->setCurrentIndex(m_places->model()->index(0, 0));
    }
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(shown(chart_texts::close), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
    rows->addWidget(buttons);
}

QLabel* UsedWindow::makeLabel(const std::string& text) {
    auto* label = new QLabel(shown(text), this);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLayout* UsedWindow::buildPlaces() {
    m_more = makeLabel({});
    QStringList titles;
    for (const UseSection& section : m_sections)
        titles.append(shown(fmt::format(chart_texts::usedPlace, section.title, section.count)));
    m_places = new QListView(this);
    m_places->setModel(new QStringListModel(titles, this));
    m_places->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_places->setAccessibleName(shown(chart_texts::usedPlaces));
    m_places->setFixedWidth(placesWidth);
    m_grid = new CVCF1(shown(chart_texts::usedRows), CVCF1::Unit::row, this);
    connect(m_places->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { showPlace(current.row()); });

    auto* columns = new QHBoxLayout;
    columns->addWidget(m_places);
    columns->addWidget(m_grid, 1);
    return columns;
}

void UsedWindow::showPlace(int place) {
    if (place < 0) return;
    const UseSection& section = m_sections[static_cast<std::size_t>(place)];
    auto rows = std::make_unique<UseRows>(section);
    m_grid->setGridModel(rows.get());
    m_rows = std::move(rows);
    m_grid->setCurrentRow(0);
    const int listed = m_rows->rowCount();
    m_more->setText(listed < section.count
                        ? shown(fmt::format(chart_texts::usedMore, section.count, listed))
                        : QString());
    m_more->setVisible(!m_more->text().isEmpty());
}

}  // namespace chengheng
