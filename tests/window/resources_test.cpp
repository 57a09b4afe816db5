#include "screen/resources.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSvgRenderer>

#include "screen/fonts.h"

using namespace chengheng;

TEST(HostPictures, OfAllRegionsCanBeDrawnAndHaveACaption) {
    loadHostResources();
    for (int number : {1302, 1303, 1304, 1305, 1306, 1308, 1309}) {
        const PictureResource* picture = pictureResource(number);
        ASSERT_NE(picture, nullptr) << number;
        EXPECT_STRNE(picture->caption, "") << number;
        EXPECT_TRUE(QSvgRenderer(QString(picture->file)).isValid()) << picture->file;
    }
}

TEST(HostPictures, AreNoneForOtherNumbers) {
    EXPECT_EQ(pictureResource(1307), nullptr);
    EXPECT_TRUE(loadBitmap(1307, 1).isNull());
    EXPECT_TRUE(menuResource(131, 0).empty());
    EXPECT_TRUE(menuResource(130, 1).empty());
}

TEST(HostPictures, AreDrawnAnewForSharperScreens) {
    const QSize size = loadBitmap(130, 1).size();
    EXPECT_EQ(size, QSize(640, 380));
    for (qreal ratio : {1.25, 1.5, 2.0}) {
        const QPixmap bitmap = loadBitmap(130, ratio);
        EXPECT_EQ(bitmap.size(), (QSizeF(size) * ratio).toSize());
        EXPECT_EQ(bitmap.deviceIndependentSize().toSize(), size);
    }
}

TEST(HostPictures, IncludeTheProgramsIconInEachUsualSize) {
    const QIcon icon = applicationIcon();
    for (int size : {16, 32, 48, 256}) {
        EXPECT_EQ(icon.actualSize({size, size}), QSize(size, size));
    }
}

TEST(HostFonts, AskForSongAndThenForChineseForms) {
    const QStringList families = windowFont().families();
    EXPECT_TRUE(families[0] == "SimSun" || families[0] == "宋体");
    EXPECT_TRUE(families.contains("宋体"));
    EXPECT_TRUE(families.contains("Noto Sans CJK SC"));
}
