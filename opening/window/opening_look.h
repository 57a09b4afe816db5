#pragma once

#include <QColor>

namespace chengheng {

namespace opening_colours {

inline constexpr QColor parent{0xe0, 0xff, 0xe0};
inline constexpr QColor endAccount{0xff, 0xff, 0xff};
inline constexpr QColor auxiliary{0x00, 0xff, 0xff};
/// An opening balance that does not follow from the other figures of its line.
inline constexpr QColor disagreeing{0xff, 0xd2, 0xc8};
inline constexpr QColor negative{0xc0, 0x10, 0x10};

}  // namespace opening_colours

namespace opening_layout {

inline constexpr int margin = 8;
inline constexpr int spacing = 16;

}  // namespace opening_layout

}  // namespace chengheng
