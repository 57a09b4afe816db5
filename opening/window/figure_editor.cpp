#include "opening/window/figure_editor.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "opening/editing/typing_separators.h"
#include "screen/colours.h"

namespace chengheng {
namespace {

constexpr int longestText = 200;

/// Puts the separators where they belong in the text that has been typed so far.
void separate(QLineEdit& field, const QString& before) {
    const QString text = field.text();
    const auto cursor = text.left(field.cursorPosition()).toUtf8().size();
    const TypedText typed{text.toStdString(), static_cast<std::size_t>(cursor)};
    const TypedText separated = withSeparators(typed, before.toStdString());
    if (separated == typed) return;
    field.setText(QString::fromStdString(separated.text));
    field.setCursorPosition(static_cast<int>(separated.cursor));
    field.setModified(true);
}

/// A field in which the separators come as one types.
class FigureField final : public QLineEdit {
  public:
    explicit FigureField(QWidget* parent) : QLineEdit(parent) {
        connect(this, &QLineEdit::textEdited, this, [this] { separate(*this, m_before); });
        // After the above.
        connect(this, &QLineEdit::textChanged, this, [this] { m_before = text(); });
    }

  private:
    QString m_before;
};

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

/// Ctrl+K finds, also where a field would cut its line with it.
bool isOfTheWindow(const QKeyEvent& key) {
    return key.key() == Qt::Key_K && key.modifiers() == Qt::ControlModifier;
}

}  // namespace

QWidget* FigureEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
    auto* field = new FigureField(parent);
    field->setObjectName(QStringLiteral("figure"));
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    field->setAlignment(Qt::AlignRight);
    field->setMaxLength(longestText);
    field->setFrame(false);
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, colours::found);
    field->setPalette(palette);
    emit begun();
    return field;
}

void FigureEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* field = qobject_cast<QLineEdit*>(editor);
    // A change elsewhere in the sheet must not take away what is being typed.
    if (!field->isModified()) field->setText(index.data(Qt::EditRole).toString());
}

void FigureEditor::setModelData(QWidget* editor, QAbstractItemModel*,
                                const QModelIndex& index) const {
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (!field->isModified()) return;
    field->setModified(false);
    emit typed(index, field->text());
}

void FigureEditor::takeUp(QWidget* editor, const QString& text) const {
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (field == nullptr) return;
    field->setText(text);
    field->setModified(true);
}

void FigureEditor::end(QWidget* editor, NextCell to) {
    emit commitData(editor);
    emit closeEditor(editor, NoHint);
    emit movedOn(to);
}

bool FigureEditor::eventFilter(QObject* watched, QEvent* event) {
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
