// How far a map reaches: what of it can be drawn, and its box in words.
#pragma once

#include "app/feature/Feature.h"

#include <string>

namespace app {

// True for a point that can take part in a map: both numbers finite and small enough that
// differences of two of them stay finite.
bool IsDrawable(double x, double y);

// The box of the geometry's points that can be drawn, of a Text that has its frame
// (app/map/TextFrame.h) also of its words; empty without any.
shr::Box2d DrawableBox(const Geometry& geometry);

// The box as --bbox takes it: "24.5,59.3,25,59.5", with eight digits a number.
std::string CornersOf(const shr::Box2d& box);

}  // namespace app
