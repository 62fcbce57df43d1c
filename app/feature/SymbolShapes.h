// The shapes of the numbered point symbols. Pictures, pages and the styles of packages are all made
// from this table.
#pragma once

#include "host/shr/Geometry.h"

#include <span>
#include <string_view>

namespace app {

struct SymbolShape {
    std::string_view name;
    // In a square from -1 to 1 that is as wide as the symbol's size, y downwards. Empty: a circle.
    std::span<const shr::Vec2d> outline;
    bool isHollow = false;  // the outline alone is drawn, in the symbol's colour

    // The same in terms of QGIS: the name of a simple marker, its size as a part of the symbol's,
    // and its turn, clockwise.
    std::string_view markerName;
    double markerSize = 1.0;
    double markerDegrees = 0.0;
};

// The number of the symbol that is not seen.
inline constexpr int kBlankSymbol = 31;

// 32 to 37: square, diamond, circle, star, triangles up and down; 38 to 43: the same hollow; 44 to
// 46: square, triangle and circle; 47 and 48: arrows to the upper right and the lower left; 49 and
// 50: upright and slanting cross. Every other number is a circle.
const SymbolShape& ShapeOf(int number);

// The width of a hollow symbol's line, as a part of its size.
inline constexpr double kHollowLine = 0.1;

}  // namespace app
