#include "currency/window/rate_grid.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QValidator>

#include "currency/currency_texts.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int longestRate = 20;

/// Lets digits and a point in and nothing else.
class RateTyping final : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        const std::string typed = rateTyping(text.toStdString());
        if (!isRateBeingTyped(typed)) return Invalid;
        const QString taken = shown(typed);
        if (taken.size() != text.size()) cursor = static_cast<int>(taken.size());
        text = taken;
        return Acceptable;
    }
};

class RateEditor final : public CellEditor {
  public:
    using CellEditor::CellEditor;

  protected:
    QLineEdit* makeField(QWidget* parent) const override {
        auto* field = new QLineEdit(parent);
        field->setObjectName(QStringLiteral("rate"));
        field->setMaxLength(longestRate);
        field->setValidator(new RateTyping(field));
        // A text that the validator has cut counts as typed, too.
        connect(field, &QLineEdit::textEdited, field, [field] { field->setModified(true); });
        return field;
    }
};

bool isEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Whether a key is a digit or the point, of the keyboard or of its number pad.
bool beginsRate(const QKeyEvent& key) {
    const auto others = key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    return others == Qt::NoModifier && key.text().size() == 1 &&
           isRateBeingTyped(key.text().toStdString());
}

}  // namespace

RateGrid::RateGrid(QWidget* parent)
    : CVCF1(shown(currency_texts::rates), Unit::cell, parent),
      m_model(new RateModel(this)),
      m_editor(new RateEditor(this)) {
    setObjectName(QStringLiteral("rates"));
    setGridModel(m_model);
    setItemDelegate(m_editor);
    setEditTriggers(NoEditTriggers);
    connect(m_editor, &CellEditor::begun, this, &RateGrid::editBegun);
    connect(m_editor, &CellEditor::typed, this,
            [this](const QModelIndex& index, const QString& text) {
                emit typed(RateModel::cellAt(index), text);
            });
    connect(m_editor, &CellEditor::movedOn, this, &RateGrid::moveOn);
}

void RateGrid::show(const RateSheet& sheet, bool isOpen, bool isSamePlace) {
    const RateCell cell = current();
    m_model->show(sheet, isOpen);
    if (!isSamePlace)
        goTo({0, RateSheetColumn::rate});
    else if (!currentIndex().isValid())
        goTo(cell);
}

void RateGrid::goTo(const RateCell& cell) {
    const QModelIndex index = m_model->indexOf(cell);
    if (!index.isValid()) return;
    setCurrentIndex(index);
    scrollTo(index);
}

void RateGrid::mark(std::set<Date> rates, std::set<Date> adjustments) {
    m_model->mark(std::move(rates), std::move(adjustments));
}

RateCell RateGrid::current() const {
    return currentIndex().isValid() ? RateModel::cellAt(currentIndex()) : RateCell{};
}

void RateGrid::takeUp(const RateCell& cell, const QString& text) {
    goTo(cell);
    setFocus();
    if (beginEdit()) m_editor->takeUp(openEditor(), text);
}

QWidget* RateGrid::openEditor() const { return indexWidget(currentIndex()); }

void RateGrid::finish() {
    if (QWidget* editor = openEditor()) m_editor->end(editor);
}

void RateGrid::giveUp() {
    if (QWidget* editor = openEditor()) m_editor->giveUp(editor);
}

bool RateGrid::beginEdit() {
    const QModelIndex index = currentIndex();
    if (!(m_model->flags(index) & Qt::ItemIsEditable) || !index.isValid()) return false;
    edit(index);
    // What is kept is not to be typed over.
    qobject_cast<QLineEdit*>(openEditor())->deselect();
    return true;
}

void RateGrid::keyPressEvent(QKeyEvent* event) {
    if (isEnter(*event)) {
        const bool isBack = (event->modifiers() & Qt::ShiftModifier) != 0;
        moveOn(isBack ? NextCell::previousEditable : NextCell::nextEditable);
        event->accept();
    } else if (event->key() == Qt::Key_F2) {
        beginEdit();
    } else if (beginsRate(*event)) {
        beginAnew(*event);
    } else {
        CVCF1::keyPressEvent(event);
    }
}

/// What an input method gives as a whole, such as a wide digit.
void RateGrid::inputMethodEvent(QInputMethodEvent* event) {
    const std::string typed = rateTyping(event->commitString().toStdString());
    if (event->preeditString().isEmpty() && !typed.empty() && isRateBeingTyped(typed))
        beginAnew(*event);
}

void RateGrid::beginAnew(QEvent& typing) {
    if (!beginEdit()) return;
    qobject_cast<QLineEdit*>(openEditor())->clear();
    QCoreApplication::sendEvent(openEditor(), &typing);
}

void RateGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    CVCF1::mouseDoubleClickEvent(event);
    beginEdit();
}

void RateGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    // Rates that were read anew have closed it.
    if (editor->isVisible()) CVCF1::closeEditor(editor, hint);
    emit editEnded();
}

void RateGrid::moveOn(NextCell to) {
    if (!currentIndex().isValid()) return;
    const RateCell cell = RateModel::cellAt(currentIndex());
    const auto beside = [&cell](int rows, int columns) {
        return RateCell{cell.row + rows,
                        static_cast<RateSheetColumn>(static_cast<int>(cell.column) + columns)};
    };
    const auto goBeside = [&](int rows, int columns) {
        const RateCell next = beside(rows, columns);
        const bool isInRow =
            next.column >= RateSheetColumn::time && next.column <= RateSheetColumn::adjustRate;
        if (isInRow) goTo(next);
    };
    switch (to) {
        case NextCell::nextEditable:
            return goTo(cellAfterEnter(cell, m_model->rowCount()));
        case NextCell::previousEditable:
        case NextCell::above:
            return goBeside(-1, 0);
        case NextCell::below:
            return goBeside(1, 0);
        case NextCell::right:
            return goBeside(0, 1);
        case NextCell::left:
            return goBeside(0, -1);
        case NextCell::none:
            return;
    }
}

}  // namespace chengheng
