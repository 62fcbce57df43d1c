#include "app/crs/ProjText.h"

#include "app/base/Angles.h"
#include "app/crs/detail/PlainNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

namespace app {

namespace {

using detail::PlainNumber;
using gcs::DatumMethod;
using enum ProjectionParameter;

struct NamedProjection {
    std::int64_t code;
    const char* name;  // in PROJ
};

constexpr std::array kProjNames = {
    NamedProjection{1, "longlat"}, NamedProjection{2, "cea"},    NamedProjection{3, "lcc"},
    NamedProjection{4, "laea"},    NamedProjection{5, "aeqd"},   NamedProjection{6, "eqdc"},
    NamedProjection{7, "omerc"},   NamedProjection{8, "tmerc"},  NamedProjection{9, "aea"},
    NamedProjection{10, "merc"},   NamedProjection{11, "mill"},  NamedProjection{12, "robin"},
    NamedProjection{13, "moll"},   NamedProjection{14, "eck4"},  NamedProjection{15, "eck6"},
    NamedProjection{16, "sinu"},   NamedProjection{17, "gall"},  NamedProjection{18, "nzmg"},
    NamedProjection{19, "lcc"},    NamedProjection{20, "stere"}, NamedProjection{24, "tmerc"},
    NamedProjection{25, "somerc"}, NamedProjection{26, "merc"},  NamedProjection{27, "poly"},
    NamedProjection{28, "aeqd"},   NamedProjection{29, "laea"},  NamedProjection{30, "cass"},
    NamedProjection{31, "sterea"}, NamedProjection{33, "eqc"},   NamedProjection{34, "tmerc"},
    NamedProjection{35, "omerc"},
};

constexpr std::int64_t kMiller = 11;
constexpr std::int64_t kBelgianCone = 19;

const char* ProjName(const Projection& projection) {
    return std::ranges::find(kProjNames, projection.code, &NamedProjection::code)->name;
}

void Add(std::string& definition, std::string_view key, double value) {
    definition += " +";
    definition += key;
    definition += "=" + PlainNumber(value);
}

bool IsSphere(const gcs::EllipsoidDef& ellipsoid) {
    return ellipsoid.GetFlattening() == 0.0;
}

std::string EllipsoidText(const gcs::EllipsoidDef& ellipsoid) {
    struct NamedEllipsoid {
        const char* name;
        double majorRadius;
        double inverseFlattening;
    };
    static constexpr NamedEllipsoid kNamed[] = {
        {"WGS84", 6378137.0, 298.257223563}, {"GRS80", 6378137.0, 298.257222101},
        {"intl", 6378388.0, 297.0},          {"bessel", 6377397.155, 299.1528128},
        {"krass", 6378245.0, 298.3},
    };
    for (const NamedEllipsoid& named : kNamed) {
        if (ellipsoid.GetMajorRadius() == named.majorRadius &&
            ellipsoid.GetFlattening() == 1.0 / named.inverseFlattening) {
            return std::string(" +ellps=") + named.name;
        }
    }
    std::string text;
    Add(text, "a", ellipsoid.GetMajorRadius());
    if (IsSphere(ellipsoid)) {
        Add(text, "b", ellipsoid.GetMajorRadius());
    } else {
        Add(text, "rf", 1.0 / ellipsoid.GetFlattening());
    }
    return text;
}

// The Belgian cone turns its coordinates by a small angle about the pole: that is the same as
// another central meridian.
double BelgianMeridian(const Clause& clause) {
    constexpr double kTurnDegrees = 29.2985 / 3600.0;
    const gcs::EllipsoidDef ellipsoid = DatumOf(clause).GetEllipsoid();
    const double flattening = ellipsoid.GetFlattening();
    const double e = std::sqrt(flattening * (2.0 - flattening));
    const auto radius = [e](double latitude) {
        return std::cos(latitude) / std::sqrt(1.0 - std::pow(e * std::sin(latitude), 2));
    };
    const auto logOfT = [e](double latitude) {
        const double sine = e * std::sin(latitude);
        return std::log(std::tan(std::numbers::pi / 4.0 - latitude / 2.0)) -
               e / 2.0 * std::log((1.0 - sine) / (1.0 + sine));
    };
    const double first = clause[StandardParallel1] * kDegree;
    const double second = clause[StandardParallel2] * kDegree;
    const double cone = first == second ? std::sin(first)
                                        : std::log(radius(first) / radius(second)) /
                                              (logOfT(first) - logOfT(second));
    return clause[OriginLongitude] + kTurnDegrees / cone;
}

void AddParallels(std::string& text, const Clause& clause) {
    if (!clause.projection->Takes(StandardParallel2)) {
        Add(text, "lat_ts", clause[StandardParallel1]);
        return;
    }
    Add(text, "lat_1", clause[StandardParallel1]);
    // PROJ has a cone of one parallel without the second; the origin must then be on it.
    const bool isTangentCone = std::string_view(ProjName(*clause.projection)) == "lcc" &&
                               clause[StandardParallel1] == clause[StandardParallel2] &&
                               clause[StandardParallel1] == clause[OriginLatitude];
    if (!isTangentCone) {
        Add(text, "lat_2", clause[StandardParallel2]);
    }
}

void AddOrigin(std::string& text, const Clause& clause) {
    const bool isOblique = clause.projection->Takes(Azimuth);
    if (isOblique) {
        // The false origin lies where the initial line crosses the equator of the aposphere.
        text += " +no_uoff";
    }
    Add(text, isOblique ? "lonc" : "lon_0", CentralMeridian(clause));
    if (clause.projection->Takes(OriginLatitude)) {
        Add(text, "lat_0", clause[OriginLatitude]);
    }
}

// Method and parameters, without ellipsoid and unit.
std::string ProjectionText(const Clause& clause) {
    const Projection& projection = *clause.projection;
    std::string text = std::string("+proj=") + ProjName(projection);
    if (projection.code == kNewZealandMapGrid) {
        return text + " +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150";
    }
    AddOrigin(text, clause);
    if (projection.Takes(StandardParallel1)) {
        AddParallels(text, clause);
    }
    if (projection.Takes(Azimuth)) {
        Add(text, "alpha", clause[Azimuth]);
    }
    if (projection.Takes(RectifiedAngle)) {
        Add(text, "gamma", clause[RectifiedAngle]);
    }
    if (projection.Takes(ScaleFactor)) {
        Add(text, "k_0", clause[ScaleFactor]);
    }
    Add(text, "x_0", clause[FalseEasting] * clause.metresPerUnit);
    Add(text, "y_0", clause[FalseNorthing] * clause.metresPerUnit);
    return text;
}

std::string UnitOption(double metresPerUnit) {
    if (metresPerUnit == 1.0) {
        return " +units=m";
    }
    if (metresPerUnit == kSurveyFoot) {
        return " +units=us-ft";
    }
    std::string text;
    Add(text, "to_meter", metresPerUnit);
    return text;
}

std::string PrimeMeridianText(const gcs::DatumParameters& datum) {
    std::string text;
    if (datum.primeMeridian != 0.0) {
        Add(text, "pm", datum.primeMeridian);
    }
    return text;
}

// A sphere without a shift replaces the ellipsoid: latitudes are taken over as they are.
bool KeepsLatitudes(const gcs::DatumParameters& datum) {
    return datum.kind == DatumMethod::None || datum.kind == DatumMethod::Unknown;
}

std::string ToWgs84Text(const gcs::DatumParameters& datum) {
    if (KeepsLatitudes(datum)) {
        return IsSphere(datum.ellipsoid) ? " +nadgrids=@null" : " +towgs84=0,0,0";
    }
    std::string text = " +towgs84=" + PlainNumber(datum.dx) + "," + PlainNumber(datum.dy) + "," +
                       PlainNumber(datum.dz);
    if (datum.kind == DatumMethod::SevenParameters) {
        // 0.0 - x, so that an absent rotation doesn't become a minus 0.
        for (const double value : {0.0 - datum.rx, 0.0 - datum.ry, 0.0 - datum.rz, datum.scale}) {
            text += "," + PlainNumber(value);
        }
    }
    return text;
}

// From geographic coordinates of the datum to those of WGS 84, both in radians.
std::string ShiftSteps(const gcs::DatumParameters& datum) {
    if (KeepsLatitudes(datum)) {
        return "";
    }
    std::string helmert = " +step +proj=helmert";
    Add(helmert, "x", datum.dx);
    Add(helmert, "y", datum.dy);
    Add(helmert, "z", datum.dz);
    if (datum.kind == DatumMethod::SevenParameters) {
        Add(helmert, "rx", datum.rx);
        Add(helmert, "ry", datum.ry);
        Add(helmert, "rz", datum.rz);
        Add(helmert, "s", datum.scale);
        helmert += " +convention=coordinate_frame";
    }
    return " +step +proj=push +v_3 +step +proj=cart" + EllipsoidText(datum.ellipsoid) + helmert +
           " +step +inv +proj=cart +ellps=WGS84 +step +proj=pop +v_3";
}

std::string CrsText(const Clause& clause, bool withShift) {
    const gcs::DatumDef datum = DatumOf(clause);
    const gcs::DatumParameters& parameters = datum.GetParameters();
    const bool isWgs84 = datum.GetToken() == L"DATUM_WGS84";
    std::string text = clause.IsGeographic() ? "+proj=longlat" : ProjectionText(clause);
    text += isWgs84 ? " +datum=WGS84"
                    : EllipsoidText(parameters.ellipsoid) + PrimeMeridianText(parameters);
    if (withShift && !isWgs84) {
        text += ToWgs84Text(parameters);
    }
    if (!clause.IsGeographic()) {
        text += UnitOption(clause.metresPerUnit);
    }
    return text + " +no_defs +type=crs";
}

// Leads from the affine unit's coordinates to those of the projection.
std::string AffineSteps(const Clause& clause) {
    const AffineTransformation& affine = *clause.affine;
    const double scale = clause.IsGeographic() ? 1.0 : clause.metresPerUnit / affine.metresPerUnit;
    std::string text = " +step +inv +proj=affine";
    Add(text, "xoff", affine.c);
    Add(text, "yoff", affine.f);
    Add(text, "s11", affine.a * scale);
    Add(text, "s12", affine.b * scale);
    Add(text, "s21", affine.d * scale);
    Add(text, "s22", affine.e * scale);
    return text;
}

constexpr const char* kToDegrees = " +step +proj=unitconvert +xy_in=rad +xy_out=deg";

}  // namespace

double CentralMeridian(const Clause& clause) {
    return clause.projection->code == kBelgianCone ? BelgianMeridian(clause)
                                                   : clause[OriginLongitude];
}

std::string ProjCrs(const Clause& clause) {
    return CrsText(clause, /*withShift=*/true);
}

std::string ProjCrsWithoutShift(const Clause& clause) {
    return CrsText(clause, /*withShift=*/false);
}

std::string StepsToGeographic(const Clause& clause) {
    const gcs::DatumParameters datum = DatumOf(clause).GetParameters();
    const std::string frame = EllipsoidText(datum.ellipsoid) + PrimeMeridianText(datum);
    std::string text = clause.affine ? AffineSteps(clause) : "";
    if (!clause.IsGeographic()) {
        return text + " +step +inv " + ProjectionText(clause) + frame +
               UnitOption(clause.metresPerUnit);
    }
    text += " +step +proj=unitconvert +xy_in=deg +xy_out=rad";
    if (datum.primeMeridian != 0.0) {
        text += " +step +inv +proj=longlat" + frame;
    }
    return text;
}

std::string StepsToWgs84(const Clause& clause) {
    return ShiftSteps(DatumOf(clause).GetParameters());
}

std::string PipelineToWgs84(const Clause& clause) {
    return "+proj=pipeline" + StepsToGeographic(clause) + StepsToWgs84(clause) + kToDegrees;
}

std::string PipelineToGeographic(const Clause& clause) {
    return "+proj=pipeline" + StepsToGeographic(clause) + kToDegrees;
}

std::string DifferenceOfProjCrs(const Clause& clause) {
    return clause.projection->code == kMiller
               ? "coordinates are taken on a sphere of the major radius; programs that read the "
                 "PROJ or WKT definition take one of equal area"
               : "";
}

}  // namespace app
