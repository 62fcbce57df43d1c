#include "app/crs/SystemArea.h"

#include "app/crs/Transformation.h"
#include "app/crs/detail/Frames.h"
#include "app/crs/detail/PlainNumber.h"
#include "app/crs/detail/ProjHandles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace app {
namespace {

constexpr double kSlack = 0.1;  // of the width and the height

}  // namespace

struct SystemArea::Limits {
    explicit Limits(const CoordinateSystem& system) : toWgs84(system, Wgs84System()) {}

    // The place of a point, longitude and latitude, or two infinities.
    bool Holds(double longitude, double latitude) const {
        const double width = area.east - area.west + (area.east < area.west ? 360.0 : 0.0);
        const double height = area.north - area.south;
        const double east = std::remainder(longitude - area.west - width / 2.0, 360.0);
        return std::isfinite(longitude) && std::isfinite(latitude) &&
               std::fabs(east) <= width * (0.5 + kSlack) &&
               latitude >= area.south - height * kSlack && latitude <= area.north + height * kSlack;
    }

    Transformation toWgs84;
    detail::Area area;
};

SystemArea::SystemArea(const CoordinateSystem& system) {
    if (!system.IsOnEarth()) {
        return;
    }
    const detail::ContextHandle context = detail::MakeContext();
    const detail::PjHandle crs(proj_create(context.get(), system.definition.c_str()));
    auto limits = std::make_unique<Limits>(system);
    detail::Area& area = limits->area;
    if (crs == nullptr || !limits->toWgs84.Problem().empty() ||
        proj_get_area_of_use(context.get(), crs.get(), &area.west, &area.south, &area.east,
                             &area.north, nullptr) == 0 ||
        area.west < -180.0) {
        return;
    }
    limits_ = std::move(limits);
    words_ = "longitude " + detail::PlainNumber(limits_->area.west) + " to " +
             detail::PlainNumber(limits_->area.east) + ", latitude " +
             detail::PlainNumber(limits_->area.south) + " to " +
             detail::PlainNumber(limits_->area.north);
}

SystemArea::~SystemArea() = default;

bool SystemArea::AnyOutside(std::span<const shr::Vec2d> points) const {
    std::vector<double> x;
    std::vector<double> y;
    for (const shr::Vec2d& point : points) {
        x.push_back(point.x);
        y.push_back(point.y);
    }
    limits_->toWgs84.Apply(x, y);
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!limits_->Holds(x[i], y[i])) {
            return true;
        }
    }
    return false;
}

std::optional<std::size_t> SystemArea::FirstOutside(std::span<const shr::Vec2d> points) const {
    if (limits_ == nullptr || points.empty()) {
        return std::nullopt;
    }
    shr::Box2d box{points.front().x, points.front().y, points.front().x, points.front().y};
    for (const shr::Vec2d& point : points) {
        box = {std::min(box.minX, point.x), std::min(box.minY, point.y),
               std::max(box.maxX, point.x), std::max(box.maxY, point.y)};
    }
    const std::array<shr::Vec2d, 4> corners{
        {{box.minX, box.minY}, {box.minX, box.maxY}, {box.maxX, box.minY}, {box.maxX, box.maxY}}};
    if (!AnyOutside(corners)) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (AnyOutside(points.subspan(i, 1))) {
            return i;
        }
    }
    return std::nullopt;
}

}  // namespace app
