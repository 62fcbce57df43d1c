// Leaves out vertices that a map at its closest would not show.
#pragma once

#include "app/feature/Feature.h"

namespace app {

// Leaves out the vertices of a Line or Region that lie within `tolerance` of the line through those
// that stay; the ends of sections stay. A ring keeps at least three vertices, so that no area is
// lost. Sections and rings are judged alone: where two share a border, both keep the same vertices
// only if both go along it from the same end. Other kinds stay as they are, and so does everything
// at a tolerance of 0. Vertices that are no numbers are left out.
void Simplify(Geometry& geometry, double tolerance);

}  // namespace app
