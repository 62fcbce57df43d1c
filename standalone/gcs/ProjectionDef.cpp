#include "host/gcs/ProjectionDef.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace gcs {

namespace {

using Id = ProjectionParameterID;
using Method = ProjectionMethod;

// What a parameter's value is, and so which values it takes.
enum class Kind { Unused, Ellipsoid, Length, Longitude, Latitude, Angle, AboveZero, Boolean };

// By id.
constexpr std::array<Kind, kProjectionParameterCount> kKinds{
    Kind::Unused,     // 0 none
    Kind::Unused,     // 1
    Kind::Ellipsoid,  // 2
    Kind::AboveZero,  // 3 units per metre
    Kind::Length,     // 4 false easting
    Kind::Length,     // 5 false northing
    Kind::Longitude,  // 6 central longitude
    Kind::Longitude,  // 7 longitude of the centre
    Kind::Unused,     // 8
    Kind::Latitude,   // 9 latitude of origin
    Kind::Latitude,   // 10 first standard parallel
    Kind::Latitude,   // 11 second standard parallel
    Kind::AboveZero,  // 12 scale factor
    Kind::Unused,     // 13
    Kind::Angle,      // 14 azimuth
    Kind::Boolean,    // 15 defined by azimuth
    Kind::Boolean,    // 16 rectified origin
};

struct Needs {
    Method method;
    bool isConic;           // equal and opposite standard parallels make it no projection
    std::array<Id, 4> ids;  // filled up with None
};

// The parameters without which a method is no definition: where it is centred, the parallels of a
// conic, the scale at the origin.
//
// The others have a default that means "not displaced" or "as usual": the unit, the false origin
// (but that of the New Zealand Map Grid, which is all that its definition carries), the two
// booleans, the azimuth where it has no meaning. The ellipsoid is the datum's business and absent
// when the datum is unknown. Azimuthal equidistant and equal-area projections and the equidistant
// cylindrical one have their latitude in parameter 10; a latitude of origin beside it is optional.
// clang-format off
constexpr Needs kNeeds[] = {
    {Method::AlbersEqualAreaConic, true, {Id::CentralLongitude, Id::LatitudeOfOrigin, Id::StandardParallel1, Id::StandardParallel2}},
    {Method::AzimuthalEquidistant, false, {Id::CentralLongitude, Id::StandardParallel1}},
    {Method::CassiniSoldner, false, {Id::CentralLongitude, Id::LatitudeOfOrigin}},
    {Method::EckertIV, false, {Id::CentralLongitude}},
    {Method::EckertVI, false, {Id::CentralLongitude}},
    {Method::EquidistantCylindrical, false, {Id::CentralLongitude, Id::StandardParallel1}},
    {Method::EquidistantConic, true, {Id::CentralLongitude, Id::LatitudeOfOrigin, Id::StandardParallel1, Id::StandardParallel2}},
    {Method::HotineObliqueMercator, false, {Id::CentreLongitude, Id::LatitudeOfOrigin, Id::ScaleFactor, Id::Azimuth}},
    {Method::Mercator, false, {Id::CentralLongitude}},
    {Method::Mollweide, false, {Id::CentralLongitude}},
    {Method::LambertConformalConic, true, {Id::CentralLongitude, Id::LatitudeOfOrigin, Id::StandardParallel1, Id::StandardParallel2}},
    {Method::LambertAzimuthalEqualArea, false, {Id::CentralLongitude, Id::StandardParallel1}},
    {Method::MillerCylindrical, false, {Id::CentralLongitude}},
    {Method::Stereographic, false, {Id::CentralLongitude, Id::LatitudeOfOrigin, Id::ScaleFactor}},
    {Method::Polyconic, false, {Id::CentralLongitude, Id::LatitudeOfOrigin}},
    {Method::Robinson, false, {Id::CentralLongitude}},
    {Method::Sinusoidal, false, {Id::CentralLongitude}},
    {Method::TransverseMercator, false, {Id::CentralLongitude, Id::LatitudeOfOrigin, Id::ScaleFactor}},
    {Method::GaussKrueger, false, {Id::CentralLongitude, Id::LatitudeOfOrigin, Id::ScaleFactor}},
    {Method::ObliqueMercatorOther, false, {Id::CentreLongitude, Id::LatitudeOfOrigin, Id::ScaleFactor, Id::Azimuth}},
    {Method::NewZealandMapGrid, false, {Id::FalseEasting, Id::FalseNorthing}},
};
// clang-format on

// Parallels whose sum is closer to 0 than this give a cone without an apex.
constexpr double kOppositeDegrees = 1e-8;

// Null for a method that needs nothing.
const Needs* NeedsOf(Method method) {
    for (const Needs& needs : kNeeds) {
        if (needs.method == method) {
            return &needs;
        }
    }
    return nullptr;
}

bool IsNeeded(const Needs* needs, Id id) {
    return needs != nullptr && id != Id::None &&
           std::find(needs->ids.begin(), needs->ids.end(), id) != needs->ids.end();
}

bool IsInRange(Kind kind, double value) {
    if (!std::isfinite(value)) {
        return false;
    }
    switch (kind) {
    case Kind::Longitude:
        return std::fabs(value) <= 360.0;
    case Kind::Latitude:
        return std::fabs(value) <= 90.0;
    case Kind::AboveZero:
        return value > 0.0;
    default:
        return true;
    }
}

bool IsInRange(const EllipsoidDef& ellipsoid) {
    const double radius = ellipsoid.GetMajorRadius();
    const double flattening = ellipsoid.GetFlattening();
    return std::isfinite(radius) && radius > 0.0 && flattening >= 0.0 && flattening < 1.0;
}

std::optional<std::size_t> IndexOf(Id id, bool isBoolean) {
    const auto index = static_cast<std::size_t>(id);
    if (index >= kKinds.size() || kKinds[index] == Kind::Unused ||
        kKinds[index] == Kind::Ellipsoid || (kKinds[index] == Kind::Boolean) != isBoolean) {
        return std::nullopt;
    }
    return index;
}

}  // namespace

void ProjectionDef::SetParameter(ProjectionParameterID id, double value) {
    if (const auto index = IndexOf(id, /*isBoolean=*/false)) {
        values_[*index] = value;
        isSet_[*index] = true;
    }
}

void ProjectionDef::SetParameter(ProjectionParameterID id, bool value) {
    if (const auto index = IndexOf(id, /*isBoolean=*/true)) {
        values_[*index] = value ? 1.0 : 0.0;
        isSet_[*index] = true;
    }
}

void ProjectionDef::SetParameter(ProjectionParameterID id, const EllipsoidDef& ellipsoid) {
    if (id == ProjectionParameterID::Ellipsoid) {
        ellipsoid_ = ellipsoid;
        isSet_[static_cast<std::size_t>(id)] = true;
    }
}

bool ProjectionDef::HasParameter(ProjectionParameterID id) const {
    const auto index = static_cast<std::size_t>(id);
    return index < isSet_.size() && isSet_[index];
}

double ProjectionDef::GetParameter(ProjectionParameterID id) const {
    if (HasParameter(id)) {
        return values_[static_cast<std::size_t>(id)];
    }
    return id == Id::UnitsPerMetre || id == Id::ScaleFactor ? 1.0 : 0.0;
}

ProjectionParameters ProjectionDef::GetParameters() const {
    ProjectionParameters parameters;
    parameters.unitsPerMetre = GetParameter(Id::UnitsPerMetre);
    parameters.falseEasting = GetParameter(Id::FalseEasting);
    parameters.falseNorthing = GetParameter(Id::FalseNorthing);
    parameters.centralLongitude = GetParameter(Id::CentralLongitude);
    parameters.centreLongitude = GetParameter(Id::CentreLongitude);
    parameters.latitudeOfOrigin = GetParameter(Id::LatitudeOfOrigin);
    parameters.standardParallel1 = GetParameter(Id::StandardParallel1);
    parameters.standardParallel2 = GetParameter(Id::StandardParallel2);
    parameters.scaleFactor = GetParameter(Id::ScaleFactor);
    parameters.azimuth = GetParameter(Id::Azimuth);
    parameters.definedByAzimuth = GetParameter(Id::DefinedByAzimuth) != 0.0;
    parameters.rectifiedOrigin = GetParameter(Id::RectifiedOrigin) != 0.0;
    return parameters;
}

const EllipsoidDef* ProjectionDef::GetEllipsoid() const {
    return HasParameter(Id::Ellipsoid) ? &ellipsoid_ : nullptr;
}

bool ProjectionDef::IsUnknown(bool /*resolve*/) const {
    return method_ == Method::Unknown;
}

ProjectionParameterID ProjectionDef::CheckParameters() const {
    const Needs* needs = NeedsOf(method_);
    for (std::size_t index = 0; index < kKinds.size(); ++index) {
        const auto id = static_cast<ProjectionParameterID>(index);
        if (!isSet_[index]) {
            if (IsNeeded(needs, id)) {
                return id;
            }
            continue;
        }
        if (id == Id::Ellipsoid ? !IsInRange(ellipsoid_)
                                : !IsInRange(kKinds[index], values_[index])) {
            return id;
        }
        if (id == Id::StandardParallel2 && needs != nullptr && needs->isConic &&
            std::fabs(GetParameter(Id::StandardParallel1) + values_[index]) < kOppositeDegrees) {
            return id;
        }
    }
    return Id::None;
}

bool ProjectionDef::operator==(const ProjectionDef&) const = default;

}  // namespace gcs
