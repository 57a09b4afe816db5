#pragma once

#include <array>

/// The numbers by which the host knows dialogs of the module. A window that the host does not
/// know has none.
namespace chengheng::dialog_templates {

inline constexpr int divide = 123;
inline constexpr int bursar = 124;
inline constexpr int begleft = 125;
inline constexpr int species = 983;
inline constexpr int method = 1034;
inline constexpr int operatorEntry = 1075;
inline constexpr int setting = 1170;

inline constexpr std::array all{divide, bursar, begleft, species, method, operatorEntry, setting};

}  // namespace chengheng::dialog_templates
