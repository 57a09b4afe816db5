#include "screen/host_style.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QStyleOptionMenuItem>

#include "screen/resources.h"

using namespace chengheng;

namespace {

QRgb middleOf(const QPixmap& picture) {
    const QImage image = picture.toImage();
    return image.pixel(image.width() / 2, image.height() / 2);
}

/// How many points of a menu's line are of a colour.
int pointsOf(QRgb colour, bool isChosen) {
    HostStyle style;
    QStyleOptionMenuItem line;
    line.rect = QRect(0, 0, 160, 24);
    line.menuRect = line.rect;
    line.icon = toolIcon("add");
    line.state = QStyle::State_Enabled;
    if (isChosen) line.state |= QStyle::State_Selected;
    line.palette.setColor(QPalette::Highlight, QColor(0, 0, 255));
    line.palette.setColor(QPalette::HighlightedText, QColor(255, 0, 0));
    QImage image(line.rect.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    style.drawControl(QStyle::CE_MenuItem, &line, &painter, nullptr);
    painter.end();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour ? 1 : 0;
    return count;
}

}  // namespace

TEST(HostStyle, HasAPictureOfItsOwnForEachMessageBox) {
    const HostStyle style;
    for (const auto& [picture, middle] :
         {std::pair{QStyle::SP_MessageBoxInformation, qRgb(0xff, 0xff, 0xff)},
          std::pair{QStyle::SP_MessageBoxWarning, qRgb(0x20, 0x34, 0x3a)},
          std::pair{QStyle::SP_MessageBoxCritical, qRgb(0xff, 0xff, 0xff)}}) {
        const QPixmap shown = style.standardIcon(picture, nullptr, nullptr).pixmap(48, 48);
        EXPECT_EQ(middleOf(shown), middle) << picture;
        EXPECT_FALSE(style.standardPixmap(picture, nullptr, nullptr).isNull());
    }
    EXPECT_FALSE(style.standardIcon(QStyle::SP_ArrowUp, nullptr, nullptr).isNull())
        << "all others as before";
}

TEST(HostStyle, DrawsThePictureOfAChosenLineInTheColourOfItsText) {
    EXPECT_GT(pointsOf(qRgb(255, 0, 0), true), 0);
    EXPECT_EQ(pointsOf(qRgb(255, 0, 0), false), 0);
}
