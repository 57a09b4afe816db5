#pragma once

#include <QWidget>

#include <optional>
#include <vector>

#include "currency/screen/rate_overview.h"

namespace chengheng {

/// The rates of a year as lines through their days: bookkeeping rates, and adjustment rates where
/// there are some. A line is broken where a rate is missing; strange rates have a ring. The pointer
/// is told day and rate, a click goes there.
class RatePicture final : public QWidget {
    Q_OBJECT

  public:
    explicit RatePicture(QWidget* parent = nullptr);

    void show(RateKind kind, int year, const RateOverview& overview);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// Where a rate is drawn.
    QPointF placeOf(const RatePoint& point) const;

  signals:
    void dayChosen(Date day);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QRectF plane() const;
    void paintLine(QPainter& painter, const std::vector<RatePoint>& points, QColor colour) const;
    bool areNeighbours(const RatePoint& one, const RatePoint& next) const;
    const RatePoint* nearest(QPointF place) const;
    QString words() const;
    bool isEmpty() const { return m_rates.empty() && m_adjustments.empty(); }
    const char* emptyWords() const;

    RateKind m_kind = RateKind::fixed;
    int m_year = 0;
    bool m_isRead = true;
    std::vector<RatePoint> m_rates;
    std::vector<RatePoint> m_adjustments;
    double m_least = 0;
    double m_greatest = 0;
};

}  // namespace chengheng
