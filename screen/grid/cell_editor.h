#pragma once

#include <QStyledItemDelegate>

class QLineEdit;

namespace chengheng {

/// Where the keyboard goes after an edit.
enum class NextCell { none, nextEditable, previousEditable, below, above, right, left };

/// Edits the text of a cell in a field: Enter, Tab and the arrows up and down end the edit and
/// move on, Escape restores what was there. A grid's editor derives from it and makes the field.
class CellEditor : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    /// Goes on with a text that was typed before, where there is an editor.
    void takeUp(QWidget* editor, const QString& text) const;
    /// Ends the edit as leaving its cell would.
    void end(QWidget* editor, NextCell to = NextCell::none);
    /// Ends it as Escape would.
    void giveUp(QWidget* editor);

  signals:
    /// An edit has begun.
    void begun() const;
    /// It ends with another text.
    void typed(const QModelIndex& index, const QString& text) const;
    /// It has ended by a key that moves on.
    void movedOn(NextCell to);

  protected:
    virtual QLineEdit* makeField(QWidget* parent) const = 0;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace chengheng
