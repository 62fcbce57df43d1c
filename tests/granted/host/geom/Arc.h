#pragma once

#include "host/shr/Geometry.h"

namespace geom {

bool ArcToCurve(const shr::Box2d& box, const shr::Vec2d& start, const shr::Vec2d& end, int count,
                shr::Vec2d* points, shr::Box2d* bounds);

}  // namespace geom
