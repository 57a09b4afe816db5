#pragma once

#include <span>
#include <vector>

#include "opening/screen/opening_work.h"
#include "screen/grid/grid_model.h"

namespace chengheng {

/// The opening balances in their grid: a line for each line of the sheet.
class OpeningModel final : public GridModel {
    Q_OBJECT

  public:
    /// The work must outlive the model.
    explicit OpeningModel(const OpeningWork& work);

    int rowCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// What it shows was read anew: lines may have come, gone or moved.
    void tellReadAnew();
    /// Some cells have changed.
    void tellCellsChanged(std::span<const OpeningCell> cells);

  protected:
    QString text(int row, int column) const override;
    QColor background(int row, int column) const override;
    QColor foreground(int row, int column) const override;

  private:
    void takeColumns();
    const OpeningSheet& sheet() const { return m_work.sheet(); }
    bool isThere(int row, int column) const;
    /// Whether the cell is the opening balance of a line whose figures do not agree.
    bool isMarked(int row, int column) const;

    const OpeningWork& m_work;
    std::vector<GridColumn> m_columns;
    int m_lines = 0;
};

}  // namespace chengheng
