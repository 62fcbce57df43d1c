// Where the lines of hatched areas run on the page.
//
// Hatches hang on the page's origin, not on the area, so that neighbours with the same brush meet
// without a break.
#pragma once

#include "app/draw/PagePath.h"
#include "app/feature/StyleLooks.h"

#include <vector>

namespace app {

struct HatchSegment {
    PagePoint from;
    PagePoint to;
};

// The lines that cross the box, each long enough to leave it at both ends.
std::vector<HatchSegment> SegmentsThrough(const PageBox& box, const HatchLines& lines);

}  // namespace app
