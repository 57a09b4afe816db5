#pragma once

#include <QTableView>
#include <functional>

namespace chengheng {
class FrozenColumns;
class GridColumns;
class GridModel;
}  // namespace chengheng

/// The grid of the function windows: a table of fixed row heights over a GridModel, quick with
/// tens of thousands of rows. It knows the keyboard (arrows, pages, Home and End, Ctrl+C) and
/// reports keys and clicks; what they mean is the window's business.
class CVCF1 : public QTableView {
    Q_OBJECT

  public:
    enum class Unit { row, cell };

    /// A grid of rows selects and walks whole rows; one of cells single cells, for typing in.
    /// The name is what a screen reader calls it.
    CVCF1(const QString& name, Unit unit, QWidget* parent = nullptr);

    /// Takes over its columns, which share the grid's width by what they hold. The model is not
    /// owned and must outlive the grid.
    void setGridModel(chengheng::GridModel* model);
    /// So many of the first columns stay in sight while the others are scrolled sideways. The
    /// model must have been set.
    void setFrozenColumns(int count);

    /// As wide as the grid would like to be, with all columns as they are declared.
    int usualWidth() const;
    /// Forgets what the operator made of the columns, and of the size of the window.
    void resetLayout();
    /// What a click on the headers offers.
    void showColumnMenu(QPoint position);

    /// The row the operator stands on; -1 when there is none.
    int currentRow() const { return currentIndex().row(); }
    /// Makes the row the current and only selected one and brings it into view. In a grid of
    /// cells the column of the current cell stays.
    void setCurrentRow(int row);
    /// Scrolls until a row is as high in the grid as `rowViewportPosition` told.
    void scrollToHeight(int row, int height);
    /// Lets the rows be made anew, then makes the row current that `wanted` gives, as high in the
    /// grid as the current one was; -1: whichever is where that one was.
    void readAnew(const std::function<void()>& read, const std::function<int()>& wanted);

    /// The selected cells as a spreadsheet takes them: hidden columns left out, tabs between
    /// cells, a line end after each row.
    QString selectedText() const;
    void copySelection() const;

    void keyboardSearch(const QString& text) override;
    /// Brings a cell out from under the frozen columns, too.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  signals:
    /// Every key, also one that the grid used itself; it has its new place by then.
    void keyDown(int key, Qt::KeyboardModifiers modifiers);
    void keyUp(int key);
    void mouseDown(QPoint position);
    void mouseMoved(QPoint position);
    /// Text typed where nothing is edited.
    void textTyped(const QString& text);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void fitRowHeight();
    bool goToEdge(const QKeyEvent& event);

    Unit m_unit;
    chengheng::GridColumns* m_columns = nullptr;
    chengheng::FrozenColumns* m_frozen = nullptr;
    bool m_isRecalled = false;
};
