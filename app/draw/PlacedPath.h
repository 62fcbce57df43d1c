// The paths of geometries on the page, thinned and cut to a box.
#pragma once

#include "app/draw/PagePath.h"
#include "app/draw/Viewport.h"
#include "app/feature/Feature.h"

#include <span>
#include <vector>

namespace app {

// Points that can't be drawn are left out.
PagePath PathOf(const Viewport& viewport, std::span<const shr::Vec2d> points);

// The parts of a Line inside the box.
std::vector<PagePath> LineOnPage(const Viewport& viewport, const Geometry& line,
                                 const PageBox& box);

// The rings of a Region inside the box, without their first points again at the end.
std::vector<PagePath> RingsOnPage(const Viewport& viewport, const Geometry& region,
                                  const PageBox& box);

// In pixels.
double LengthOf(const PagePath& path);

}  // namespace app
