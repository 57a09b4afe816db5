#include "vouchertype/window/trial_grid.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <array>

#include "screen/colours.h"
#include "screen/shown.h"
#include "vouchertype/screen/trial_screen_texts.h"

namespace chengheng {
namespace {

constexpr int longestText = 40;

constexpr std::array trialGridColumns{
    GridColumn{trial_screen_texts::account, 11},
    GridColumn{trial_screen_texts::accountName, 10},
    GridColumn{trial_screen_texts::debit, 13, CellAlignment::number},
    GridColumn{trial_screen_texts::credit, 13, CellAlignment::number},
};
static_assert(trialGridColumns.size() == trialColumns);

class TrialEditor final : public CellEditor {
  public:
    using CellEditor::CellEditor;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        auto* field = qobject_cast<QLineEdit*>(CellEditor::createEditor(parent, option, index));
        if (TrialModel::cellAt(index).column == TrialColumn::account)
            field->setAlignment(Qt::AlignLeft);
        return field;
    }

  protected:
    QLineEdit* makeField(QWidget* parent) const override {
        auto* field = new QLineEdit(parent);
        field->setObjectName(QStringLiteral("trialText"));
        field->setMaxLength(longestText);
        return field;
    }
};

}  // namespace

TrialModel::TrialModel(const TrialScreen& screen, QObject* parent)
    : GridModel(trialGridColumns, parent), m_screen(screen), m_rows(screen.rowCount()) {}

TrialCell TrialModel::cellAt(const QModelIndex& index) {
    return {index.row(), static_cast<TrialColumn>(index.column())};
}

QModelIndex TrialModel::indexOf(const TrialCell& cell) const {
    return index(cell.row, static_cast<int>(cell.column));
}

void TrialModel::show() {
    const int rows = m_screen.rowCount();
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    emit dataChanged(index(0, 0), index(m_rows - 1, trialColumns - 1));
}

void TrialModel::blame(const std::vector<int>& lines) {
    m_blamed = {lines.begin(), lines.end()};
    emit dataChanged(index(0, 0), index(m_rows - 1, trialColumns - 1));
}

int TrialModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_rows; }

Qt::ItemFlags TrialModel::flags(const QModelIndex& index) const {
    const bool isEditable = index.isValid() && TrialScreen::isEditable(cellAt(index));
    return GridModel::flags(index).setFlag(Qt::ItemIsEditable, isEditable);
}

QVariant TrialModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::EditRole && index.isValid()) return shown(m_screen.text(cellAt(index)));
    return GridModel::data(index, role);
}

QString TrialModel::text(int row, int column) const {
    return shown(m_screen.shownText({row, static_cast<TrialColumn>(column)}));
}

QColor TrialModel::foreground(int row, int) const {
    return m_blamed.contains(row + 1) ? colours::seal : QColor();
}

TrialGrid::TrialGrid(TrialScreen& screen, QWidget* parent)
    : CVCF1(shown(trial_screen_texts::lines), Unit::cell, parent),
      m_screen(screen),
      m_model(new TrialModel(screen, this)) {
    setObjectName(QStringLiteral("trialLines"));
    setGridModel(m_model);
    auto* editor = new TrialEditor(this);
    setItemDelegate(editor);
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
    connect(editor, &CellEditor::typed, this,
            [this](const QModelIndex& index, const QString& text) {
                m_screen.type(TrialModel::cellAt(index), text.toStdString());
                emit changed();
            });
    connect(editor, &CellEditor::movedOn, this, &TrialGrid::moveOn);
}

TrialCell TrialGrid::current() const {
    return currentIndex().isValid() ? TrialModel::cellAt(currentIndex()) : TrialCell{};
}

void TrialGrid::goTo(const TrialCell& cell) {
    const QModelIndex index = m_model->indexOf(cell);
    if (!index.isValid()) return;
    setCurrentIndex(index);
    scrollTo(index);
}

void TrialGrid::pasteClipboard() {
    const TrialCell cell = current();
    if (m_screen.paste(cell, QApplication::clipboard()->text().toStdString())) emit changed();
    goTo(cell);
}

void TrialGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        const bool isBack = (event->modifiers() & Qt::ShiftModifier) != 0;
        moveOn(isBack ? NextCell::previousEditable : NextCell::nextEditable);
        event->accept();
    } else if (event->matches(QKeySequence::Paste)) {
        pasteClipboard();
    } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        eraseSelected();
    } else {
        CVCF1::keyPressEvent(event);
    }
}

void TrialGrid::eraseSelected() {
    std::vector<TrialCell> cells;
    for (const QModelIndex& index : selectedIndexes()) cells.push_back(TrialModel::cellAt(index));
    m_screen.erase(cells);
    emit changed();
}

void TrialGrid::moveOn(NextCell to) {
    const TrialCell cell = current();
    const auto beside = [&cell](int rows, int columns) {
        return TrialCell{cell.row + rows,
                         static_cast<TrialColumn>(static_cast<int>(cell.column) + columns)};
    };
    switch (to) {
        case NextCell::nextEditable:
            return goTo(m_screen.afterEnter(cell));
        case NextCell::previousEditable:
            return goTo(m_screen.beforeEnter(cell));
        case NextCell::above:
            return goTo(beside(-1, 0));
        case NextCell::below:
            return goTo(beside(1, 0));
        case NextCell::right:
            return goTo(beside(0, 1));
        case NextCell::left:
            return goTo(beside(0, -1));
        case NextCell::none:
            return;
    }
}

}  // namespace chengheng
