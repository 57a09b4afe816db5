#pragma once

#include <QColor>

namespace chengheng::colours {

inline constexpr QColor paper{0xfa, 0xf8, 0xf3};
inline constexpr QColor ink{0x23, 0x38, 0x3d};
inline constexpr QColor quietInk{0x6b, 0x7d, 0x80};
inline constexpr QColor teal{0x1f, 0x6f, 0x6d};
inline constexpr QColor seal{0xb1, 0x3b, 0x2e};
/// Background of what a search has found, and of a cell that is being typed into.
inline constexpr QColor found{0xff, 0xf1, 0xc4};

}  // namespace chengheng::colours
