// How the coordinates of one layer come onto the page: through the transformation into the
// picture's coordinate system, where there is one, and the viewport.
#pragma once

#include "app/draw/Viewport.h"

#include <functional>
#include <optional>

namespace app {

// From a layer's coordinates to the picture's; absent for a point that has no place there. An
// empty function leaves points as they are.
using PointTransform = std::function<std::optional<shr::Vec2d>(const shr::Vec2d&)>;

// The point in the picture's coordinates; absent when it can't be drawn at all (not a number,
// beyond all limits, or without a place there).
std::optional<shr::Vec2d> PlaceOf(const shr::Vec2d& point, const PointTransform& transform);

class LayerView {
public:
    LayerView(const Viewport& viewport, PointTransform transform);

    std::optional<PagePoint> ToPage(const shr::Vec2d& point) const;

    // The length in pixels of a world length that points up from a place; 0 when it can't be told.
    double LengthOnPage(const shr::Vec2d& at, double worldLength) const;

    PageSize Page() const { return viewport_.Page(); }

private:
    Viewport viewport_;
    PointTransform transform_;
};

}  // namespace app
