#include "screen/fonts.h"

#include <QStringList>

namespace chengheng {
namespace {

constexpr int windowFontPoints = 10;

// The Chinese faces of the Noto families are named one by one: left to itself the system may
// choose the Japanese forms of the characters.
QStringList windowFamilies() {
    return {"SimSun",    "宋体", "Noto Sans CJK SC", "Noto Serif CJK SC", "WenQuanYi Zen Hei",
            "sans-serif"};
}

QStringList headingFamilies() {
    return {
        "Noto Serif CJK SC", "Source Han Serif SC", "SimSun", "宋体", "Noto Sans CJK SC", "serif"};
}

}  // namespace

QFont windowFont() {
    QFont font;
    font.setFamilies(windowFamilies());
    font.setPointSize(windowFontPoints);
    return font;
}

QFont pictureFont(int pixels) {
    QFont font;
    font.setFamilies(windowFamilies());
    font.setPixelSize(pixels);
    return font;
}

QFont headingFont(int pixels) {
    QFont font;
    font.setFamilies(headingFamilies());
    font.setPixelSize(pixels);
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont songFont() {
    QFont font;
    font.setFamilies({"SimSun", "宋体", "Noto Serif CJK SC", "Source Han Serif SC",
                      "Noto Sans CJK SC", "serif"});
    return font;
}

QFont heiFont() {
    QFont font;
    font.setFamilies({"SimHei", "黑体", "Noto Sans CJK SC", "Source Han Sans SC",
                      "WenQuanYi Zen Hei", "sans-serif"});
    return font;
}

}  // namespace chengheng
