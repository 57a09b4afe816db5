#pragma once

#include <QTableView>

namespace chengheng {

/// The first columns of a grid once more, above its left edge, so that they stay in sight while
/// the grid is scrolled sideways. Rows and selection are the grid's. It shows itself only when
/// it is needed and leaves at least half of the grid to the other columns.
class FrozenColumns final : public QTableView {
    Q_OBJECT

  public:
    /// The grid must have its model.
    FrozenColumns(QTableView& grid, int count);

    /// Takes over place, sizes and visibility from the grid; to be called when it has changed.
    void follow();
    /// So much of the grid's viewport lies under it, in pixels.
    int coveredWidth() const { return isHidden() ? 0 : width(); }
    bool isFrozen(int column) const { return column < m_count; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void hideOtherColumns();
    int frozenWidth() const;

    QTableView& m_grid;
    int m_count;
};

}  // namespace chengheng
