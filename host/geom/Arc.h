// Curves as points.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/Geometry.h"

namespace geom {

// Fills points with count points along the elliptical arc in the box, counter-clockwise from the
// direction of start to that of end, both seen from the box's centre; bounds, when not null,
// receives their box. Start and end need not lie on the ellipse: only their directions count. Equal
// directions give the whole ellipse.
//
// False, with points untouched, when the box has no width or height, when start or end is the
// centre, when a number is not finite, or when count is below 2.
QOLF_HOST_API bool ArcToCurve(const shr::Box2d& box, const shr::Vec2d& start, const shr::Vec2d& end,
                              int count, shr::Vec2d* points, shr::Box2d* bounds);

}  // namespace geom
