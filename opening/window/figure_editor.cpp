#include "opening/window/figure_editor.h"

#include <QLineEdit>
#include <QPersistentModelIndex>

#include "opening/editing/typing_separators.h"
#include "screen/sum_hint.h"

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

}  // namespace

QWidget* FigureEditor::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    QWidget* const editor = CellEditor::createEditor(parent, option, index);
    showSums(*qobject_cast<QLineEdit*>(editor),
             [this, cell = QPersistentModelIndex(index)](const QString& typed) {
                 return cell.isValid() ? m_sumOf(cell, typed) : QString();
             });
    return editor;
}

QLineEdit* FigureEditor::makeField(QWidget* parent) const {
    auto* field = new FigureField(parent);
    field->setObjectName(QStringLiteral("figure"));
    field->setMaxLength(longestText);
    return field;
}

}  // namespace chengheng
