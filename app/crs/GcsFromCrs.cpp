#include "app/crs/GcsFromCrs.h"

#include "app/crs/detail/CrsDatum.h"
#include "app/crs/detail/ProjHandles.h"
#include "app/crs/detail/ProjectionMath.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <optional>
#include <string_view>

namespace app {

namespace {

using detail::PjHandle;
using gcs::ProjectionMethod;
using Id = gcs::ProjectionParameterID;

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kSurveyFeetPerMetre = 3.28083333333333;

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

std::string NumberText(double value) {
    char text[32];
    const auto result = std::to_chars(std::begin(text), std::end(text), value);
    return {std::begin(text), result.ptr};
}

// Sets parameters as reading a clause does: a longitude and a latitude fill two each.
void SetLongitude(gcs::ProjectionDef& projection, double degrees) {
    projection.SetParameter(Id::CentralLongitude, degrees);
    projection.SetParameter(Id::CentreLongitude, degrees);
}

void SetLatitude(gcs::ProjectionDef& projection, double degrees) {
    projection.SetParameter(Id::LatitudeOfOrigin, degrees);
    projection.SetParameter(Id::StandardParallel1, degrees);
}

void SetFalseOrigin(gcs::ProjectionDef& projection, const Conversion& conversion,
                    int eastingCode = kFalseEasting, int northingCode = kFalseNorthing) {
    projection.SetParameter(Id::FalseEasting, conversion.Length(eastingCode));
    projection.SetParameter(Id::FalseNorthing, conversion.Length(northingCode));
}

void RefuseFalseOrigin(const Conversion& conversion) {
    if (conversion.Length(kFalseEasting) != 0.0 || conversion.Length(kFalseNorthing) != 0.0) {
        throw Inexpressible{"a false easting or northing of \"" + conversion.method + "\""};
    }
}

void RefuseScale(const Conversion& conversion, int code) {
    if (conversion.Scale(code) != 1.0) {
        throw Inexpressible{"a scale factor of \"" + conversion.method + "\" other than 1"};
    }
}

void RefuseLatitude(const Conversion& conversion, int code) {
    if (conversion.Degrees(code) != 0.0) {
        throw Inexpressible{"a latitude of origin or of true scale of \"" + conversion.method +
                            "\" other than 0"};
    }
}

// One function a method; each gets a projection with unit and method set.
using Convert = void (*)(const Conversion&, gcs::ProjectionDef&);

void WorldMap(const Conversion& from, gcs::ProjectionDef& to) {
    RefuseFalseOrigin(from);
    SetLongitude(to, from.Longitude(kNaturalLongitude));
}

void PlainMercator(const Conversion& from, gcs::ProjectionDef& to) {
    RefuseScale(from, kNaturalScale);
    RefuseLatitude(from, kNaturalLatitude);
    RefuseLatitude(from, kParallel1);
    WorldMap(from, to);
}

void Azimuthal(const Conversion& from, gcs::ProjectionDef& to) {
    WorldMap(from, to);
    SetLatitude(to, from.Degrees(kNaturalLatitude));
}

void NaturalOrigin(const Conversion& from, gcs::ProjectionDef& to) {
    SetLongitude(to, from.Longitude(kNaturalLongitude));
    SetLatitude(to, from.Degrees(kNaturalLatitude));
    SetFalseOrigin(to, from);
}

void NaturalOriginWithScale(const Conversion& from, gcs::ProjectionDef& to) {
    NaturalOrigin(from, to);
    to.SetParameter(Id::ScaleFactor, from.Scale(kNaturalScale));
}

void Stereographic(const Conversion& from, gcs::ProjectionDef& to) {
    NaturalOriginWithScale(from, to);
    to.SetParameter(Id::StandardParallel1, 0.0);
}

void PolarStereographicWithParallel(const Conversion& from, gcs::ProjectionDef& to) {
    const double parallel = from.Degrees(kTrueParallel);
    SetLongitude(to, from.Longitude(kOriginLongitude));
    to.SetParameter(Id::LatitudeOfOrigin, parallel < 0.0 ? -90.0 : 90.0);
    to.SetParameter(Id::StandardParallel1, 0.0);
    to.SetParameter(Id::ScaleFactor, detail::PolarScaleFactor(parallel, from.ellipsoid));
    SetFalseOrigin(to, from);
}

void SetParallels(gcs::ProjectionDef& to, double first, double second) {
    to.SetParameter(Id::StandardParallel1, first);
    to.SetParameter(Id::StandardParallel2, second);
}

void TwoParallelCone(const Conversion& from, gcs::ProjectionDef& to) {
    SetLongitude(to, from.Longitude(kFalseOriginLongitude));
    SetLatitude(to, from.Degrees(kFalseOriginLatitude));
    SetParallels(to, from.Degrees(kParallel1), from.Degrees(kParallel2));
    SetFalseOrigin(to, from, kOriginEasting, kOriginNorthing);
}

void OneParallelCone(const Conversion& from, gcs::ProjectionDef& to) {
    NaturalOrigin(from, to);
    const auto parallels = detail::ParallelsOfTangentCone(
        from.Degrees(kNaturalLatitude), from.Scale(kNaturalScale), from.ellipsoid);
    if (!parallels) {
        throw Inexpressible{"a scale factor of \"" + from.method + "\" above 1"};
    }
    SetParallels(to, parallels->firstDegrees, parallels->secondDegrees);
}

void Albers(const Conversion& from, gcs::ProjectionDef& to) {
    TwoParallelCone(from, to);
    // Clauses of this projection have no azimuth, though the layout has a place for one: their
    // false easting stands in it, their false northing in that of the false easting.
    to.SetParameter(Id::Azimuth, from.Length(kOriginEasting));
    to.SetParameter(Id::FalseEasting, from.Length(kOriginNorthing));
    to.SetParameter(Id::FalseNorthing, 0.0);
}

void EquidistantConic(const Conversion& from, gcs::ProjectionDef& to) {
    NaturalOrigin(from, to);
    SetParallels(to, from.Degrees(kParallel1), from.Degrees(kParallel2));
}

void EquidistantCylindrical(const Conversion& from, gcs::ProjectionDef& to) {
    RefuseLatitude(from, kNaturalLatitude);
    SetLongitude(to, from.Longitude(kNaturalLongitude));
    to.SetParameter(Id::StandardParallel1, from.Degrees(kParallel1));
    SetFalseOrigin(to, from);
}

void MapGrid(const Conversion&, gcs::ProjectionDef& to) {
    to.SetParameter(Id::FalseEasting, 173.0);
    to.SetParameter(Id::FalseNorthing, -41.0);
}

void ObliqueMercator(const Conversion& from, gcs::ProjectionDef& to) {
    constexpr double kSameDegrees = 1e-9;
    if (std::fabs(from.Degrees(kLineAzimuth) - from.Degrees(kRectifiedAngle)) > kSameDegrees) {
        throw Inexpressible{"an angle from the rectified to the skew grid that is not the azimuth"};
    }
    SetLongitude(to, from.Longitude(kCentreLongitude));
    SetLatitude(to, from.Degrees(kCentreLatitude));
    to.SetParameter(Id::Azimuth, from.Degrees(kLineAzimuth));
    to.SetParameter(Id::ScaleFactor, from.Scale(kLineScale));
    to.SetParameter(Id::DefinedByAzimuth, true);
    to.SetParameter(Id::RectifiedOrigin, true);
    SetFalseOrigin(to, from);
}

// The same projection with its origin at the centre: the natural origin lies where the centre
// would have the coordinates of the centre.
void ObliqueMercatorAtCentre(const Conversion& from, gcs::ProjectionDef& to) {
    ObliqueMercator(from, to);
    const detail::ContextHandle context = detail::MakeContext();
    const std::string text =
        "+proj=omerc +no_uoff +lonc=0 +lat_0=" + NumberText(from.Degrees(kCentreLatitude)) +
        " +alpha=" + NumberText(from.Degrees(kLineAzimuth)) +
        " +k_0=" + NumberText(from.Scale(kLineScale)) +
        " +a=" + NumberText(from.ellipsoid.GetMajorRadius()) +
        " +f=" + NumberText(from.ellipsoid.GetFlattening());
    const PjHandle projection(proj_create(context.get(), text.c_str()));
    if (!projection) {
        throw Inexpressible{"\"" + from.method + "\" with these angles"};
    }
    const PJ_COORD centre =
        proj_trans(projection.get(), PJ_FWD,
                   proj_coord(0.0, from.Degrees(kCentreLatitude) * kDegree, 0.0, 0.0));
    to.SetParameter(Id::FalseEasting,
                    from.Length(kCentreEasting) - centre.xy.x / from.metresPerUnit);
    to.SetParameter(Id::FalseNorthing,
                    from.Length(kCentreNorthing) - centre.xy.y / from.metresPerUnit);
}

// Found by the code, or by the name where the register has no code.
struct MethodRow {
    int code;
    ProjectionMethod method;
    const char* name;
    Convert convert;
};

// clang-format off
constexpr MethodRow kMethods[] = {
    {9807, ProjectionMethod::TransverseMercator, "Transverse Mercator", NaturalOriginWithScale},
    {9801, ProjectionMethod::LambertConformalConic, "Lambert Conic Conformal (1SP)", OneParallelCone},
    {9802, ProjectionMethod::LambertConformalConic, "Lambert Conic Conformal (2SP)", TwoParallelCone},
    {9822, ProjectionMethod::AlbersEqualAreaConic, "Albers Equal Area", Albers},
    {9820, ProjectionMethod::LambertAzimuthalEqualArea, "Lambert Azimuthal Equal Area", Azimuthal},
    {1027, ProjectionMethod::LambertAzimuthalEqualArea, "Lambert Azimuthal Equal Area (Spherical)", Azimuthal},
    {9832, ProjectionMethod::AzimuthalEquidistant, "Modified Azimuthal Equidistant", Azimuthal},
    {1125, ProjectionMethod::AzimuthalEquidistant, "Azimuthal Equidistant", Azimuthal},
    {1119, ProjectionMethod::EquidistantConic, "Equidistant Conic", EquidistantConic},
    {9812, ProjectionMethod::HotineObliqueMercator, "Hotine Oblique Mercator (variant A)", ObliqueMercator},
    {9815, ProjectionMethod::HotineObliqueMercator, "Hotine Oblique Mercator (variant B)", ObliqueMercatorAtCentre},
    {9804, ProjectionMethod::Mercator, "Mercator (variant A)", PlainMercator},
    {9805, ProjectionMethod::Mercator, "Mercator (variant B)", PlainMercator},
    {1026, ProjectionMethod::Mercator, "Mercator (Spherical)", PlainMercator},
    {1024, ProjectionMethod::Mercator, "Popular Visualisation Pseudo Mercator", PlainMercator},
    {9806, ProjectionMethod::CassiniSoldner, "Cassini-Soldner", NaturalOrigin},
    {9818, ProjectionMethod::Polyconic, "American Polyconic", NaturalOrigin},
    {9811, ProjectionMethod::NewZealandMapGrid, "New Zealand Map Grid", MapGrid},
    {9810, ProjectionMethod::Stereographic, "Polar Stereographic (variant A)", Stereographic},
    {9829, ProjectionMethod::Stereographic, "Polar Stereographic (variant B)", PolarStereographicWithParallel},
    {0, ProjectionMethod::Stereographic, "Stereographic", Stereographic},
    {1028, ProjectionMethod::EquidistantCylindrical, "Equidistant Cylindrical", EquidistantCylindrical},
    {1029, ProjectionMethod::EquidistantCylindrical, "Equidistant Cylindrical (Spherical)", EquidistantCylindrical},
    {0, ProjectionMethod::EckertIV, "Eckert IV", WorldMap},
    {0, ProjectionMethod::EckertVI, "Eckert VI", WorldMap},
    {0, ProjectionMethod::Mollweide, "Mollweide", WorldMap},
    {0, ProjectionMethod::MillerCylindrical, "Miller Cylindrical", WorldMap},
    {0, ProjectionMethod::Robinson, "Robinson", WorldMap},
    {0, ProjectionMethod::Sinusoidal, "Sinusoidal", WorldMap},
};
// clang-format on

constexpr int kPseudoMercatorMethod = 1024;

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

std::string NameOf(const PJ* object) {
    const char* name = proj_get_name(object);
    return name != nullptr ? name : "";
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

double MetresPerUnit(PJ_CONTEXT* context, const PJ* crs) {
    const PjHandle axes(proj_crs_get_coordinate_system(context, crs));
    double metres = 1.0;
    if (axes) {
        proj_cs_get_axis_info(context, axes.get(), 0, nullptr, nullptr, nullptr, &metres, nullptr,
                              nullptr, nullptr);
    }
    return metres;
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
    conversion.metresPerUnit = MetresPerUnit(context, crs);
    return conversion;
}

// What the reader of a clause knows as metre and survey foot gives exactly these factors.
double UnitsPerMetre(double metresPerUnit) {
    constexpr double kSame = 1e-12;
    constexpr double kSurveyFoot = 1e-9;
    constexpr double kWrittenAsMetre = 0.001;
    const double factor = 1.0 / metresPerUnit;
    if (std::fabs(factor - 1.0) < kSame) {
        return 1.0;
    }
    if (std::fabs(factor - kSurveyFeetPerMetre) < kSurveyFoot) {
        return kSurveyFeetPerMetre;
    }
    if (std::fabs(factor - 1.0) < kWrittenAsMetre) {
        throw Inexpressible{"a unit of " + NumberText(metresPerUnit) +
                            " m, which a clause rounds to the metre"};
    }
    return factor;
}

// The horizontal system of a compound or bound one, and the shift of a bound one.
struct Horizontal {
    PjHandle crs;
    std::optional<detail::PositionVectorShift> shift;
    bool hasHeight = false;
};

Horizontal HorizontalOf(PJ_CONTEXT* context, PjHandle crs) {
    Horizontal found{std::move(crs), std::nullopt, false};
    for (int depth = 0; found.crs && depth < 4; ++depth) {
        const PJ_TYPE type = proj_get_type(found.crs.get());
        if (type == PJ_TYPE_COMPOUND_CRS) {
            found.hasHeight = true;
            found.crs.reset(proj_crs_get_sub_crs(context, found.crs.get(), 0));
        } else if (type == PJ_TYPE_BOUND_CRS) {
            const PjHandle operation(proj_crs_get_coordoperation(context, found.crs.get()));
            detail::PositionVectorShift shift{};
            if (operation && proj_coordoperation_get_towgs84_values(context, operation.get(),
                                                                    shift.data(), 7, 0) != 0) {
                found.shift = shift;
            }
            found.crs.reset(proj_get_source_crs(context, found.crs.get()));
        } else {
            break;
        }
    }
    return found;
}

gcs::ProjectionDef ProjectionOf(const Conversion& conversion) {
    const MethodRow* row = FindMethod(conversion);
    if (row == nullptr) {
        throw Inexpressible{"the projection \"" + conversion.method + "\""};
    }
    gcs::ProjectionDef projection;
    projection.SetMethod(row->method);
    projection.SetParameter(Id::UnitsPerMetre, UnitsPerMetre(conversion.metresPerUnit));
    row->convert(conversion, projection);
    return projection;
}

// The web map projects WGS 84 as if it were a sphere; the sphere is a datum of its own in MIF.
int FrameCodeOf(const Conversion& conversion) {
    return conversion.methodCode == kPseudoMercatorMethod ? 4055 : 0;
}

void Append(std::vector<std::string>& to, const std::vector<std::string>& from) {
    to.insert(to.end(), from.begin(), from.end());
}

// The geographic system behind a system; the flat one where it has heights, since a system with
// heights has a code of its own but the same name.
PjHandle FrameOf(PJ_CONTEXT* context, const PJ* crs) {
    PjHandle frame(proj_crs_get_geodetic_crs(context, crs));
    if (!frame || proj_get_type(frame.get()) != PJ_TYPE_GEOGRAPHIC_3D_CRS) {
        return frame;
    }
    constexpr PJ_TYPE kFlat = PJ_TYPE_GEOGRAPHIC_2D_CRS;
    const detail::PjListHandle list(
        proj_create_from_name(context, "EPSG", NameOf(frame.get()).c_str(), &kFlat, 1,
                              /*approximateMatch=*/0, /*limitResultCount=*/1, nullptr));
    if (list && proj_list_get_count(list.get()) == 1) {
        frame.reset(proj_list_get(context, list.get(), 0));
    }
    return frame;
}

detail::ChosenDatum DatumFor(PJ_CONTEXT* context, const Horizontal& horizontal, bool isProjected,
                             int frameCode) {
    const PjHandle frame = frameCode != 0 ? detail::FromRegister(context, frameCode)
                                          : FrameOf(context, horizontal.crs.get());
    if (!frame) {
        throw Inexpressible{"a system without a datum"};
    }
    const auto shift = frameCode != 0 ? std::nullopt : horizontal.shift;
    detail::ChosenDatum chosen = detail::ChooseDatum(context, frame.get(), shift, isProjected);
    if (!chosen.problem.empty()) {
        throw Inexpressible{"the datum: " + chosen.problem};
    }
    return chosen;
}

void Build(PJ_CONTEXT* context, const Horizontal& horizontal, CrsForExport& result) {
    const PJ_TYPE type = proj_get_type(horizontal.crs.get());
    const bool isProjected = type == PJ_TYPE_PROJECTED_CRS;
    if (!isProjected && type != PJ_TYPE_GEOGRAPHIC_2D_CRS && type != PJ_TYPE_GEOGRAPHIC_3D_CRS) {
        throw Inexpressible{"a system that is neither geographic nor projected"};
    }
    if (horizontal.hasHeight || type == PJ_TYPE_GEOGRAPHIC_3D_CRS) {
        result.warnings.emplace_back("heights are left out");
    }
    Conversion conversion;
    if (isProjected) {
        conversion = ConversionOf(context, horizontal.crs.get());
    }
    const detail::ChosenDatum chosen =
        DatumFor(context, horizontal, isProjected, FrameCodeOf(conversion));
    Append(result.warnings, chosen.warnings);

    gcs::ProjectionDef projection;
    if (isProjected) {
        conversion.leftOverMeridian = chosen.leftOverMeridian;
        conversion.ellipsoid = chosen.datum.GetEllipsoid();
        projection = ProjectionOf(conversion);
    } else {
        projection.SetMethod(ProjectionMethod::LongitudeLatitude);
        projection.SetParameter(Id::UnitsPerMetre, 1.0);
    }
    projection.SetParameter(Id::Ellipsoid, chosen.datum.GetEllipsoid());
    const Id faulty = projection.CheckParameters();
    if (faulty != Id::None) {
        throw Inexpressible{"parameter " + std::to_string(static_cast<int>(faulty)) +
                            " of the projection, which is out of range"};
    }
    result.system = std::make_unique<gcs::GCSDef>();
    result.system->SetProjection(projection);
    result.system->SetDatum(chosen.datum);
}

// What PROJ is given; empty for a text that is neither a code, nor a PROJ string, nor WKT or
// PROJJSON: PROJ would look for a name that contains it and take the first.
std::string DefinitionForProj(const std::string& definition) {
    const std::size_t first = definition.find_first_not_of(" \t\r\n");
    if (first == std::string::npos ||
        definition.find_first_of(":[{+", first) == std::string::npos) {
        return "";
    }
    // A PROJ string means a coordinate system only with this word.
    const bool isProjString = definition[first] == '+';
    return isProjString && definition.find("+type=crs") == std::string::npos
               ? definition + " +type=crs"
               : definition;
}

}  // namespace

CrsForExport GcsFromCrs(const std::string& definition) {
    CrsForExport result;
    const detail::ContextHandle context = detail::MakeContext();
    PjHandle crs(proj_create(context.get(), DefinitionForProj(definition).c_str()));
    if (!crs || proj_is_crs(crs.get()) == 0) {
        result.problem = "\"" + definition + "\" is no coordinate system that PROJ knows";
        return result;
    }
    result.name = NameOf(crs.get());
    const Horizontal horizontal = HorizontalOf(context.get(), std::move(crs));
    try {
        if (!horizontal.crs) {
            throw Inexpressible{"a system without a horizontal part"};
        }
        Build(context.get(), horizontal, result);
    } catch (const Inexpressible& inexpressible) {
        result.warnings.clear();
        result.problem = "MIF can't express " + inexpressible.what + " (" + result.name + ")";
    }
    return result;
}

}  // namespace app
