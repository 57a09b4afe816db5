#include "screen/grid/picker_window.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "accounts/codes/mnemonic.h"
#include "base/values/text.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/empty_words.h"
#include "screen/grid/grid_model.h"
#include "screen/screen_texts.h"

namespace chengheng {
namespace {

constexpr QSize openingSize(380, 420);
constexpr std::array pickerColumns{
    GridColumn{screen_texts::pickerCode, 14},
    GridColumn{screen_texts::pickerName, 28},
};

}  // namespace

/// The rows that hold what is wanted.
class PickerRows final : public GridModel {
  public:
    explicit PickerRows(std::vector<PickerRow> rows)
        : GridModel(pickerColumns), m_rows(std::move(rows)) {
        narrow({});
    }
    PickerRows(const char* heading, std::vector<PickerRow> rows) : PickerRows(std::move(rows)) {
        m_onlyColumn.front().header = heading;
        setGridColumns(m_onlyColumn);
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
    }
    void narrow(std::string_view wanted) {
        beginResetModel();
        if (isVisibleAscii(wanted)) readInitials();
        m_shown.clear();
        for (std::size_t position = 0; position < m_rows.size(); ++position)
            if (holds(position, wanted)) m_shown.push_back(position);
        endResetModel();
    }
    bool hasRecords() const { return !m_rows.empty(); }
    void replace(std::vector<PickerRow> rows) {
        m_rows = std::move(rows);
        m_initials.clear();
    }
    int rowOf(std::size_t position) const {
        const auto found = std::ranges::find(m_shown, position);
        return found == m_shown.end() ? -1 : static_cast<int>(found - m_shown.begin());
    }
    /// Position among all rows; -1 where none is shown.
    int positionOf(int row) const {
        return row < 0 || row >= rowCount() ? -1
                                            : static_cast<int>(m_shown[static_cast<size_t>(row)]);
    }

  protected:
    QString text(int row, int column) const override {
        const PickerRow& shown = m_rows[m_shown[static_cast<std::size_t>(row)]];
        if (columnCount() == 1) return QString::fromStdString(shown.code + "  " + shown.name);
        return QString::fromStdString(column == 0 ? shown.code : shown.name);
    }

  private:
    /// Once, and only when somebody types what may be initials.
    void readInitials() {
        if (m_initials.size() == m_rows.size()) return;
        for (const PickerRow& row : m_rows) m_initials.push_back(initialsOf(row.name));
    }
    bool holds(std::size_t position, std::string_view wanted) const {
        const PickerRow& row = m_rows[position];
        return containsInAnyCase(row.code, wanted) || containsInAnyCase(row.name, wanted) ||
               (position < m_initials.size() && isVisibleAscii(wanted) &&
                containsInAnyCase(m_initials[position], wanted));
    }

    std::array<GridColumn, 1> m_onlyColumn{{{"", 42}}};
    std::vector<PickerRow> m_rows;
    std::vector<std::string> m_initials;  ///< of their names; empty until they are needed
    std::vector<std::size_t> m_shown;
};

PickerWindow::PickerWindow(const QString& title, std::vector<PickerRow> rows, QWidget* parent)
    : PickerWindow(title, std::make_unique<PickerRows>(std::move(rows)), parent) {}

PickerWindow::PickerWindow(const QString& title, const char* heading, std::vector<PickerRow> rows,
                           QWidget* parent)
    : PickerWindow(title, std::make_unique<PickerRows>(heading, std::move(rows)), parent) {}

PickerWindow::PickerWindow(const QString& title, std::unique_ptr<PickerRows> rows, QWidget* parent)
    : DialogFrame(parent),
      m_rows(std::move(rows)),
      m_grid(new CVCF1(title, CVCF1::Unit::row, this)),
      m_wanted(new QLineEdit(this)) {
    setWindowTitle(title);
    resize(openingSize);
    buildControls();
    explainNothing();
}

PickerWindow::~PickerWindow() = default;

void PickerWindow::buildControls() {
    auto* label = new QLabel(QString::fromUtf8(screen_texts::pickerSearch), this);
    label->setBuddy(m_wanted);
    m_grid->setGridModel(m_rows.get());
    m_emptyWords = new EmptyWords(*m_grid);
    m_buttons = makeConfirmation();
    auto* search = new QHBoxLayout;
    search->addWidget(label);
    search->addWidget(m_wanted);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(search);
    rows->addWidget(m_grid, 1);
    rows->addWidget(m_buttons);
    connect(m_wanted, &QLineEdit::textChanged, this, &PickerWindow::narrow);
    connect(m_grid, &CVCF1::doubleClicked, this, [this] { EndDialog(Accepted); });
    connect(m_grid, &CVCF1::keyDown, this, [this](int key) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter) EndDialog(Accepted);
    });
    connect(m_grid, &CVCF1::textTyped, this, [this](const QString& text) {
        m_wanted->setFocus();
        m_wanted->setText(text);
    });
    m_grid->setFocus();
}

void PickerWindow::narrow(const QString& wanted) {
    m_rows->narrow(wanted.trimmed().toStdString());
    explainNothing();
    m_grid->setCurrentRow(0);
}

void PickerWindow::setWordsWhenEmpty(const QString& words) {
    m_wordsWhenEmpty = words;
    explainNothing();
}

void PickerWindow::explainNothing() {
    const char* const nothing =
        m_rows->hasRecords() ? screen_texts::pickerNotFound : screen_texts::pickerEmpty;
    const bool isOwn = !m_rows->hasRecords() && !m_wordsWhenEmpty.isEmpty();
    m_emptyWords->setWords(isOwn ? m_wordsWhenEmpty : QString::fromUtf8(nothing));
}

void PickerWindow::addCommand(const QString& text,
                              std::function<std::optional<PickerChange>()> work,
                              Afterwards afterwards) {
    auto* button = m_buttons->addButton(text, QDialogButtonBox::ActionRole);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this,
            guarded([this, work = std::move(work), afterwards] {
                if (auto change = work()) take(std::move(*change), afterwards);
            }));
}

/// What is looked for stays, unless it would hide the record that was chosen.
void PickerWindow::take(PickerChange change, Afterwards afterwards) {
    const int row = m_grid->currentRow();
    m_rows->replace(std::move(change.rows));
    m_rows->narrow(m_wanted->text().trimmed().toStdString());
    explainNothing();
    if (change.chosen < 0) return m_grid->setCurrentRow(std::min(row, m_rows->rowCount() - 1));
    const auto chosen = static_cast<std::size_t>(change.chosen);
    if (m_rows->rowOf(chosen) < 0) m_wanted->clear();
    m_grid->setCurrentRow(m_rows->rowOf(chosen));
    m_grid->setFocus();
    if (afterwards == Afterwards::takeTheChosen) EndDialog(Accepted);
}

int PickerWindow::choose(int current) {
    m_grid->setCurrentRow(std::max(0, current));
    return DoModal() == Accepted ? selected() : -1;
}

int PickerWindow::selected() const { return m_rows->positionOf(m_grid->currentRow()); }

}  // namespace chengheng
