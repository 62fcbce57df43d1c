#include "app/crs/Clause.h"

#include "app/crs/detail/PlainNumber.h"
#include "host/gcs/KnownLists.h"
#include "standalone/Text.h"

#include <cmath>

namespace app {

namespace {

using detail::PlainNumber;
using enum ProjectionParameter;

const char* NameOf(ProjectionParameter parameter) {
    switch (parameter) {
    case OriginLongitude:
        return "origin longitude";
    case OriginLatitude:
        return "origin latitude";
    case StandardParallel1:
        return "first standard parallel";
    case StandardParallel2:
        return "second standard parallel";
    case Azimuth:
        return "azimuth";
    case RectifiedAngle:
        return "rectified angle";
    case ScaleFactor:
        return "scale factor";
    case FalseEasting:
        return "false easting";
    case FalseNorthing:
        return "false northing";
    }
    return "";
}

bool IsInRange(ProjectionParameter parameter, double value) {
    if (!std::isfinite(value)) {
        return false;
    }
    switch (parameter) {
    case OriginLongitude:
    case Azimuth:
    case RectifiedAngle:
        return std::fabs(value) <= 360.0;
    case OriginLatitude:
    case StandardParallel1:
    case StandardParallel2:
        return std::fabs(value) <= 90.0;
    case ScaleFactor:
        return value > 0.0;
    case FalseEasting:
    case FalseNorthing:
        return true;
    }
    return false;
}

bool IsFinite(const gcs::DatumParameters& datum) {
    for (const double value : {datum.dx, datum.dy, datum.dz, datum.rx, datum.ry, datum.rz,
                               datum.scale, datum.primeMeridian, datum.ellipsoid.GetFlattening()}) {
        if (!std::isfinite(value)) {
            return false;
        }
    }
    return std::isfinite(datum.ellipsoid.GetMajorRadius()) &&
           datum.ellipsoid.GetMajorRadius() > 0.0;
}

bool HasUsableUnit(double metresPerUnit) {
    return std::isfinite(metresPerUnit) && metresPerUnit > 0.0;
}

std::string DatumInWords(const gcs::DatumDef& datum) {
    if (datum.IsUnknown()) {
        return "Unknown datum";
    }
    if (!datum.GetName().empty()) {
        return standalone::Narrow(datum.GetName());
    }
    const gcs::EllipsoidDef& ellipsoid = datum.GetEllipsoid();
    const int index = gcs::GCSKnownEllipsoidsList.FindByDimensions(ellipsoid.GetMajorRadius(),
                                                                   ellipsoid.GetFlattening());
    return "Custom datum on " + (index == 0
                                     ? std::string("an ellipsoid of its own")
                                     : standalone::Narrow(gcs::GCSKnownEllipsoidsList.Name(index)));
}

bool IsSameDatum(const gcs::DatumParameters& a, const gcs::DatumParameters& b) {
    return a.kind == b.kind && a.ellipsoid == b.ellipsoid && a.dx == b.dx && a.dy == b.dy &&
           a.dz == b.dz && a.rx == b.rx && a.ry == b.ry && a.rz == b.rz && a.scale == b.scale &&
           a.primeMeridian == b.primeMeridian;
}

}  // namespace

bool AffineTransformation::CanBeInverted() const {
    // Relative to the size of the coefficients: 1e-300 is no more a number to divide by than 0.
    constexpr double kVanishing = 1e-12;
    const double determinant = a * e - b * d;
    const double size = std::hypot(a, b) * std::hypot(d, e);
    return std::isfinite(size) && std::isfinite(c) && std::isfinite(f) &&
           HasUsableUnit(metresPerUnit) && std::fabs(determinant) > kVanishing * size;
}

gcs::DatumDef Wgs84Datum() {
    gcs::DatumDef datum;
    static_cast<void>(gcs::GCSKnownDatumsList.FindByToken(L"DATUM_WGS84", &datum));
    return datum;
}

gcs::DatumDef DatumOf(const Clause& clause) {
    return clause.datum.IsUnknown() ? Wgs84Datum() : clause.datum;
}

std::string ProblemOf(const Clause& clause) {
    for (const ProjectionParameter parameter : clause.projection->parameters) {
        if (!IsInRange(parameter, clause[parameter])) {
            return std::string("the ") + NameOf(parameter) + " " + PlainNumber(clause[parameter]) +
                   " of the projection \"" + clause.projection->words +
                   "\" is missing or out of range";
        }
    }
    const bool isConic = clause.projection->Takes(StandardParallel2);
    if (isConic && clause[StandardParallel1] == -clause[StandardParallel2]) {
        return std::string("the standard parallels of the projection \"") +
               clause.projection->words + "\" are missing, or equal and opposite";
    }
    if (!HasUsableUnit(clause.metresPerUnit)) {
        return "the unit is out of range";
    }
    if (!IsFinite(DatumOf(clause).GetParameters())) {
        return "the datum's parameters are out of range";
    }
    return "";
}

std::string NameInWords(const Clause& clause) {
    return DatumInWords(clause.datum) + " / " + clause.projection->words +
           (clause.affine ? " with an affine transformation" : "");
}

bool HaveSameCoordinates(const Clause& left, const Clause& right) {
    return left.projection == right.projection && left.parameters == right.parameters &&
           left.metresPerUnit == right.metresPerUnit && left.affine == right.affine &&
           IsSameDatum(DatumOf(left).GetParameters(), DatumOf(right).GetParameters());
}

}  // namespace app
