// The true points of an Arc: angles in degrees counter-clockwise from the x axis, over the ellipse
// in its box.
#pragma once

#include "host/shr/Geometry.h"

#include <string>
#include <vector>

namespace app {

// From startDegrees on to endDegrees, a point at each end and about every three degrees between.
// Equal angles are the whole ellipse.
std::vector<shr::Vec2d> ArcPoints(const shr::Box2d& box, double startDegrees, double endDegrees);

// The Pline object through the points, each line ended by lineEnd but the last one.
std::string PlineText(const std::vector<shr::Vec2d>& points, const std::string& lineEnd);

}  // namespace app
