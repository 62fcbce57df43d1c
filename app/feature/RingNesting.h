// Which ring of a region lies in which: outer rings with their holes.
#pragma once

#include "host/shr/Geometry.h"

#include <cstddef>
#include <span>
#include <vector>

namespace app {

using Ring = std::span<const shr::Vec2d>;

struct NestedPolygon {
    Ring outer;
    std::vector<Ring> holes;
};

// Splits points into rings of the given sizes, which sum to points.size(). Rings of fewer than
// three different points, which enclose nothing, are left out.
std::vector<Ring> RingsOf(std::span<const shr::Vec2d> points,
                          std::span<const std::size_t> partSizes);

// A ring within an even number of others is an outer one; within an odd number it is a hole of the
// smallest ring around it, so an island in a hole is a polygon of its own. Rings may touch; where
// rings cross, the vertex that lies clear of the other ring decides.
std::vector<NestedPolygon> NestRings(std::span<const Ring> rings);

}  // namespace app
