// Which ring of a region is a hole, and in which other ring it lies.
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

// Cuts `points` into rings of the given sizes, which must sum to points.size(). Rings of fewer than
// three different points enclose nothing and are left out. The results point into `points`.
std::vector<Ring> RingsOf(std::span<const shr::Vec2d> points,
                          std::span<const std::size_t> partSizes);

// Sorts rings into polygons, in the order of the outer rings. A ring that lies in an even number of
// others is an outer one. A ring that lies in an odd number is a hole of the smallest ring around
// it; so an island in a hole is a polygon of its own. Rings may touch. Where two cross, the first
// vertex that does not lie on the other ring decides.
std::vector<NestedPolygon> NestRings(std::span<const Ring> rings);

}  // namespace app
