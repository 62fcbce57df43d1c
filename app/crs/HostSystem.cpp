#include "app/crs/HostSystem.h"

#include "app/mif/Units.h"

#include <array>
#include <cmath>

namespace app {

namespace {

using gcs::ProjectionMethod;
using Id = gcs::ProjectionParameterID;
using enum ProjectionParameter;

constexpr double kSurveyFeetPerMetre = 3.28083333333333;

struct MethodRow {
    ProjectionMethod method;
    int code;
};

// Where two codes have one method, the one that holds at any latitude.
constexpr std::array kMethods = {
    MethodRow{ProjectionMethod::LongitudeLatitude, 1},
    MethodRow{ProjectionMethod::LambertConformalConic, 3},
    MethodRow{ProjectionMethod::LambertAzimuthalEqualArea, 29},
    MethodRow{ProjectionMethod::AzimuthalEquidistant, 28},
    MethodRow{ProjectionMethod::EquidistantConic, 6},
    MethodRow{ProjectionMethod::HotineObliqueMercator, 7},
    MethodRow{ProjectionMethod::TransverseMercator, 8},
    MethodRow{ProjectionMethod::GaussKrueger, 8},
    MethodRow{ProjectionMethod::AlbersEqualAreaConic, 9},
    MethodRow{ProjectionMethod::Mercator, 10},
    MethodRow{ProjectionMethod::MillerCylindrical, 11},
    MethodRow{ProjectionMethod::Robinson, 12},
    MethodRow{ProjectionMethod::Mollweide, 13},
    MethodRow{ProjectionMethod::EckertIV, 14},
    MethodRow{ProjectionMethod::EckertVI, 15},
    MethodRow{ProjectionMethod::Sinusoidal, 16},
    MethodRow{ProjectionMethod::NewZealandMapGrid, 18},
    MethodRow{ProjectionMethod::Stereographic, 20},
    MethodRow{ProjectionMethod::Polyconic, 27},
    MethodRow{ProjectionMethod::CassiniSoldner, 30},
    MethodRow{ProjectionMethod::EquidistantCylindrical, 33},
};

const Projection* ProjectionOf(ProjectionMethod method) {
    for (const MethodRow& row : kMethods) {
        if (row.method == method) {
            return KnownProjection(row.code);
        }
    }
    return nullptr;
}

// Unknown for a projection that no method of the host corresponds to.
ProjectionMethod MethodOf(const Projection& projection) {
    switch (projection.code) {
    case 4:
        return ProjectionMethod::LambertAzimuthalEqualArea;
    case 5:
        return ProjectionMethod::AzimuthalEquidistant;
    case 24:
    case 34:
        return ProjectionMethod::TransverseMercator;
    default:
        break;
    }
    for (const MethodRow& row : kMethods) {
        if (row.code == projection.code) {
            return row.method;
        }
    }
    return ProjectionMethod::Unknown;
}

bool IsAzimuthal(ProjectionMethod method) {
    return method == ProjectionMethod::AzimuthalEquidistant ||
           method == ProjectionMethod::LambertAzimuthalEqualArea;
}

void SetMapGrid(Clause& clause) {
    clause[OriginLongitude] = 173.0;
    clause[OriginLatitude] = -41.0;
    clause[FalseEasting] = 2510000.0;
    clause[FalseNorthing] = 6023150.0;
}

void SetParameters(Clause& clause, ProjectionMethod method, const gcs::ProjectionParameters& p) {
    const bool isOblique = method == ProjectionMethod::HotineObliqueMercator;
    clause[OriginLongitude] = isOblique ? p.centreLongitude : p.centralLongitude;
    clause[OriginLatitude] = IsAzimuthal(method) ? p.standardParallel1 : p.latitudeOfOrigin;
    clause[StandardParallel1] = p.standardParallel1;
    clause[StandardParallel2] = p.standardParallel2;
    clause[ScaleFactor] = p.scaleFactor;
    clause[Azimuth] = isOblique ? p.azimuth : 0.0;
    clause[FalseEasting] = p.falseEasting;
    clause[FalseNorthing] = p.falseNorthing;
    if (method == ProjectionMethod::AlbersEqualAreaConic) {
        clause[FalseEasting] = p.azimuth;
        clause[FalseNorthing] = p.falseEasting;
    } else if (method == ProjectionMethod::NewZealandMapGrid) {
        SetMapGrid(clause);
    }
    const Clause defaults;
    for (std::size_t i = 0; i < kProjectionParameterCount; ++i) {
        const auto parameter = static_cast<ProjectionParameter>(i);
        if (!clause.projection->Takes(parameter)) {
            clause[parameter] = defaults[parameter];
        }
    }
}

// The factor of a survey foot is cut off in the module; the foot is meant.
double MetresPerUnit(double unitsPerMetre) {
    return unitsPerMetre == kSurveyFeetPerMetre ? kSurveyFoot : 1.0 / unitsPerMetre;
}

double UnitsPerMetre(double metresPerUnit) {
    constexpr double kSame = 1e-12;
    const double factor = 1.0 / metresPerUnit;
    return std::fabs(metresPerUnit / kSurveyFoot - 1.0) < kSame ? kSurveyFeetPerMetre : factor;
}

std::string WordsOf(ProjectionMethod method) {
    if (method == ProjectionMethod::ArbitraryPlane) {
        return "an arbitrary plane has no place on the Earth (a projection with faulty parameters "
               "becomes one)";
    }
    return "no projection of PROJ's corresponds to method " +
           std::to_string(static_cast<int>(method)) + " of the host";
}

CoordinateSystem FromEarth(const gcs::GCSDef& earth) {
    const bool hasProjection = earth.HasProjection(false, true);
    if (!hasProjection && !earth.HasDatum(false)) {
        return UnknownSystem("the coordinate system is not known");
    }
    const gcs::ProjectionMethod method =
        hasProjection ? earth.GetProjection().GetMethod() : ProjectionMethod::LongitudeLatitude;
    Clause clause;
    clause.projection = ProjectionOf(method);
    if (clause.projection == nullptr) {
        return UnknownSystem(WordsOf(method));
    }
    const gcs::ProjectionParameters parameters = earth.GetProjection().GetParameters();
    SetParameters(clause, method, parameters);
    clause.datum = earth.GetDatum();
    clause.metresPerUnit = clause.IsGeographic() ? 1.0 : MetresPerUnit(parameters.unitsPerMetre);
    CoordinateSystem system = SystemOfClause(std::move(clause));
    if (earth.GetDatum().IsUnknown()) {
        system.warnings.emplace_back("the datum is not known; WGS 84 is taken");
    }
    if (method == ProjectionMethod::AlbersEqualAreaConic && parameters.falseNorthing != 0.0) {
        system.warnings.emplace_back("the seventh number of the Albers projection is ignored");
    }
    return system;
}

// A longitude and a latitude fill two parameters each, as reading a clause does.
void SetOrigin(gcs::ProjectionDef& projection, const Clause& clause) {
    projection.SetParameter(Id::CentralLongitude, clause[OriginLongitude]);
    projection.SetParameter(Id::CentreLongitude, clause[OriginLongitude]);
    if (clause.projection->Takes(OriginLatitude)) {
        projection.SetParameter(Id::LatitudeOfOrigin, clause[OriginLatitude]);
        projection.SetParameter(Id::StandardParallel1, clause[OriginLatitude]);
    }
}

void SetRest(gcs::ProjectionDef& projection, const Clause& clause) {
    constexpr std::array kSimple = {
        std::pair{StandardParallel1, Id::StandardParallel1},
        std::pair{StandardParallel2, Id::StandardParallel2},
        std::pair{Azimuth, Id::Azimuth},
        std::pair{ScaleFactor, Id::ScaleFactor},
        std::pair{FalseEasting, Id::FalseEasting},
        std::pair{FalseNorthing, Id::FalseNorthing},
    };
    for (const auto& [parameter, id] : kSimple) {
        if (clause.projection->Takes(parameter)) {
            projection.SetParameter(id, clause[parameter]);
        }
    }
}

// What the layout of single methods puts into other places.
void Displace(gcs::ProjectionDef& projection, ProjectionMethod method, const Clause& clause) {
    switch (method) {
    case ProjectionMethod::AlbersEqualAreaConic:
        projection.SetParameter(Id::Azimuth, clause[FalseEasting]);
        projection.SetParameter(Id::FalseEasting, clause[FalseNorthing]);
        projection.SetParameter(Id::FalseNorthing, 0.0);
        break;
    case ProjectionMethod::NewZealandMapGrid:
        projection.SetParameter(Id::FalseEasting, clause[OriginLongitude]);
        projection.SetParameter(Id::FalseNorthing, clause[OriginLatitude]);
        break;
    case ProjectionMethod::Stereographic:
        projection.SetParameter(Id::StandardParallel1, 0.0);
        break;
    case ProjectionMethod::HotineObliqueMercator:
        projection.SetParameter(Id::DefinedByAzimuth, true);
        projection.SetParameter(Id::RectifiedOrigin, true);
        break;
    default:
        break;
    }
}

}  // namespace

CoordinateSystem FromHost(const gcs::CSDef* system) {
    if (system == nullptr) {
        return UnknownSystem("the coordinate system is not known");
    }
    if (system->Type() == gcs::CSType::Earth) {
        return FromEarth(static_cast<const gcs::GCSDef&>(*system));
    }
    const double factor = system->UnitFactor();
    return PlaneSystem(factor > 0.0 ? MetresPerUnit(factor) : 1.0);
}

std::unique_ptr<gcs::GCSDef> ToHost(const Clause& clause) {
    const ProjectionMethod method = MethodOf(*clause.projection);
    if (method == ProjectionMethod::Unknown || clause.affine) {
        return nullptr;
    }
    const gcs::DatumDef datum = DatumOf(clause);
    gcs::ProjectionDef projection;
    projection.SetMethod(method);
    projection.SetParameter(Id::UnitsPerMetre,
                            clause.IsGeographic() ? 1.0 : UnitsPerMetre(clause.metresPerUnit));
    projection.SetParameter(Id::Ellipsoid, datum.GetEllipsoid());
    if (!clause.projection->parameters.empty() && method != ProjectionMethod::NewZealandMapGrid) {
        SetOrigin(projection, clause);
        SetRest(projection, clause);
    }
    Displace(projection, method, clause);
    auto system = std::make_unique<gcs::GCSDef>();
    system->SetProjection(projection);
    system->SetDatum(datum);
    return system;
}

}  // namespace app
