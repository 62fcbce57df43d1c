#include "app/crs/Reprojection.h"

#include "app/base/Errors.h"

#include <cmath>

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
    return std::isfinite(value) ? std::round(value * stepsPerUnit) / stepsPerUnit : value;
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
    Apply(feature.geometry.points);
    for (Geometry& member : feature.members) {
        Apply(member.points);
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
