#pragma once

#include <set>

#include "currency/rate_sheet.h"
#include "screen/grid/grid_model.h"

namespace chengheng {

/// The rates in their grid. It keeps the sheet it showed last, so that a view can paint while the
/// rates are being read.
class RateModel final : public GridModel {
    Q_OBJECT

  public:
    explicit RateModel(QObject* parent);

    /// Shows a sheet as it is now, and which of its cells may be typed into.
    void show(const RateSheet& sheet, bool isOpen);

    /// Which days have strange rates.
    void mark(std::set<Date> rates, std::set<Date> adjustments);

    static RateCell cellAt(const QModelIndex& index);
    QModelIndex indexOf(const RateCell& cell) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    QString text(int row, int column) const override;
    QColor foreground(int row, int column) const override;

  private:
    RateSheet m_sheet;
    bool m_isOpen = false;
    std::set<Date> m_markedRates;
    std::set<Date> m_markedAdjustments;
};

}  // namespace chengheng
