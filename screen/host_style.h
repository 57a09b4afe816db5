#pragma once

#include <QProxyStyle>

namespace chengheng {

/// Fusion with the program's own pictures: those of message boxes and of the buttons that Qt's
/// own dialogs have. In a chosen line of a menu the picture takes the colour of its text.
class HostStyle final : public QProxyStyle {
    Q_OBJECT

  public:
    HostStyle();

    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override;
    QPixmap standardPixmap(StandardPixmap picture, const QStyleOption* option,
                           const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace chengheng
