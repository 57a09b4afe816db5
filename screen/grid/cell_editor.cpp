#include "screen/grid/cell_editor.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "screen/colours.h"

namespace chengheng {
namespace {

NextCell nextCellFor(const QKeyEvent& key) {
    const bool isBack = (key.modifiers() & Qt::ShiftModifier) != 0;
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return isBack ? NextCell::previousEditable : NextCell::nextEditable;
        case Qt::Key_Tab:
            return NextCell::right;
        case Qt::Key_Backtab:
            return NextCell::left;
        case Qt::Key_Down:
            return NextCell::below;
        case Qt::Key_Up:
            return NextCell::above;
        default:
            return NextCell::none;
    }
}

/// Ctrl+K finds and Ctrl+D deletes, also where a field would change its line by them.
bool isOfTheWindow(const QKeyEvent& key) {
    const bool isCommand = key.key() == Qt::Key_K || key.key() == Qt::Key_D;
    return isCommand && key.modifiers() == Qt::ControlModifier;
}

}  // namespace

QWidget* CellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                  const QModelIndex& index) const {
    QLineEdit* field = makeField(parent);
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    field->setAlignment(Qt::AlignRight);
    field->setFrame(false);
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, colours::found);
    field->setPalette(palette);
    emit begun();
    return field;
}

void CellEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* field = qobject_cast<QLineEdit*>(editor);
    // A change elsewhere in the sheet must not take away what is being typed.
    if (!field->isModified()) field->setText(index.data(Qt::EditRole).toString());
}

void CellEditor::setModelData(QWidget* editor, QAbstractItemModel*,
                              const QModelIndex& index) const {
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (!field->isModified()) return;
    field->setModified(false);
    emit typed(index, field->text());
}

void CellEditor::takeUp(QWidget* editor, const QString& text) const {
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (field == nullptr) return;
    field->setText(text);
    field->setModified(true);
}

void CellEditor::end(QWidget* editor, NextCell to) {
    emit commitData(editor);
    emit closeEditor(editor, NoHint);
    if (to != NextCell::none) emit movedOn(to);
}

void CellEditor::giveUp(QWidget* editor) { emit closeEditor(editor, RevertModelCache); }

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
    auto* editor = qobject_cast<QWidget*>(watched);
    if (editor && event->type() == QEvent::ShortcutOverride &&
        isOfTheWindow(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return true;
    }
    if (editor && event->type() == QEvent::KeyPress) {
        const NextCell to = nextCellFor(*static_cast<QKeyEvent*>(event));
        if (to != NextCell::none) {
            end(editor, to);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

}  // namespace chengheng
