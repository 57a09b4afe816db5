#include "currency/window/rate_picture.h"

#include <fmt/format.h>

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "base/values/numbers.h"
#include "currency/screen/rate_screen_texts.h"
#include "screen/colours.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = rate_screen_texts;

constexpr double margin = 6;
constexpr double dot = 1.5;
constexpr double ring = 4;
/// How near the pointer must come to a rate, in its direction along the days.
constexpr double reach = 12;
constexpr int linesHigh = 5;

int dayOfYear(const Date& day) {
    int number = day.day;
    for (int month = 1; month < day.month; ++month) number += daysInMonth(day.year, month);
    return number;
}

int daysOf(int year) { return dayOfYear({static_cast<std::int16_t>(year), monthsOfYear, 31}); }

}  // namespace

RatePicture::RatePicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picture"));
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(shown(texts::picture));
}

QSize RatePicture::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().lineSpacing() * linesHigh};
}

QSize RatePicture::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().lineSpacing() * linesHigh};
}

void RatePicture::show(RateKind kind, int year, const RateOverview& overview) {
    m_kind = kind;
    m_year = year;
    m_isRead = overview.isYearRead();
    m_rates = overview.rates();
    m_adjustments = overview.adjustments();
    bool isFirst = true;
    for (const auto* points : {&m_rates, &m_adjustments})
        for (const RatePoint& point : *points) {
            m_least = isFirst ? point.rate : std::min(m_least, point.rate);
            m_greatest = isFirst ? point.rate : std::max(m_greatest, point.rate);
            isFirst = false;
        }
    setAccessibleDescription(words());
    update();
}

const char* RatePicture::emptyWords() const {
    return m_isRead ? texts::pictureEmpty : texts::unreadable;
}

/// What a reader of the screen is told of it.
QString RatePicture::words() const {
    if (isEmpty() || !m_isRead) return shown(emptyWords());
    std::vector<RatePoint> all = m_rates;
    all.insert(all.end(), m_adjustments.begin(), m_adjustments.end());
    const auto [first, last] = std::ranges::minmax_element(all, {}, &RatePoint::day);
    std::string text = fmt::format(texts::pictureWords, rateTitle(m_kind, first->day),
                                   rateTitle(m_kind, last->day), ftoa(m_least), ftoa(m_greatest));
    const auto marked = std::ranges::count_if(
        all, [](const RatePoint& point) { return point.mark != RateMark::none; });
    if (marked > 0) text += fmt::format(texts::pictureMarked, marked);
    return shown(text);
}

QRectF RatePicture::plane() const {
    return QRectF(rect()).adjusted(margin, margin, -margin, -margin);
}

QPointF RatePicture::placeOf(const RatePoint& point) const {
    const QRectF in = plane();
    const double along = m_kind == RateKind::fixed ? (point.day.month - 0.5) / monthsOfYear
                                                   : (dayOfYear(point.day) - 0.5) / daysOf(m_year);
    const double span = m_greatest - m_least;
    const double up = span > 0 ? (point.rate - m_least) / span : 0.5;
    return {in.left() + along * in.width(), in.bottom() - up * in.height()};
}

bool RatePicture::areNeighbours(const RatePoint& one, const RatePoint& next) const {
    if (m_kind == RateKind::fixed) return next.day.month == one.day.month + 1;
    return dayOfYear(next.day) == dayOfYear(one.day) + 1;
}

void RatePicture::paintLine(QPainter& painter, const std::vector<RatePoint>& points,
                            QColor colour) const {
    painter.setPen(QPen(colour, 1.5));
    for (std::size_t at = 0; at < points.size(); ++at) {
        const QPointF place = placeOf(points[at]);
        if (at > 0 && areNeighbours(points[at - 1], points[at]))
            painter.drawLine(placeOf(points[at - 1]), place);
        // Days lie so near that their dots would hide the line; one alone has nothing else.
        const bool hasBefore = at > 0 && areNeighbours(points[at - 1], points[at]);
        const bool hasNext = at + 1 < points.size() && areNeighbours(points[at], points[at + 1]);
        if (m_kind == RateKind::floating && (hasBefore || hasNext)) continue;
        painter.setBrush(colour);
        painter.drawEllipse(place, dot, dot);
    }
    painter.setPen(QPen(colours::seal, 1.5));
    painter.setBrush(Qt::NoBrush);
    for (const RatePoint& point : points)
        if (point.mark != RateMark::none) painter.drawEllipse(placeOf(point), ring, ring);
}

void RatePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(colours::quietInk);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (isEmpty() || !m_isRead) {
        painter.drawText(rect(), Qt::AlignCenter, shown(emptyWords()));
        return;
    }
    QColor month = colours::quietInk;
    month.setAlpha(50);
    painter.setPen(month);
    const QRectF in = plane();
    for (int line = 1; line < monthsOfYear; ++line) {
        const double x = in.left() + in.width() * line / monthsOfYear;
        painter.drawLine(QPointF(x, in.top()), QPointF(x, in.bottom()));
    }
    paintLine(painter, m_adjustments, colours::quietInk);
    paintLine(painter, m_rates, colours::teal);
}

const RatePoint* RatePicture::nearest(QPointF place) const {
    const RatePoint* found = nullptr;
    double least = reach;
    for (const auto* points : {&m_rates, &m_adjustments})
        for (const RatePoint& point : *points) {
            const QPointF there = placeOf(point) - place;
            // Along the days first: the lines may lie far above each other.
            const double distance = std::fabs(there.x()) + std::fabs(there.y()) / 1000;
            if (distance >= least) continue;
            least = distance;
            found = &point;
        }
    return found;
}

void RatePicture::mouseMoveEvent(QMouseEvent* event) {
    const RatePoint* point = nearest(event->position());
    QString tip;
    if (point != nullptr) {
        const std::string day = rateTitle(m_kind, point->day);
        tip = shown(point->mark == RateMark::none
                        ? fmt::format(texts::pictureTip, day, ftoa(point->rate))
                        : fmt::format(texts::pictureTipMarked, day, ftoa(point->rate)));
    }
    setToolTip(tip);
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPosition().toPoint(), tip, this);
}

void RatePicture::mousePressEvent(QMouseEvent* event) {
    if (const RatePoint* point = nearest(event->position())) emit dayChosen(point->day);
}

}  // namespace chengheng
