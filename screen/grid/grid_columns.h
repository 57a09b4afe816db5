#pragma once

#include <QObject>
#include <vector>

#include "screen/grid/column_shares.h"

class QHeaderView;
class QTableView;

namespace chengheng {
class GridModel;

/// The columns of a grid: they share its width by what they hold, as far as it has been seen; of
/// many rows only some are looked at. What the operator makes of them, their widths, the order of
/// the rows and the columns put away, is kept.
class GridColumns final : public QObject {
    Q_OBJECT

  public:
    explicit GridColumns(QTableView& grid);

    /// Takes over another model.
    void begin(GridModel& model, bool mayHide);
    /// Shares the width anew; to be called when the grid has another width.
    void share();
    /// The same with another font.
    void measureAnew();
    /// Looks at the rows in sight, and shares anew where one holds more than its column shows.
    void look();
    /// The same once the event loop turns, however often it is asked for.
    void lookLater();
    /// What the grid as a whole would like, in pixels.
    int usualWidth() const;

    /// Brings back what the operator left, once the window is ready to follow.
    void recall();
    void keep();
    /// Forgets it, and the size of the window with it.
    void resetLayout();
    void showMenu(QPoint position);

  private:
    struct Column {
        int units = 0;    ///< of the longest text seen, roughly
        int content = 0;  ///< its width in pixels
        int kept = 0;     ///< as the operator made it; 0: they did not
    };

    QHeaderView& header() const;
    QString key() const;
    QString title(int column) const;
    int headerWidth(int column) const;
    std::vector<ColumnNeed> needs() const;
    void lookAtSample();
    void lookAt(int row);
    void measure(int column, const QString& text);
    bool isAnyCut() const;
    void apply(const std::vector<int>& widths);
    void resized(int column, int width);
    void hide(int column, bool isHidden);
    bool canHide(int column) const;

    QTableView& m_grid;
    GridModel* m_model = nullptr;
    std::vector<Column> m_columns;
    bool m_mayHide = false;
    bool m_isSharing = false;
    bool m_isLookWaiting = false;
    bool m_isSampleWanted = false;  ///< of rows that are all new
    bool m_hasChanged = false;      ///< something that is to be kept
};

}  // namespace chengheng
