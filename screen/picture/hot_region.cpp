#include "screen/picture/hot_region.h"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QPainter>

#include "screen/colours.h"
#include "screen/fonts.h"

namespace chengheng {
namespace {

constexpr int plateHeight = 28;
constexpr int iconPixels = 18;
constexpr int iconLeft = 8;
constexpr int captionLeft = 33;
constexpr int captionPixels = 15;
constexpr int digitPixels = 10;
constexpr int digitRight = 9;

QColor withAlpha(QColor colour, qreal alpha) {
    colour.setAlphaF(static_cast<float>(alpha));
    return colour;
}

}  // namespace

HotRegion::HotRegion(const PictureResource& picture, int command, int cornerRadius, QWidget* parent)
    : QAbstractButton(parent),
      m_icon(QString::fromUtf8(picture.file)),
      m_kind(picture.kind),
      m_command(command),
      m_cornerRadius(cornerRadius) {
    setText(QString::fromUtf8(picture.caption));
    setAccessibleName(text());
    setFont(pictureFont(captionPixels));
    setCursor(Qt::PointingHandCursor);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void HotRegion::setHighlighted(bool isHighlighted) {
    if (m_isHighlighted == isHighlighted) return;
    m_isHighlighted = isHighlighted;
    update();
}

void HotRegion::paintPlate(QPainter& painter, const QRectF& plate) const {
    const bool isOutlined = m_kind == PictureKind::outlinedEntry;
    const QColor colour = isOutlined ? colours::seal : colours::teal;
    qreal fill = 0;
    if (isDown()) {
        fill = 0.26;
    } else if (m_isHighlighted) {
        fill = 0.13;
    }
    painter.setBrush(fill > 0 ? QBrush(withAlpha(colour, fill)) : QBrush(Qt::NoBrush));
    painter.setPen(Qt::NoPen);
    if (hasFocus()) {
        painter.setPen(QPen(withAlpha(colour, 0.85), 1.4));
    } else if (isOutlined) {
        painter.setPen(QPen(withAlpha(colour, m_isHighlighted ? 0.75 : 0.45), 1));
    }
    painter.drawRoundedRect(plate, m_cornerRadius, m_cornerRadius);
}

void HotRegion::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal height = qMin(plateHeight, this->height()) - 2;
    const QRectF plate(1, (this->height() - height) / 2.0, width() - 2, height);
    paintPlate(painter, plate);

    const bool isLit = m_isHighlighted || isDown() || hasFocus();
    const QColor accent = m_kind == PictureKind::outlinedEntry ? colours::seal : colours::teal;
    const qreal middle = plate.center().y();
    m_icon.render(&painter, QRectF(iconLeft, middle - iconPixels / 2.0, iconPixels, iconPixels));
    painter.setFont(font());
    painter.setPen(isLit ? accent.darker(115) : colours::ink);
    painter.drawText(plate.adjusted(captionLeft - 1, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     text());
    if (m_digit == 0 || m_kind == PictureKind::outlinedEntry) return;
    painter.setFont(pictureFont(digitPixels));
    painter.setPen(withAlpha(isLit ? accent : colours::quietInk, isLit ? 0.9 : 0.55));
    painter.drawText(plate.adjusted(0, 0, -digitRight, 0), Qt::AlignVCenter | Qt::AlignRight,
                     QString::number(m_digit));
}

void HotRegion::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void HotRegion::mouseMoveEvent(QMouseEvent* event) {
    QAbstractButton::mouseMoveEvent(event);
    emit pointerMoved(mapToParent(event->position().toPoint()));
}

void HotRegion::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        // The picture's own: a right click is no press of the region.
        event->ignore();
        return;
    }
    QAbstractButton::mousePressEvent(event);
    emit pointerPressed(mapToParent(event->position().toPoint()));
}

void HotRegion::mouseReleaseEvent(QMouseEvent* event) {
    QAbstractButton::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) {
        emit pointerReleased(mapToParent(event->position().toPoint()));
    }
}

void HotRegion::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    emit pointerMoved(mapToParent(event->position().toPoint()));
}

void HotRegion::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    emit pointerLeft();
}

}  // namespace chengheng
