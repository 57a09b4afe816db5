#pragma once

#include <array>

/// The numbers by which the host knows dialogs of the module. A window that the host does not
/// know has none.
namespace chengheng::dialog_templates {

inline constexpr int bursar = 124;
inline constexpr int begleft = 125;
inline constexpr int species = 983;
inline constexpr int method = 1034;
inline constexpr int setting = 1170;

inline constexpr std::array all{bursar, begleft, species, method, setting};

}  // namespace chengheng::dialog_templates
