#pragma once

#include <span>
#include <vector>

#include "opening/screen/opening_work.h"
#include "screen/grid/grid_model.h"

namespace chengheng {

/// A figure's cell, whatever line it stands on by now.
struct FigurePlace {
    std::int32_t accountId = 0;
    Measure measure = Measure::money;
    int column = 0;
};

/// The opening balances in their grid: a line for each line of the sheet.
class OpeningModel final : public GridModel {
    Q_OBJECT

  public:
    /// The work must outlive the model.
    explicit OpeningModel(const OpeningWork& work);

    int rowCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Whose line a row is, also when the sheet has been read anew and that is not yet told.
    FigurePlace placeAt(const QModelIndex& index) const;
    /// Whether what was read anew has the lines that are shown.
    bool hasSameLines() const;
    /// What it shows was read anew: lines may have come, gone or moved.
    void tellReadAnew();
    /// The same where they have not.
    void tellFiguresReadAnew();
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
    struct ShownLine {
        std::int32_t accountId;
        Measure measure;

        bool operator==(const ShownLine&) const = default;
    };

    std::vector<ShownLine> linesOfSheet() const;

    std::vector<GridColumn> m_columns;
    std::vector<ShownLine> m_lines;
    OpeningLayout m_layout = OpeningLayout::simple;
};

}  // namespace chengheng
