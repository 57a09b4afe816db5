#pragma once

#include <QFont>

namespace chengheng {

/// The font of windows and forms: 宋体 where it is installed, else the nearest one for
/// simplified Chinese.
QFont windowFont();

/// The same family in pixels, for texts that stand on a picture of fixed size.
QFont pictureFont(int pixels);

/// The font of headings, with serifs.
QFont headingFont(int pixels);

// Faces of type on paper, of no size yet: 宋体 with serifs, 黑体 without, or the nearest ones.

QFont songFont();
QFont heiFont();

}  // namespace chengheng
