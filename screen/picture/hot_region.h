#pragma once

#include <QAbstractButton>
#include <QSvgRenderer>

#include "screen/resources.h"

namespace chengheng {

/// A region of a picture that runs a command: a button painted into the picture, with icon,
/// caption and the digit that presses it.
class HotRegion final : public QAbstractButton {
    Q_OBJECT

  public:
    HotRegion(const PictureResource& picture, int command, int cornerRadius, QWidget* parent);

    int command() const { return m_command; }
    /// The digit key that presses the region; 0: none.
    void setDigit(int digit) { m_digit = digit; }
    /// Lit up because the pointer is over it.
    void setHighlighted(bool isHighlighted);
    bool isHighlighted() const { return m_isHighlighted; }

  signals:
    /// The pointer moved over the region or was pressed there, in the parent's pixels.
    void pointerMoved(QPoint position);
    void pointerPressed(QPoint position);
    void pointerReleased(QPoint position);
    void pointerLeft();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void paintPlate(QPainter& painter, const QRectF& plate) const;

    QSvgRenderer m_icon;
    PictureKind m_kind;
    int m_command;
    int m_cornerRadius;
    int m_digit = 0;
    bool m_isHighlighted = false;
};

}  // namespace chengheng
