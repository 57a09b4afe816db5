#pragma once

#include <QStyledItemDelegate>

namespace chengheng {

/// Where the keyboard goes after an edit.
enum class NextCell { none, nextEditable, previousEditable, below, above, right, left };

/// Edits a figure in its cell: thousands separators come as one types, Enter, Tab and the
/// arrows up and down end the edit and move on, Escape restores what was there.
class FigureEditor final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit FigureEditor(QObject* parent) : QStyledItemDelegate(parent) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    /// Goes on with a text that was typed before, where there is an editor.
    void takeUp(QWidget* editor, const QString& text) const;

  signals:
    /// An edit has begun.
    void begun() const;
    /// It ends with another text.
    void typed(const QModelIndex& index, const QString& text) const;
    /// It has ended by a key that moves on.
    void movedOn(NextCell to);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void end(QWidget* editor, NextCell to);
};

}  // namespace chengheng
