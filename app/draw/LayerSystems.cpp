#include "app/draw/LayerSystems.h"

#include "app/base/Errors.h"

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

}  // namespace

bool IsSameSystem(const gcs::CSDef& left, const gcs::CSDef& right) {
    const gcs::GCSDef* const a = EarthSystem(left);
    const gcs::GCSDef* const b = EarthSystem(right);
    if (a == nullptr || b == nullptr) {
        return a == b && left.UnitFactor() == right.UnitFactor();
    }
    return a->GetProjection() == b->GetProjection() && IsSameDatum(a->GetDatum(), b->GetDatum());
}

LayerTransform LayerSystems::TransformFrom(const SystemPtr& system, std::string& problem) {
    problem.clear();
    if (system == nullptr || EarthSystem(*system) == nullptr) {
        problem = "has no coordinate system of the Earth";
        return {};
    }
    if (!target_) {
        target_ = system;
    }
    if (IsSameSystem(*system, *target_)) {
        return {};
    }
    try {
        return LayerTransform(Reprojection(system.get(), target_.get()));
    } catch (const Failure& failure) {
        problem = std::string("can't be moved into the picture's coordinate system (") +
                  failure.what() + ")";
        return {};
    }
}

bool LayerSystems::IsGeographic() const {
    const gcs::GCSDef* const earth = target_ ? EarthSystem(*target_) : nullptr;
    return earth != nullptr &&
           earth->GetProjection().GetMethod() == gcs::ProjectionMethod::LongitudeLatitude;
}

}  // namespace app
