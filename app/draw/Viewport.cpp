#include "app/draw/Viewport.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace app {

namespace {

constexpr double kFarAway = 1e12;  // pixels

double WithinPage(double pixels) {
    return std::isnan(pixels) ? kFarAway : std::clamp(pixels, -kFarAway, kFarAway);
}

}  // namespace

double LongitudeStretch(const shr::Box2d& degrees) {
    constexpr double kNearPole = 85.0;
    const double middle =
        std::clamp(degrees.minY / 2.0 + degrees.maxY / 2.0, -kNearPole, kNearPole);
    return std::cos(middle * std::numbers::pi / 180.0);
}

PagePoint Viewport::ToPage(const shr::Vec2d& point) const {
    return {WithinPage(centreOnPage_.x + (point.x - centre_.x) * scaleX_),
            WithinPage(centreOnPage_.y - (point.y - centre_.y) * scaleY_)};
}

shr::Vec2d Viewport::ToWorld(const PagePoint& point) const {
    return {centre_.x + (point.x - centreOnPage_.x) / scaleX_,
            centre_.y - (point.y - centreOnPage_.y) / scaleY_};
}

}  // namespace app
