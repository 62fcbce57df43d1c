// What the pens and brushes of MIF files look like: their numbers as widths, dashes and hatches.
// Pictures, pages and the styles of packages are all made from these tables.
//
// Lengths are pixels of 1/96 inch.
#pragma once

#include "app/feature/Style.h"

#include <span>

namespace app {

inline constexpr double kPixelsPerInch = 96.0;

constexpr double PixelsOfPoints(double points) {
    return points / 72.0 * kPixelsPerInch;
}

// Returns 0 for a pen that draws nothing.
double PixelsOf(const Pen& pen);

// The lengths of dash, gap, dash, ... in multiples of the pen's width; empty for a solid line. A
// pattern of ornaments that are no dashes is a solid line.
std::span<const double> DashesOf(int penPattern);

// Parallel lines, as they are seen on the page.
struct HatchLines {
    double angleDegrees;  // counter-clockwise from the x axis
    double spacing;       // from line to line
    double width;
};

enum class AreaFill { None, Solid, Tint, Lines };

struct BrushLook {
    AreaFill fill = AreaFill::Solid;
    double opacity = 1.0;                    // of the fore colour
    std::span<const HatchLines> lines = {};  // for Lines
};

// Patterns beyond the hatches, which are small bitmaps in two colours, are a tint of half the fore
// colour.
BrushLook LookOf(int brushPattern);

}  // namespace app
