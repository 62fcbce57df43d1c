#include "app/crs/ClauseForExport.h"

#include "app/base/Angles.h"
#include "app/crs/Clause.h"
#include "app/crs/detail/CrsDatum.h"
#include "app/crs/detail/PlainNumber.h"
#include "app/crs/detail/ProjHandles.h"
#include "app/crs/detail/ProjectionMath.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace app {

namespace {

using detail::PjHandle;
using detail::PlainNumber;
using enum ProjectionParameter;

// Parameter codes of the EPSG register.
enum Code : int {
    kNaturalLatitude = 8801,
    kNaturalLongitude = 8802,
    kNaturalScale = 8805,
    kFalseEasting = 8806,
    kFalseNorthing = 8807,
    kCentreLatitude = 8811,
    kCentreLongitude = 8812,
    kLineAzimuth = 8813,
    kRectifiedAngle = 8814,
    kLineScale = 8815,
    kCentreEasting = 8816,
    kCentreNorthing = 8817,
    kFalseOriginLatitude = 8821,
    kFalseOriginLongitude = 8822,
    kParallel1 = 8823,
    kParallel2 = 8824,
    kOriginEasting = 8826,
    kOriginNorthing = 8827,
    kTrueParallel = 8832,
    kOriginLongitude = 8833,
};

// What MIF can't express.
struct Inexpressible {
    std::string what;
};

struct Parameter {
    int code = 0;
    double value = 0.0;
    double unit = 1.0;  // radians or metres per unit
    bool isDegree = false;
};

// A map projection as PROJ describes it.
struct Conversion {
    std::string method;
    int methodCode = 0;  // EPSG; 0 for methods that the register lacks
    std::vector<Parameter> parameters;
    double metresPerUnit = 1.0;  // of the system's axes
    double leftOverMeridian = 0.0;
    gcs::EllipsoidDef ellipsoid;

    const Parameter* Find(int code) const {
        for (const Parameter& parameter : parameters) {
            if (parameter.code == code) {
                return &parameter;
            }
        }
        return nullptr;
    }

    double Degrees(int code) const {
        const Parameter* parameter = Find(code);
        if (parameter == nullptr) {
            return 0.0;
        }
        if (parameter->isDegree) {
            return parameter->value;
        }
        return std::round(parameter->value * parameter->unit / kDegree * 1e12) / 1e12;
    }

    // With the prime meridian that the datum can't carry.
    double Longitude(int code) const {
        const double longitude = Degrees(code) + leftOverMeridian;
        return std::fabs(longitude) > 180.0 ? std::remainder(longitude, 360.0) : longitude;
    }

    // In the unit of the axes.
    double Length(int code) const {
        const Parameter* parameter = Find(code);
        if (parameter == nullptr) {
            return 0.0;
        }
        return parameter->unit == metresPerUnit
                   ? parameter->value
                   : parameter->value * parameter->unit / metresPerUnit;
    }

    double Scale(int code) const {
        const Parameter* parameter = Find(code);
        return parameter == nullptr ? 1.0 : parameter->value * parameter->unit;
    }
};

void SetOrigin(Clause& clause, double longitude, double latitude) {
    clause[OriginLongitude] = longitude;
    clause[OriginLatitude] = latitude;
}

// A false origin that the projection of a clause has no place for becomes an affine transformation.
void SetFalseOrigin(Clause& clause, const Conversion& conversion, int eastingCode = kFalseEasting,
                    int northingCode = kFalseNorthing) {
    const double easting = conversion.Length(eastingCode);
    const double northing = conversion.Length(northingCode);
    if (clause.projection->Takes(FalseEasting)) {
        clause[FalseEasting] = easting;
        clause[FalseNorthing] = northing;
    } else if (easting != 0.0 || northing != 0.0) {
        clause.affine = AffineTransformation{};
        clause.affine->c = easting;
        clause.affine->f = northing;
        clause.affine->metresPerUnit = clause.metresPerUnit;
    }
}

// Scales the coordinates around the false origin.
void SetScale(Clause& clause, double scale) {
    clause.affine = AffineTransformation{};
    clause.affine->a = scale;
    clause.affine->e = scale;
    clause.affine->c = (1.0 - scale) * clause[FalseEasting];
    clause.affine->f = (1.0 - scale) * clause[FalseNorthing];
    clause.affine->metresPerUnit = clause.metresPerUnit;
}

void RefuseLatitude(const Conversion& conversion, int code) {
    if (conversion.Degrees(code) != 0.0) {
        throw Inexpressible{"a latitude of origin of \"" + conversion.method + "\" other than 0"};
    }
}

// One function a method; each gets a clause with projection and unit set.
using Convert = void (*)(const Conversion&, Clause&);

void NaturalOrigin(const Conversion& from, Clause& to) {
    SetOrigin(to, from.Longitude(kNaturalLongitude), from.Degrees(kNaturalLatitude));
    SetFalseOrigin(to, from);
}

void WorldMap(const Conversion& from, Clause& to) {
    RefuseLatitude(from, kNaturalLatitude);
    NaturalOrigin(from, to);
}

void NaturalOriginWithScale(const Conversion& from, Clause& to) {
    NaturalOrigin(from, to);
    to[ScaleFactor] = from.Scale(kNaturalScale);
}

// A cylinder that is true at two parallels, or reduced to the same effect.
void RegionalMercator(const Conversion& from, Clause& to, double parallel) {
    RefuseLatitude(from, kNaturalLatitude);
    if (parallel != 0.0) {
        to.projection = KnownProjection(26);
        to[StandardParallel1] = parallel;
    }
    NaturalOrigin(from, to);
}

void MercatorWithScale(const Conversion& from, Clause& to) {
    const double scale = from.Scale(kNaturalScale);
    const auto parallel = detail::ParallelOfMercatorScale(scale, from.ellipsoid);
    if (!parallel) {
        throw Inexpressible{"a scale factor of \"" + from.method + "\" above 1"};
    }
    RegionalMercator(from, to, *parallel);
}

void MercatorWithParallel(const Conversion& from, Clause& to) {
    RegionalMercator(from, to, std::fabs(from.Degrees(kParallel1)));
}

void PolarStereographicWithParallel(const Conversion& from, Clause& to) {
    const double parallel = from.Degrees(kTrueParallel);
    SetOrigin(to, from.Longitude(kOriginLongitude), parallel < 0.0 ? -90.0 : 90.0);
    to[ScaleFactor] = detail::PolarScaleFactor(parallel, from.ellipsoid);
    SetFalseOrigin(to, from);
}

void SetParallels(Clause& to, double first, double second) {
    to[StandardParallel1] = first;
    to[StandardParallel2] = second;
}

void TwoParallelCone(const Conversion& from, Clause& to) {
    SetOrigin(to, from.Longitude(kFalseOriginLongitude), from.Degrees(kFalseOriginLatitude));
    SetParallels(to, from.Degrees(kParallel1), from.Degrees(kParallel2));
    SetFalseOrigin(to, from, kOriginEasting, kOriginNorthing);
}

void OneParallelCone(const Conversion& from, Clause& to) {
    NaturalOrigin(from, to);
    const double latitude = from.Degrees(kNaturalLatitude);
    const double scale = from.Scale(kNaturalScale);
    if (const auto parallels = detail::ParallelsOfTangentCone(latitude, scale, from.ellipsoid)) {
        SetParallels(to, parallels->firstDegrees, parallels->secondDegrees);
        return;
    }
    // No parallel is true. The cone that touches is made larger around the false origin, where a
    // program that ignores this errs least.
    SetParallels(to, latitude, latitude);
    SetScale(to, scale);
}

void EquidistantConic(const Conversion& from, Clause& to) {
    NaturalOrigin(from, to);
    SetParallels(to, from.Degrees(kParallel1), from.Degrees(kParallel2));
}

void Cylinder(const Conversion& from, Clause& to) {
    RefuseLatitude(from, kNaturalLatitude);
    NaturalOrigin(from, to);
    to[StandardParallel1] = from.Degrees(kParallel1);
}

void MapGrid(const Conversion&, Clause& to) {
    SetOrigin(to, 173.0, -41.0);
    to[FalseEasting] = 2510000.0;
    to[FalseNorthing] = 6023150.0;
}

void ObliqueMercator(const Conversion& from, Clause& to) {
    constexpr double kSameDegrees = 1e-9;
    SetOrigin(to, from.Longitude(kCentreLongitude), from.Degrees(kCentreLatitude));
    to[Azimuth] = from.Degrees(kLineAzimuth);
    to[RectifiedAngle] = from.Degrees(kRectifiedAngle);
    to[ScaleFactor] = from.Scale(kLineScale);
    if (std::fabs(to[Azimuth] - to[RectifiedAngle]) > kSameDegrees) {
        to.projection = KnownProjection(35);
    }
    SetFalseOrigin(to, from);
}

// The same projection with its origin at the centre: the natural origin lies where the centre
// would have the coordinates of the centre.
void ObliqueMercatorAtCentre(const Conversion& from, Clause& to) {
    ObliqueMercator(from, to);
    const detail::ContextHandle context = detail::MakeContext();
    const std::string text =
        "+proj=omerc +no_uoff +lonc=0 +lat_0=" + PlainNumber(to[OriginLatitude]) +
        " +alpha=" + PlainNumber(to[Azimuth]) + " +gamma=" + PlainNumber(to[RectifiedAngle]) +
        " +k_0=" + PlainNumber(to[ScaleFactor]) +
        " +a=" + PlainNumber(from.ellipsoid.GetMajorRadius()) +
        " +f=" + PlainNumber(from.ellipsoid.GetFlattening());
    const PjHandle projection(proj_create(context.get(), text.c_str()));
    if (!projection) {
        throw Inexpressible{"\"" + from.method + "\" with these angles"};
    }
    const PJ_COORD centre = proj_trans(projection.get(), PJ_FWD,
                                       proj_coord(0.0, to[OriginLatitude] * kDegree, 0.0, 0.0));
    to[FalseEasting] = from.Length(kCentreEasting) - centre.xy.x / from.metresPerUnit;
    to[FalseNorthing] = from.Length(kCentreNorthing) - centre.xy.y / from.metresPerUnit;
}

// Found by the code, or by the name where the register has no code.
struct MethodRow {
    int code;
    std::int64_t projection;  // code of a clause
    const char* name;
    Convert convert;
};

// clang-format off
constexpr MethodRow kMethods[] = {
    {9807, 8, "Transverse Mercator", NaturalOriginWithScale},
    {9801, 3, "Lambert Conic Conformal (1SP)", OneParallelCone},
    {9802, 3, "Lambert Conic Conformal (2SP)", TwoParallelCone},
    {9803, 19, "Lambert Conic Conformal (2SP Belgium)", TwoParallelCone},
    {9822, 9, "Albers Equal Area", TwoParallelCone},
    {9820, 29, "Lambert Azimuthal Equal Area", NaturalOrigin},
    {1027, 29, "Lambert Azimuthal Equal Area (Spherical)", NaturalOrigin},
    {9832, 28, "Modified Azimuthal Equidistant", NaturalOrigin},
    {1125, 28, "Azimuthal Equidistant", NaturalOrigin},
    {1119, 6, "Equidistant Conic", EquidistantConic},
    {9812, 7, "Hotine Oblique Mercator (variant A)", ObliqueMercator},
    {9815, 7, "Hotine Oblique Mercator (variant B)", ObliqueMercatorAtCentre},
    {9804, 10, "Mercator (variant A)", MercatorWithScale},
    {9805, 10, "Mercator (variant B)", MercatorWithParallel},
    {1026, 10, "Mercator (Spherical)", WorldMap},
    {1024, 10, "Popular Visualisation Pseudo Mercator", WorldMap},
    {9835, 2, "Lambert Cylindrical Equal Area", Cylinder},
    {9806, 30, "Cassini-Soldner", NaturalOrigin},
    {9818, 27, "American Polyconic", NaturalOrigin},
    {9811, 18, "New Zealand Map Grid", MapGrid},
    {9809, 31, "Oblique Stereographic", NaturalOriginWithScale},
    {9810, 20, "Polar Stereographic (variant A)", NaturalOriginWithScale},
    {9829, 20, "Polar Stereographic (variant B)", PolarStereographicWithParallel},
    {0, 20, "Stereographic", NaturalOriginWithScale},
    {1028, 33, "Equidistant Cylindrical", Cylinder},
    {1029, 33, "Equidistant Cylindrical (Spherical)", Cylinder},
    {0, 14, "Eckert IV", WorldMap},
    {0, 15, "Eckert VI", WorldMap},
    {0, 17, "Gall Stereographic", WorldMap},
    {0, 13, "Mollweide", WorldMap},
    {0, 11, "Miller Cylindrical", WorldMap},
    {0, 12, "Robinson", WorldMap},
    {0, 16, "Sinusoidal", WorldMap},
};
// clang-format on

constexpr int kPseudoMercatorMethod = 1024;

// The projection that is written for all that do the same with other parameters or another name.
std::int64_t FamilyOf(std::int64_t projection) {
    switch (projection) {
    case 4:
        return 29;
    case 5:
        return 28;
    case 19:
        return 3;
    case 24:
    case 34:
        return 8;
    case 25:
    case 35:
        return 7;
    case 26:
        return 10;
    default:
        return projection;
    }
}

const MethodRow* FindMethod(const Conversion& conversion) {
    for (const MethodRow& row : kMethods) {
        if (row.code != 0 ? row.code == conversion.methodCode : row.name == conversion.method) {
            return &row;
        }
    }
    // A definition without codes, such as older WKT.
    for (const MethodRow& row : kMethods) {
        if (row.name == conversion.method) {
            return &row;
        }
    }
    return nullptr;
}

int CodeOf(const char* authority, const char* code) {
    return authority != nullptr && code != nullptr && std::string_view(authority) == "EPSG"
               ? std::atoi(code)
               : 0;
}

std::vector<Parameter> ParametersOf(PJ_CONTEXT* context, const PJ* conversion) {
    std::vector<Parameter> parameters;
    const int count = proj_coordoperation_get_param_count(context, conversion);
    for (int i = 0; i < count; ++i) {
        const char* authority = nullptr;
        const char* code = nullptr;
        const char* unitName = nullptr;
        Parameter parameter;
        if (proj_coordoperation_get_param(context, conversion, i, nullptr, &authority, &code,
                                          &parameter.value, nullptr, &parameter.unit, &unitName,
                                          nullptr, nullptr, nullptr) != 0) {
            parameter.code = CodeOf(authority, code);
            parameter.isDegree = unitName != nullptr && std::string_view(unitName) == "degree";
            parameters.push_back(parameter);
        }
    }
    return parameters;
}

Conversion ConversionOf(PJ_CONTEXT* context, const PJ* crs) {
    const PjHandle operation(proj_crs_get_coordoperation(context, crs));
    Conversion conversion;
    const char* name = nullptr;
    const char* authority = nullptr;
    const char* code = nullptr;
    if (!operation ||
        !proj_coordoperation_get_method_info(context, operation.get(), &name, &authority, &code)) {
        throw Inexpressible{"a system without a projection"};
    }
    conversion.method = name != nullptr ? name : "";
    conversion.methodCode = CodeOf(authority, code);
    conversion.parameters = ParametersOf(context, operation.get());
    conversion.metresPerUnit = detail::AxesOf(context, crs).unit;
    return conversion;
}

// The system behind one that is bound to WGS 84, and the shift that binds it.
struct Unbound {
    PjHandle crs;
    std::optional<detail::PositionVectorShift> shift;
};

Unbound UnboundOf(PJ_CONTEXT* context, PjHandle crs) {
    Unbound found{std::move(crs), std::nullopt};
    while (found.crs && proj_get_type(found.crs.get()) == PJ_TYPE_BOUND_CRS) {
        const PjHandle operation(proj_crs_get_coordoperation(context, found.crs.get()));
        detail::PositionVectorShift shift{};
        if (operation && proj_coordoperation_get_towgs84_values(context, operation.get(),
                                                                shift.data(), 7, 0) != 0) {
            found.shift = shift;
        }
        found.crs.reset(proj_get_source_crs(context, found.crs.get()));
    }
    return found;
}

// The unit of the clause is the nearest that has a name, up to the last digits of the definition.
double MetresPerUnit(double metres) {
    constexpr double kSame = 1e-12;
    for (const double named : {1.0, kSurveyFoot, 0.3048}) {
        if (std::fabs(metres / named - 1.0) < kSame) {
            return named;
        }
    }
    return metres;
}

Clause ProjectedClause(const Conversion& conversion) {
    const MethodRow* row = FindMethod(conversion);
    if (row == nullptr) {
        throw Inexpressible{"the projection \"" + conversion.method + "\""};
    }
    Clause clause;
    clause.projection = KnownProjection(row->projection);
    clause.metresPerUnit = MetresPerUnit(conversion.metresPerUnit);
    row->convert(conversion, clause);
    return clause;
}

// The web map projects WGS 84 as if it were a sphere; the sphere is a datum of its own in MIF.
int FrameCodeOf(const Conversion& conversion) {
    return conversion.methodCode == kPseudoMercatorMethod ? 4055 : 0;
}

detail::ChosenDatum DatumFor(PJ_CONTEXT* context, const Unbound& unbound, bool isProjected,
                             int frameCode) {
    const PjHandle frame = frameCode != 0
                               ? detail::FromRegister(context, frameCode)
                               : PjHandle(proj_crs_get_geodetic_crs(context, unbound.crs.get()));
    if (!frame) {
        throw Inexpressible{"a system without a datum"};
    }
    const auto shift = frameCode != 0 ? std::nullopt : unbound.shift;
    detail::ChosenDatum chosen = detail::ChooseDatum(context, frame.get(), shift, isProjected);
    if (!chosen.problem.empty()) {
        throw Inexpressible{"the datum: " + chosen.problem};
    }
    return chosen;
}

// What programs make of the clause that do not read all of the format.
void WarnOfReaders(const Clause& clause, std::vector<std::string>& warnings) {
    if (clause.affine) {
        warnings.emplace_back("a part of the system becomes an affine transformation, which some "
                              "programs ignore");
    }
    if (ModuleProjection(clause.projection->code) == nullptr) {
        warnings.push_back("projection " + std::to_string(clause.projection->code) + " (" +
                           clause.projection->words + ") is not read by all programs");
    }
}

void Build(PJ_CONTEXT* context, const Unbound& unbound, ClauseForExport& result) {
    const bool isProjected = proj_get_type(unbound.crs.get()) == PJ_TYPE_PROJECTED_CRS;
    Conversion conversion;
    if (isProjected) {
        conversion = ConversionOf(context, unbound.crs.get());
    }
    const detail::ChosenDatum chosen =
        DatumFor(context, unbound, isProjected, FrameCodeOf(conversion));
    result.warnings = chosen.warnings;
    Clause clause;
    clause.projection = KnownProjection(1);
    if (isProjected) {
        conversion.leftOverMeridian = chosen.leftOverMeridian;
        conversion.ellipsoid = chosen.datum.GetEllipsoid();
        clause = ProjectedClause(conversion);
    }
    clause.datum = chosen.datum;
    if (const std::string problem = ProblemOf(clause); !problem.empty()) {
        throw Inexpressible{"the projection: " + problem};
    }
    WarnOfReaders(clause, result.warnings);
    result.clause = std::move(clause);
}

}  // namespace

ClauseForExport ClauseOf(const CoordinateSystem& system) {
    ClauseForExport result;
    if (!system.IsOnEarth()) {
        result.problem =
            system.problem.empty() ? "a plane has no place on the Earth" : system.problem;
        return result;
    }
    if (system.clause) {
        result.clause = system.clause;
        return result;
    }
    const detail::ContextHandle context = detail::MakeContext();
    PjHandle crs(proj_create(context.get(), system.definition.c_str()));
    try {
        const Unbound unbound = UnboundOf(context.get(), std::move(crs));
        if (!unbound.crs) {
            throw Inexpressible{"a system that PROJ doesn't know"};
        }
        Build(context.get(), unbound, result);
    } catch (const Inexpressible& inexpressible) {
        result.clause.reset();
        result.warnings.clear();
        result.problem = "MIF can't express " + inexpressible.what + " (" + system.name + ")";
    }
    return result;
}

std::vector<int> EpsgMethodsOf(const Projection& projection) {
    std::vector<int> codes;
    for (const MethodRow& row : kMethods) {
        if (row.code != 0 && FamilyOf(row.projection) == FamilyOf(projection.code)) {
            codes.push_back(row.code);
        }
    }
    return codes;
}

}  // namespace app
