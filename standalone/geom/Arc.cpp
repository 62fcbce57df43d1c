#include "host/geom/Arc.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace geom {

namespace {

constexpr double kFullTurn = 2.0 * std::numbers::pi;

// The sine of an angle below which two directions are one: a few roundings.
constexpr double kSameDirection = 8.0 * std::numeric_limits<double>::epsilon();

// Without width or height, or both, it is flat: a line that is run along to and fro, or a point.
struct Ellipse {
    shr::Vec2d centre;
    double radiusX;
    double radiusY;

    bool IsFinite() const {
        return std::isfinite(centre.x) && std::isfinite(centre.y) && std::isfinite(radiusX) &&
               std::isfinite(radiusY);
    }

    // A point by its position on the unit circle that the ellipse is stretched from.
    shr::Vec2d At(const shr::Vec2d& unit) const {
        return {centre.x + radiusX * unit.x, centre.y + radiusY * unit.y};
    }
};

// Halves first: the difference of two large numbers may be too large. A box is taken as meant
// whichever of its corners comes first.
Ellipse EllipseIn(const shr::Box2d& box) {
    return {{box.minX / 2 + box.maxX / 2, box.minY / 2 + box.maxY / 2},
            std::fabs(box.maxX / 2 - box.minX / 2),
            std::fabs(box.maxY / 2 - box.minY / 2)};
}

// The point of the unit circle that is stretched to the ellipse's point in the direction of a
// point. A flat ellipse has no such point of its own, so there the direction is that of the circle.
shr::Vec2d UnitTowards(const Ellipse& ellipse, const shr::Vec2d& point) {
    const bool isFlat = ellipse.radiusX == 0.0 || ellipse.radiusY == 0.0;
    const double x = (point.x - ellipse.centre.x) / (isFlat ? 1.0 : ellipse.radiusX);
    const double y = (point.y - ellipse.centre.y) / (isFlat ? 1.0 : ellipse.radiusY);
    const double length = std::hypot(x, y);
    const shr::Vec2d unit{x / length, y / length};
    constexpr shr::Vec2d kAngleZero{1.0, 0.0};
    return std::isfinite(unit.x + unit.y) ? unit : kAngleZero;
}

// The turn from one unit vector to another: above 0, at most a full one.
double CounterClockwiseTurn(const shr::Vec2d& from, const shr::Vec2d& to) {
    const double sine = from.x * to.y - from.y * to.x;
    const double cosine = from.x * to.x + from.y * to.y;
    if (std::fabs(sine) <= kSameDirection && cosine > 0.0) {
        return kFullTurn;
    }
    const double turn = std::atan2(sine, cosine);
    return turn <= 0.0 ? turn + kFullTurn : turn;
}

shr::Box2d BoxOf(const shr::Vec2d* points, int count) {
    shr::Box2d box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (int i = 1; i < count; ++i) {
        box.minX = std::min(box.minX, points[i].x);
        box.minY = std::min(box.minY, points[i].y);
        box.maxX = std::max(box.maxX, points[i].x);
        box.maxY = std::max(box.maxY, points[i].y);
    }
    return box;
}

}  // namespace

bool ArcToCurve(const shr::Box2d& box, const shr::Vec2d& start, const shr::Vec2d& end, int count,
                shr::Vec2d* points, shr::Box2d* bounds) {
    const Ellipse ellipse = EllipseIn(box);
    if (count < 2 || !ellipse.IsFinite()) {
        return false;
    }
    const shr::Vec2d first = UnitTowards(ellipse, start);
    const shr::Vec2d last = UnitTowards(ellipse, end);
    const double startAngle = std::atan2(first.y, first.x);
    const double step = CounterClockwiseTurn(first, last) / (count - 1);
    for (int i = 1; i < count - 1; ++i) {
        const double angle = startAngle + step * i;
        points[i] = ellipse.At({std::cos(angle), std::sin(angle)});
    }
    // The ends are not computed from angles, so they are as exact as they can be.
    points[0] = ellipse.At(first);
    points[count - 1] = ellipse.At(last);
    if (bounds != nullptr) {
        *bounds = BoxOf(points, count);
    }
    return true;
}

}  // namespace geom
