#include "app/draw/LayerView.h"

#include <cmath>
#include <utility>

namespace app {

std::optional<shr::Vec2d> PlaceOf(const shr::Vec2d& point, const PointTransform& transform) {
    if (!IsDrawable(point.x, point.y)) {
        return std::nullopt;
    }
    if (!transform) {
        return point;
    }
    const std::optional<shr::Vec2d> place = transform(point);
    if (!place || !IsDrawable(place->x, place->y)) {
        return std::nullopt;
    }
    return place;
}

LayerView::LayerView(const Viewport& viewport, PointTransform transform)
    : viewport_(viewport), transform_(std::move(transform)) {}

std::optional<PagePoint> LayerView::ToPage(const shr::Vec2d& point) const {
    const std::optional<shr::Vec2d> place = PlaceOf(point, transform_);
    if (!place) {
        return std::nullopt;
    }
    return viewport_.ToPage(*place);
}

double LayerView::LengthOnPage(const shr::Vec2d& at, double worldLength) const {
    const std::optional<PagePoint> from = ToPage(at);
    const std::optional<PagePoint> to = ToPage({at.x, at.y + worldLength});
    if (!from || !to) {
        return 0.0;
    }
    return std::hypot(to->x - from->x, to->y - from->y);
}

}  // namespace app
