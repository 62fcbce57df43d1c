// The rings of a polygon, without a copy.
#pragma once

#include "host/zeio/TrObjects.h"

#include <span>
#include <vector>

namespace app {

// The rings in order. Part sizes that reach past the vertices end with them; parts of no vertices
// are left out, and so are vertices that no part counts.
std::vector<std::span<const shr::Vec3d>> RingsOf(const zeio::TrPolygon& polygon);

}  // namespace app
