#include "app/draw/MapScale.h"

#include "app/base/Angles.h"
#include "app/base/Errors.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace app {

namespace {

constexpr double kEarthRadius = 6371008.8;  // metres, in the mean

// The way over a ball between two places in degrees.
double GreatCircle(const shr::Vec2d& from, const shr::Vec2d& to) {
    const double latitude = std::sin((to.y - from.y) * kDegree / 2.0);
    const double longitude = std::sin((to.x - from.x) * kDegree / 2.0);
    const double chord = latitude * latitude + std::cos(from.y * kDegree) *
                                                   std::cos(to.y * kDegree) * longitude * longitude;
    return 2.0 * kEarthRadius * std::asin(std::sqrt(std::min(chord, 1.0)));
}

}  // namespace

std::optional<double> MetresPerPixel(const CoordinateSystem* system, const Viewport& viewport) {
    if (system == nullptr || system->kind == SystemKind::Unknown ||
        system->kind == SystemKind::Faulty) {
        return std::nullopt;
    }
    if (system->kind == SystemKind::Plane) {
        return system->metresPerUnit > 0.0
                   ? std::optional(system->metresPerUnit / viewport.PixelsPerUnit())
                   : std::nullopt;
    }
    // A short way: on a long one a projection turns and stretches.
    const double width = viewport.Page().width / 100.0;
    const PagePoint middle{viewport.Page().width / 2.0, viewport.Page().height / 2.0};
    std::vector<shr::Vec2d> ends{viewport.ToWorld({middle.x - width / 2.0, middle.y}),
                                 viewport.ToWorld({middle.x + width / 2.0, middle.y})};
    try {
        Reprojection(*system, Wgs84System()).Apply(ends);
    } catch (const Failure&) {
        return std::nullopt;
    }
    const double metres = GreatCircle(ends[0], ends[1]);
    return std::isfinite(metres) && metres > 0.0 ? std::optional(metres / width) : std::nullopt;
}

}  // namespace app
