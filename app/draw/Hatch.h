// The brush patterns: which lines each one is made of, and where they run on the page.
//
// Patterns hang on the page's origin, not on the area, so that neighbours with the same brush
// meet without a break.
#pragma once

#include "app/draw/PagePath.h"
#include "host/zeio/TrObjects.h"

#include <span>
#include <vector>

namespace app {

// Parallel lines. The angle is the one seen on the page, counter-clockwise from the x axis.
struct HatchLines {
    double angleDegrees;
    double spacing;  // pixels, from line to line
    double width;    // pixels
    bool isDotted;   // dots of the line's width, as far from each other as the lines
};

enum class AreaFill { None, Solid, Tint, Lines };

struct HatchPattern {
    zeio::TrBrush::Pattern pattern;
    AreaFill fill;
    double opacity;                     // of the fore colour, for Tint
    std::span<const HatchLines> lines;  // for Lines
};

// The row of a pattern; that of Solid for a number that is no pattern.
const HatchPattern& HatchPatternOf(zeio::TrBrush::Pattern pattern);

struct HatchSegment {
    PagePoint from;
    PagePoint to;
};

// The lines that cross the box, each long enough to leave it at both ends.
std::vector<HatchSegment> SegmentsThrough(const PageBox& box, const HatchLines& lines);

}  // namespace app
