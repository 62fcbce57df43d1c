// Angles in degrees.
#pragma once

#include <numbers>

namespace app {

inline constexpr double kDegree = std::numbers::pi / 180.0;  // in radians
inline constexpr int kTurn = 360;                            // in degrees

}  // namespace app
