#include "app/crs/Reprojection.h"

#include "app/base/Errors.h"

#include <cmath>
#include <cstdint>
#include <numbers>

namespace app {

namespace {

// A power of ten, so that rounded numbers are short.
double StepsPerUnit(const CoordinateSystem& system) {
    constexpr double kDegreeDecimals = 9.0;
    constexpr double kMetreDecimals = 5.0;
    const double decimals =
        system.isGeographic
            ? kDegreeDecimals
            : std::fmax(0.0, kMetreDecimals + std::ceil(std::log10(system.metresPerUnit)));
    return std::pow(10.0, decimals);
}

double Rounded(double value, double stepsPerUnit) {
    return std::isfinite(value) && stepsPerUnit > 0.0
               ? std::round(value * stepsPerUnit) / stepsPerUnit
               : value;
}

}  // namespace

Reprojection::Reprojection(const CoordinateSystem& from, const CoordinateSystem& to)
    : transformation_(from, to), stepsPerUnit_(StepsPerUnit(to)) {
    if (!transformation_.Problem().empty()) {
        throw Failure(transformation_.Problem());
    }
}

void Reprojection::Apply(Feature& feature) {
    if (!IsNeeded()) {
        return;
    }
    Apply(feature.geometry);
    for (Geometry& member : feature.members) {
        Apply(member);
    }
}

void Reprojection::Apply(Geometry& geometry) {
    if (geometry.kind == GeometryKind::Text && geometry.points.size() == 1) {
        ApplyToText(geometry);
    } else {
        Apply(geometry.points);
    }
}

// A text's height and angle are those of a short way up and one along its base there.
void Reprojection::ApplyToText(Geometry& text) {
    TextPlacement& placement = text.placement;
    const shr::Vec2d from = text.points.front();
    const double angle = placement.angleDegrees * std::numbers::pi / 180.0;
    const shr::Vec2d along{std::cos(angle) * placement.height, std::sin(angle) * placement.height};
    std::vector<shr::Vec2d> points{from};
    if (placement.labelLine) {
        points.push_back(placement.labelLine->end);
    }
    Apply(points);
    text.points = {points.front()};
    placement.box.reset();
    if (placement.labelLine) {
        placement.labelLine->end = points.back();
    }
    const std::uint64_t failed = failedPoints_;
    std::vector<shr::Vec2d> ways{{from.x + along.x, from.y + along.y},
                                 {from.x - along.y, from.y + along.x}};
    Apply(ways);
    failedPoints_ = failed;  // these are no points of the map
    const shr::Vec2d& at = text.points.front();
    const double height = std::hypot(ways[1].x - at.x, ways[1].y - at.y);
    if (std::isfinite(height) && height > 0.0 && std::isfinite(ways[0].x)) {
        placement.height = height;
        placement.angleDegrees =
            std::atan2(ways[0].y - at.y, ways[0].x - at.x) * 180.0 / std::numbers::pi;
    }
}

void Reprojection::Apply(std::vector<shr::Vec2d>& points) {
    x_.resize(points.size());
    y_.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        x_[i] = points[i].x;
        y_[i] = points[i].y;
    }
    failedPoints_ += transformation_.Apply(x_, y_);
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = {Rounded(x_[i], stepsPerUnit_), Rounded(y_[i], stepsPerUnit_)};
    }
}

}  // namespace app
