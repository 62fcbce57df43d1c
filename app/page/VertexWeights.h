// How much each vertex of a line or ring matters, so that a page can leave out those that matter
// least.
#pragma once

#include "host/shr/Geometry.h"

#include <span>
#include <vector>

namespace app {

// Returns a weight for each point: about the length, in the points' unit, below which the vertex
// would not be missed. A vertex weighs as much as the square root of the triangle that it makes
// with those neighbours that matter more than it, so that leaving out all vertices lighter than a
// length is the same as leaving them out one after the other, the smallest triangle first.
// Neighbours alone decide: areas that share a border keep the same vertices along it.
//
// The ends of a line, and of a ring its last three vertices, weigh infinitely much. A ring does not
// repeat its first point. Points must be finite. Takes n log n steps.
std::vector<float> WeightsOfLine(std::span<const shr::Vec2d> points);
std::vector<float> WeightsOfRing(std::span<const shr::Vec2d> points);

}  // namespace app
