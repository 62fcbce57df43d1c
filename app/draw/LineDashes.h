// What a pen comes to on the page: its width in pixels, and its dashes.
#pragma once

#include "host/zeio/TrObjects.h"

#include <vector>

namespace app {

inline constexpr double kHairline = 1.0;     // pixels: the thinnest line
inline constexpr double kThinnestPen = 0.5;  // pixels: of pens that have a width

// The width on the page of a pen in inches. widest is the limit of what is drawn. A width that is
// no number, or not above 0, is a hairline.
double PenWidthOnPage(const zeio::TrPen& pen, double widest);

// The lengths of dash, gap, dash, ... in pixels under a pen of that width; empty for a solid
// line, which is also what lengths that make no pattern or one too fine to be seen give.
std::vector<double> DashesOnPage(const zeio::TrPen& pen, double widthPixels);

}  // namespace app
