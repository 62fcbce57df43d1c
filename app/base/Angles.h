// Angles in degrees, for functions that take radians.
#pragma once

#include <numbers>

namespace app {

inline constexpr double kDegree = std::numbers::pi / 180.0;  // in radians

}  // namespace app
