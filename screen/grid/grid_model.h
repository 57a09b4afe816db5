#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <span>

namespace chengheng {

enum class CellAlignment { text, number, centre };

/// A column of a grid.
struct GridColumn {
    const char* header;  ///< may hold line ends
    int width;           ///< in characters
    CellAlignment alignment = CellAlignment::text;
    bool isHidden = false;
};

/// What a grid shows: columns given as data, rows asked of a screen model when they are seen.
/// Whoever changes rows says so with the begin and end functions of the base, so that one
/// changed row never costs the others.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The columns must outlive the model.
    explicit GridModel(std::span<const GridColumn> columns, QObject* parent = nullptr);

    std::span<const GridColumn> gridColumns() const { return m_columns; }

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Tells the grid that a row has other content.
    void tellChanged(int row);

  protected:
    /// For models whose columns are known only once they are made.
    void setGridColumns(std::span<const GridColumn> columns) { m_columns = columns; }

    /// What is read in a cell: amounts with their separators, dates as people write them.
    virtual QString text(int row, int column) const = 0;
    /// Background of a cell; one that is not valid leaves it to the grid.
    virtual QColor background(int, int) const { return {}; }
    /// Colour of a cell's text, likewise.
    virtual QColor foreground(int, int) const { return {}; }

  private:
    std::span<const GridColumn> m_columns;
};

}  // namespace chengheng
