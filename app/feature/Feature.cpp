#include "app/feature/Feature.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace app {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr shr::Box2d kEmptyBox{kInfinity, kInfinity, -kInfinity, -kInfinity};

shr::Vec2d OnEllipse(const shr::Vec2d& centre, const shr::Vec2d& radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180.0;
    return {centre.x + radius.x * std::cos(angle), centre.y + radius.y * std::sin(angle)};
}

// Points along a quarter ellipse from startDegrees counter-clockwise, both ends included.
void AddQuarter(std::vector<shr::Vec2d>& points, const shr::Vec2d& centre, const shr::Vec2d& radius,
                double startDegrees, int edges) {
    for (int i = 0; i <= edges; ++i) {
        points.push_back(OnEllipse(centre, radius, startDegrees + 90.0 * i / edges));
    }
}

void FlattenArea(Geometry& geometry, int segments) {
    const shr::Box2d box = geometry.box;
    const double halfWidth = (box.maxX - box.minX) / 2.0;
    const double halfHeight = (box.maxY - box.minY) / 2.0;
    shr::Vec2d radius{halfWidth, halfHeight};
    if (geometry.kind == GeometryKind::Rectangle) {
        radius = {std::clamp(std::abs(geometry.radiusX), 0.0, halfWidth),
                  std::clamp(std::abs(geometry.radiusY), 0.0, halfHeight)};
    }
    std::vector<shr::Vec2d>& points = geometry.points;
    points.clear();
    if (radius.x == 0.0 || radius.y == 0.0) {
        points = {
            {box.minX, box.minY}, {box.maxX, box.minY}, {box.maxX, box.maxY}, {box.minX, box.maxY}};
    } else {
        const int edges = std::max(1, (segments + 3) / 4);
        const shr::Vec2d low{box.minX + radius.x, box.minY + radius.y};
        const shr::Vec2d high{box.maxX - radius.x, box.maxY - radius.y};
        AddQuarter(points, {high.x, high.y}, radius, 0.0, edges);
        AddQuarter(points, {low.x, high.y}, radius, 90.0, edges);
        AddQuarter(points, {low.x, low.y}, radius, 180.0, edges);
        AddQuarter(points, {high.x, low.y}, radius, 270.0, edges);
        points.erase(std::unique(points.begin(), points.end()), points.end());
    }
    geometry.kind = GeometryKind::Region;
    geometry.partSizes = {points.size()};
}

void FlattenArc(Geometry& arc, int segments) {
    double sweep = std::fmod(arc.endDegrees - arc.startDegrees, 360.0);
    if (!(sweep > 0.0)) {
        sweep += 360.0;
    }
    const shr::Vec2d radius{(arc.box.maxX - arc.box.minX) / 2.0,
                            (arc.box.maxY - arc.box.minY) / 2.0};
    const shr::Vec2d centre{arc.box.minX + radius.x, arc.box.minY + radius.y};
    const int edges = std::max(1, static_cast<int>(std::ceil(segments * sweep / 360.0)));
    arc.points.clear();
    for (int i = 0; i <= edges; ++i) {
        arc.points.push_back(OnEllipse(centre, radius, arc.startDegrees + sweep * i / edges));
    }
    arc.kind = GeometryKind::Line;
    arc.partSizes.clear();
}

// Rounds numbers to a number of decimals.
class Rounding {
public:
    explicit Rounding(int decimals) : scale_(std::pow(10.0, decimals)) {}

    void Apply(double& number) const {
        const double scaled = number * scale_;
        // From here on a double has no digits behind the decimals.
        if (std::abs(scaled) < kMostScaled) {
            number = std::round(scaled) / scale_;
        }
    }
    void Apply(shr::Vec2d& point) const {
        Apply(point.x);
        Apply(point.y);
    }
    void Apply(shr::Box2d& box) const {
        for (double* number : {&box.minX, &box.minY, &box.maxX, &box.maxY}) {
            Apply(*number);
        }
    }
    void Apply(Geometry& geometry) const {
        for (shr::Vec2d& point : geometry.points) {
            Apply(point);
        }
        Apply(geometry.box);
        Apply(geometry.radiusX);
        Apply(geometry.radiusY);
        if (geometry.center) {
            Apply(*geometry.center);
        }
        if (geometry.placement.box) {
            Apply(*geometry.placement.box);
        }
        if (geometry.placement.labelLine) {
            Apply(geometry.placement.labelLine->end);
        }
    }

private:
    static constexpr double kMostScaled = 4503599627370496.0;  // 2 to the power of 52
    double scale_;
};

}  // namespace

void FlattenCurves(Geometry& geometry, int segments) {
    switch (geometry.kind) {
    case GeometryKind::Rectangle:
    case GeometryKind::Ellipse:
        FlattenArea(geometry, segments);
        break;
    case GeometryKind::Arc:
        FlattenArc(geometry, segments);
        break;
    default:
        break;
    }
}

void FlattenCurves(Feature& feature, int segments) {
    FlattenCurves(feature.geometry, segments);
    for (Geometry& member : feature.members) {
        FlattenCurves(member, segments);
    }
}

void RoundCoordinates(Feature& feature, int decimals) {
    const Rounding rounding(decimals);
    rounding.Apply(feature.geometry);
    for (Geometry& member : feature.members) {
        rounding.Apply(member);
    }
}

shr::Box2d BoxOf(std::span<const shr::Vec2d> points) {
    shr::Box2d box = kEmptyBox;
    double check = 0.0;  // stays 0 while every coordinate is a finite number
    for (const shr::Vec2d& point : points) {
        box = {std::min(box.minX, point.x), std::min(box.minY, point.y),
               std::max(box.maxX, point.x), std::max(box.maxY, point.y)};
        check += point.x * 0.0 + point.y * 0.0;
    }
    return check == 0.0 ? box : kEmptyBox;
}

shr::Box2d BoxOf(const Geometry& geometry) {
    switch (geometry.kind) {
    case GeometryKind::None:
    case GeometryKind::Collection:
        return kEmptyBox;
    case GeometryKind::Rectangle:
    case GeometryKind::Ellipse:
    case GeometryKind::Arc:
        return geometry.box;
    default:
        return BoxOf(std::span<const shr::Vec2d>(geometry.points));
    }
}

std::vector<std::span<const shr::Vec2d>> SectionsOf(const Geometry& line) {
    std::span<const shr::Vec2d> rest(line.points);
    if (line.partSizes.empty()) {
        return {rest};
    }
    std::vector<std::span<const shr::Vec2d>> sections;
    for (const std::size_t size : line.partSizes) {
        sections.push_back(rest.first(size));
        rest = rest.subspan(size);
    }
    return sections;
}

}  // namespace app
