#include "app/draw/LayerSystems.h"

#include "app/crs/CoordinateTransformer.h"

#include <utility>

namespace app {

namespace {

const gcs::GCSDef* EarthSystem(const gcs::CSDef& system) {
    return dynamic_cast<const gcs::GCSDef*>(&system);
}

bool IsSameDatum(const gcs::DatumDef& left, const gcs::DatumDef& right) {
    const gcs::DatumParameters& a = left.GetParameters();
    const gcs::DatumParameters& b = right.GetParameters();
    return a.kind == b.kind && a.ellipsoid == b.ellipsoid && a.dx == b.dx && a.dy == b.dy &&
           a.dz == b.dz && a.rx == b.rx && a.ry == b.ry && a.rz == b.rz && a.scale == b.scale &&
           a.primeMeridian == b.primeMeridian;
}

// By way of WGS 84.
class SystemPair {
public:
    SystemPair(const gcs::CSDef& from, const gcs::CSDef& to) : from_(from), to_(to) {}

    const std::string& Problem() const {
        return from_.problem().empty() ? to_.problem() : from_.problem();
    }

    std::optional<shr::Vec2d> Transform(shr::Vec2d point) const {
        const std::span<double> x(&point.x, 1);
        const std::span<double> y(&point.y, 1);
        if (from_.ToWgs84(x, y) > 0 || to_.FromWgs84(x, y) > 0) {
            return std::nullopt;
        }
        return point;
    }

private:
    CoordinateTransformer from_;
    CoordinateTransformer to_;
};

}  // namespace

bool IsSameSystem(const gcs::CSDef& left, const gcs::CSDef& right) {
    const gcs::GCSDef* const a = EarthSystem(left);
    const gcs::GCSDef* const b = EarthSystem(right);
    if (a == nullptr || b == nullptr) {
        return a == b && left.UnitFactor() == right.UnitFactor();
    }
    return a->GetProjection() == b->GetProjection() && IsSameDatum(a->GetDatum(), b->GetDatum());
}

LayerTransform LayerSystems::TransformFrom(const gcs::CSDef& system) {
    if (!target_) {
        target_ = system.Clone();
    }
    if (IsSameSystem(system, *target_)) {
        return {};
    }
    const auto pair = std::make_shared<SystemPair>(system, *target_);
    if (!pair->Problem().empty()) {
        return {.transform = {}, .problem = pair->Problem()};
    }
    return {.transform = [pair](const shr::Vec2d& point) { return pair->Transform(point); },
            .problem = {}};
}

bool LayerSystems::IsGeographic() const {
    const gcs::GCSDef* const earth = target_ ? EarthSystem(*target_) : nullptr;
    return earth != nullptr &&
           earth->GetProjection().GetMethod() == gcs::ProjectionMethod::LongitudeLatitude;
}

}  // namespace app
