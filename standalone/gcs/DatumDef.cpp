#include "host/gcs/DatumDef.h"

#include <utility>

namespace gcs {

DatumDef::DatumDef(std::wstring token, std::wstring name, const DatumParameters& parameters)
    : token_(std::move(token)), name_(std::move(name)), parameters_(parameters) {}

void DatumDef::SetParameters(const DatumParameters* parameters) {
    token_.clear();
    name_.clear();
    parameters_ = parameters != nullptr ? *parameters : DatumParameters{};
}

DatumTarget DatumDef::GetTarget() const {
    return IsUnknown() ? DatumTarget::None : parameters_.target;
}

bool DatumDef::GetParameter(DatumParameterID id, double& value) const {
    if (IsUnknown()) {
        return false;
    }
    switch (id) {
    case DatumParameterID::PrimeMeridian:
        value = parameters_.primeMeridian;
        return true;
    case DatumParameterID::ShiftX:
        value = parameters_.dx;
        return true;
    case DatumParameterID::ShiftY:
        value = parameters_.dy;
        return true;
    case DatumParameterID::ShiftZ:
        value = parameters_.dz;
        return true;
    case DatumParameterID::RotationX:
        value = parameters_.rx;
        return true;
    case DatumParameterID::RotationY:
        value = parameters_.ry;
        return true;
    case DatumParameterID::RotationZ:
        value = parameters_.rz;
        return true;
    case DatumParameterID::Scale:
        value = parameters_.scale;
        return true;
    case DatumParameterID::None:
    case DatumParameterID::Ellipsoid:
        break;
    }
    return false;
}

bool DatumDef::GetParameter(DatumParameterID id, EllipsoidDef& ellipsoid) const {
    if (IsUnknown() || id != DatumParameterID::Ellipsoid) {
        return false;
    }
    ellipsoid = parameters_.ellipsoid;
    return true;
}

}  // namespace gcs
