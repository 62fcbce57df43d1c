// Curves as points.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/Geometry.h"

namespace geom {

// Fills `points` with `count` points along the elliptical arc in the box, counter-clockwise from
// the direction of `start` to that of `end`, both seen from the box's centre. Start and end need
// not lie on the ellipse: only their directions count. Equal directions give the whole ellipse.
//
// A start or an end without a direction (the centre itself, or a number that is not finite) is at
// angle 0, the right end of the ellipse. A box without width or height gives the flat arc: the
// points of a circle's arc, pressed onto the line.
//
// `points` has room for `count` points. `bounds`, when not null, receives the box of the points.
//
// False, with nothing written, only when the box has a number that is not finite or `count` is
// below 2.
QOLF_HOST_API bool ArcToCurve(const shr::Box2d& box, const shr::Vec2d& start, const shr::Vec2d& end,
                              int count, shr::Vec2d* points, shr::Box2d* bounds);

}  // namespace geom
