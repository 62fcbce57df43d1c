#include "host/gcs/CSDef.h"

namespace gcs {

CSDef::~CSDef() = default;

GCSDef::GCSDef() = default;
GCSDef::~GCSDef() = default;

double GCSDef::UnitFactor() const {
    return projection_.GetParameter(ProjectionParameterID::UnitsPerMetre);
}

std::unique_ptr<CSDef> GCSDef::Clone() const {
    return std::make_unique<GCSDef>(*this);
}

bool GCSDef::HasProjection(bool /*resolve*/, bool /*countGeographic*/) const {
    return !projection_.IsUnknown(false);
}

bool GCSDef::HasDatum(bool /*resolve*/) const {
    return !datum_.IsUnknown();
}

PlaneDef::PlaneDef(double unitsPerMetre) : unitsPerMetre_(unitsPerMetre) {}
PlaneDef::~PlaneDef() = default;

std::unique_ptr<CSDef> PlaneDef::Clone() const {
    return std::make_unique<PlaneDef>(*this);
}

}  // namespace gcs
