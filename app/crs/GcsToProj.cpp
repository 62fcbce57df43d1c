#include "app/crs/GcsToProj.h"

#include "host/gcs/KnownLists.h"
#include "standalone/Text.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace app {

namespace {

using gcs::DatumMethod;
using gcs::ProjectionMethod;
using gcs::ProjectionParameters;

constexpr double kSurveyFeetPerMetre = 3.28083333333333;

// Which definition a method has in PROJ and which of the parameters it takes. Those that are left
// null are not passed on.
struct MethodRow {
    ProjectionMethod method;
    bool hasScaleFactor;
    const char* projName;  // null: no counterpart
    const char* words;
    const char* latitudeOfOrigin = nullptr;   // key that takes parameter 9
    const char* standardParallel1 = nullptr;  // key that takes parameter 10
    const char* standardParallel2 = nullptr;
};

constexpr bool kScaled = true;
constexpr bool kUnscaled = false;

// clang-format off
constexpr MethodRow kMethods[] = {
    {ProjectionMethod::LongitudeLatitude, kUnscaled, "longlat", "Longitude/Latitude"},
    {ProjectionMethod::ArbitraryPlane, kUnscaled, nullptr, "Arbitrary Plane"},
    {ProjectionMethod::AlbersEqualAreaConic, kUnscaled, "aea", "Albers Equal-Area Conic", "lat_0", "lat_1", "lat_2"},
    {ProjectionMethod::AzimuthalEquidistant, kUnscaled, "aeqd", "Azimuthal Equidistant", nullptr, "lat_0"},
    {ProjectionMethod::CassiniSoldner, kUnscaled, "cass", "Cassini-Soldner", "lat_0"},
    {ProjectionMethod::EckertIV, kUnscaled, "eck4", "Eckert IV"},
    {ProjectionMethod::EckertVI, kUnscaled, "eck6", "Eckert VI"},
    {ProjectionMethod::EquidistantCylindrical, kUnscaled, "eqc", "Equidistant Cylindrical", nullptr, "lat_ts"},
    {ProjectionMethod::EquidistantConic, kUnscaled, "eqdc", "Equidistant Conic", "lat_0", "lat_1", "lat_2"},
    {ProjectionMethod::HotineObliqueMercator, kScaled, "omerc", "Hotine Oblique Mercator", "lat_0"},
    {ProjectionMethod::Mercator, kUnscaled, "merc", "Mercator"},
    {ProjectionMethod::Mollweide, kUnscaled, "moll", "Mollweide"},
    {ProjectionMethod::LambertConformalConic, kUnscaled, "lcc", "Lambert Conformal Conic", "lat_0", "lat_1", "lat_2"},
    {ProjectionMethod::LambertAzimuthalEqualArea, kUnscaled, "laea", "Lambert Azimuthal Equal-Area", nullptr, "lat_0"},
    {ProjectionMethod::MillerCylindrical, kUnscaled, "mill", "Miller Cylindrical"},
    {ProjectionMethod::Stereographic, kScaled, "stere", "Stereographic", "lat_0"},
    {ProjectionMethod::Polyconic, kUnscaled, "poly", "Polyconic", "lat_0"},
    {ProjectionMethod::Robinson, kUnscaled, "robin", "Robinson"},
    {ProjectionMethod::Sinusoidal, kUnscaled, "sinu", "Sinusoidal"},
    {ProjectionMethod::TransverseMercator, kScaled, "tmerc", "Transverse Mercator", "lat_0"},
    {ProjectionMethod::GaussKrueger, kScaled, "tmerc", "Gauss-Krueger", "lat_0"},
    {ProjectionMethod::ObliqueMercatorOther, kUnscaled, nullptr, "Oblique Mercator of another kind"},
    {ProjectionMethod::NewZealandMapGrid, kUnscaled, "nzmg", "New Zealand Map Grid"},
};
// clang-format on

const MethodRow* FindMethod(ProjectionMethod method) {
    for (const MethodRow& row : kMethods) {
        if (row.method == method) {
            return &row;
        }
    }
    return nullptr;
}

// The shortest text that reads back as the same number, without an exponent where one can do
// without.
std::string NumberText(double value) {
    const double size = std::fabs(value);
    const bool isPlain = value == 0.0 || (size >= 1e-6 && size < 1e15);
    char text[48];
    const auto result =
        std::to_chars(std::begin(text), std::end(text), value,
                      isPlain ? std::chars_format::fixed : std::chars_format::general);
    return {std::begin(text), result.ptr};
}

void Add(std::string& definition, std::string_view key, double value) {
    definition += " +";
    definition += key;
    definition += "=" + NumberText(value);
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

// The factor of a survey foot is cut off in a clause; the foot is meant.
double MetresPerUnit(double unitsPerMetre) {
    constexpr double kSurveyFoot = 1200.0 / 3937.0;
    return unitsPerMetre == kSurveyFeetPerMetre ? kSurveyFoot : 1.0 / unitsPerMetre;
}

struct FalseOrigin {
    double easting = 0.0;  // in the unit of the coordinates
    double northing = 0.0;
};

FalseOrigin FalseOriginOf(ProjectionMethod method, const ProjectionParameters& p) {
    if (method == ProjectionMethod::AlbersEqualAreaConic) {
        return {p.azimuth, p.falseEasting};
    }
    return {p.falseEasting, p.falseNorthing};
}

// Method and parameters, without ellipsoid and unit.
std::string ProjectionText(const MethodRow& row, const ProjectionParameters& p) {
    std::string text = std::string("+proj=") + row.projName;
    if (row.method == ProjectionMethod::NewZealandMapGrid) {
        return text + " +lat_0=-41 +lon_0=173 +x_0=2510000 +y_0=6023150";
    }
    if (row.method == ProjectionMethod::HotineObliqueMercator) {
        text += p.rectifiedOrigin ? " +no_uoff" : "";
        Add(text, "lonc", p.centreLongitude);
        Add(text, "alpha", p.azimuth);
    } else {
        Add(text, "lon_0", p.centralLongitude);
    }
    if (row.latitudeOfOrigin != nullptr) {
        Add(text, row.latitudeOfOrigin, p.latitudeOfOrigin);
    }
    if (row.standardParallel1 != nullptr) {
        Add(text, row.standardParallel1, p.standardParallel1);
    }
    // PROJ has a cone of one parallel without the second; the origin must then be on it.
    const bool isTangentCone = row.method == ProjectionMethod::LambertConformalConic &&
                               p.standardParallel1 == p.standardParallel2 &&
                               p.standardParallel1 == p.latitudeOfOrigin;
    if (row.standardParallel2 != nullptr && !isTangentCone) {
        Add(text, row.standardParallel2, p.standardParallel2);
    }
    if (row.hasScaleFactor) {
        Add(text, "k_0", p.scaleFactor);
    }
    const FalseOrigin origin = FalseOriginOf(row.method, p);
    Add(text, "x_0", origin.easting * MetresPerUnit(p.unitsPerMetre));
    Add(text, "y_0", origin.northing * MetresPerUnit(p.unitsPerMetre));
    return text;
}

std::string UnitText(double unitsPerMetre) {
    if (unitsPerMetre == 1.0) {
        return " +units=m";
    }
    if (unitsPerMetre == kSurveyFeetPerMetre) {
        return " +units=us-ft";
    }
    std::string text;
    Add(text, "to_meter", MetresPerUnit(unitsPerMetre));
    return text;
}

std::string PrimeMeridianText(const gcs::DatumParameters& datum) {
    std::string text;
    if (datum.primeMeridian != 0.0) {
        Add(text, "pm", datum.primeMeridian);
    }
    return text;
}

// A sphere without a shift stands for the ellipsoid: latitudes are taken over as they are.
bool KeepsLatitudes(const gcs::DatumParameters& datum) {
    return datum.kind == DatumMethod::None || datum.kind == DatumMethod::Unknown;
}

std::string ToWgs84Text(const gcs::DatumParameters& datum) {
    if (KeepsLatitudes(datum)) {
        return IsSphere(datum.ellipsoid) ? " +nadgrids=@null" : " +towgs84=0,0,0";
    }
    std::string text = " +towgs84=" + NumberText(datum.dx) + "," + NumberText(datum.dy) + "," +
                       NumberText(datum.dz);
    if (datum.kind == DatumMethod::SevenParameters) {
        // 0.0 - x, so that an absent rotation doesn't become a minus 0.
        for (const double value : {0.0 - datum.rx, 0.0 - datum.ry, 0.0 - datum.rz, datum.scale}) {
            text += "," + NumberText(value);
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

ProjDefinition Problem(std::string text) {
    ProjDefinition definition;
    definition.problem = std::move(text);
    return definition;
}

gcs::DatumParameters Wgs84() {
    gcs::DatumDef wgs84;
    gcs::GCSKnownDatumsList.FindByToken(L"DATUM_WGS84", &wgs84);
    return wgs84.GetParameters();
}

// What the system is made of, or why nothing can be made of it.
struct Parts {
    const MethodRow* row = nullptr;
    ProjectionParameters parameters;
    gcs::DatumParameters datum;
    bool isWgs84 = false;
    std::vector<std::string> warnings;
    std::string problem;
};

std::string ProblemOfProjection(const gcs::ProjectionDef& projection, const MethodRow* row) {
    if (row == nullptr) {
        return "no projection of PROJ's corresponds to method " +
               std::to_string(static_cast<int>(projection.GetMethod()));
    }
    if (row->method == ProjectionMethod::ArbitraryPlane) {
        return "an arbitrary plane has no place on the Earth (a projection with faulty parameters "
               "becomes one)";
    }
    if (row->projName == nullptr) {
        return std::string("no projection of PROJ's corresponds to \"") + row->words + "\"";
    }
    const gcs::ProjectionParameterID faulty = projection.CheckParameters();
    if (faulty != gcs::ProjectionParameterID::None) {
        return "parameter " + std::to_string(static_cast<int>(faulty)) + " of the projection \"" +
               row->words + "\" is missing or out of range";
    }
    return "";
}

Parts PartsOf(const gcs::CSDef& system) {
    Parts parts;
    if (system.Type() != gcs::CSType::Earth) {
        parts.problem = "a plane system has no place on the Earth";
        return parts;
    }
    const auto& earth = static_cast<const gcs::GCSDef&>(system);
    const bool hasProjection = earth.HasProjection(false, true);
    if (!hasProjection && !earth.HasDatum(false)) {
        parts.problem = "the coordinate system is not known";
        return parts;
    }
    const auto method =
        hasProjection ? earth.GetProjection().GetMethod() : ProjectionMethod::LongitudeLatitude;
    parts.row = FindMethod(method);
    parts.problem = ProblemOfProjection(earth.GetProjection(), parts.row);
    parts.parameters = earth.GetProjection().GetParameters();
    parts.datum = earth.GetDatum().GetParameters();
    parts.isWgs84 = earth.GetDatum().GetToken() == L"DATUM_WGS84";
    if (earth.GetDatum().IsUnknown()) {
        parts.datum = Wgs84();
        parts.isWgs84 = true;
        parts.warnings.emplace_back("the datum is not known; WGS 84 is assumed");
    } else if (parts.problem.empty() && !IsFinite(parts.datum)) {
        parts.problem = "the datum's parameters are out of range";
    }
    if (method == ProjectionMethod::MillerCylindrical) {
        parts.warnings.emplace_back(
            "coordinates are taken on a sphere of the major radius; programs that read the PROJ "
            "or WKT definition take one of equal area");
    }
    if (method == ProjectionMethod::AlbersEqualAreaConic && parts.parameters.falseNorthing != 0.0) {
        parts.warnings.emplace_back("the seventh number of the Albers projection is ignored");
    }
    return parts;
}

std::string CrsText(const Parts& parts, bool withShift) {
    const bool isGeographic = parts.row->method == ProjectionMethod::LongitudeLatitude;
    std::string text =
        isGeographic ? "+proj=longlat" : ProjectionText(*parts.row, parts.parameters);
    text += parts.isWgs84 ? " +datum=WGS84"
                          : EllipsoidText(parts.datum.ellipsoid) + PrimeMeridianText(parts.datum);
    if (withShift && !parts.isWgs84) {
        text += ToWgs84Text(parts.datum);
    }
    if (!isGeographic) {
        text += UnitText(parts.parameters.unitsPerMetre);
    }
    return text + " +no_defs +type=crs";
}

std::string PipelineText(const Parts& parts) {
    const std::string frame = EllipsoidText(parts.datum.ellipsoid) + PrimeMeridianText(parts.datum);
    std::string text = "+proj=pipeline";
    if (parts.row->method == ProjectionMethod::LongitudeLatitude) {
        text += " +step +proj=unitconvert +xy_in=deg +xy_out=rad";
        if (parts.datum.primeMeridian != 0.0) {
            text += " +step +inv +proj=longlat" + frame;
        }
    } else {
        text += " +step +inv " + ProjectionText(*parts.row, parts.parameters) + frame +
                UnitText(parts.parameters.unitsPerMetre);
    }
    return text + ShiftSteps(parts.datum) + " +step +proj=unitconvert +xy_in=rad +xy_out=deg";
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

}  // namespace

ProjDefinition ToProj(const gcs::CSDef& system) {
    const Parts parts = PartsOf(system);
    if (!parts.problem.empty()) {
        return Problem(parts.problem);
    }
    ProjDefinition definition;
    definition.crs = CrsText(parts, /*withShift=*/true);
    definition.crsWithoutShift = CrsText(parts, /*withShift=*/false);
    definition.toWgs84 = PipelineText(parts);
    definition.warnings = parts.warnings;
    definition.isGeographic = parts.row->method == ProjectionMethod::LongitudeLatitude;
    return definition;
}

std::string NameInWords(const gcs::CSDef& system) {
    if (system.Type() != gcs::CSType::Earth) {
        return system.Type() == gcs::CSType::Nonearth ? "Nonearth" : "Unknown";
    }
    const auto& earth = static_cast<const gcs::GCSDef&>(system);
    const MethodRow* row = FindMethod(earth.GetProjection().GetMethod());
    return DatumInWords(earth.GetDatum()) + " / " +
           (row != nullptr ? row->words : "Unknown projection");
}

std::string UnitInWords(const gcs::CSDef& system) {
    if (system.Type() == gcs::CSType::Earth &&
        static_cast<const gcs::GCSDef&>(system).GetProjection().GetMethod() ==
            ProjectionMethod::LongitudeLatitude) {
        return "degree";
    }
    const double unitsPerMetre = system.UnitFactor();
    if (unitsPerMetre == 1.0 || unitsPerMetre == 0.0) {
        return "m";
    }
    if (unitsPerMetre == kSurveyFeetPerMetre) {
        return "survey ft";
    }
    return "1/" + NumberText(unitsPerMetre) + " m";
}

}  // namespace app
