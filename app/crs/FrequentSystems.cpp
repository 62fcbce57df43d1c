#include "app/crs/FrequentSystems.h"

#include "app/crs/Datums.h"
#include "app/mif/Units.h"

#include <array>
#include <cmath>

namespace app {

namespace {

using enum ProjectionParameter;

constexpr std::int64_t kCone = 3;
constexpr std::int64_t kTransverseMercator = 8;

// Zones of UTM on one datum: EPSG code of the first, and its number.
struct Zones {
    int epsgGeographicCode;
    bool isSouthern;
    int firstZone;
    int lastZone;
    int firstCode;
    const char* name;  // before the number
    const char* suffix;
};

constexpr std::array kZones = {
    Zones{4326, false, 1, 60, 32601, "WGS 84 / UTM zone ", "N"},
    Zones{4326, true, 1, 60, 32701, "WGS 84 / UTM zone ", "S"},
    Zones{4258, false, 28, 34, 25828, "ETRS89 / UTM zone ", "N"},
    Zones{4258, false, 36, 37, 25836, "ETRS89 / UTM zone ", "N"},
    Zones{4269, false, 1, 23, 26901, "NAD83 / UTM zone ", "N"},
    Zones{4283, true, 49, 56, 28349, "GDA94 / MGA zone ", ""},
};

// Clauses in the terms of the table, and what they are in the register.
struct Known {
    int epsgCode;
    const char* epsgName;
    int epsgGeographicCode;
    std::int64_t projection;
    std::array<double, 6> numbers;  // in the order of the clause; metres
};

// clang-format off
constexpr std::array kKnown = {
    Known{3067, "ETRS89 / TM35FIN(E,N)", 4258, 8, {27, 0, 0.9996, 500000, 0}},
    Known{2154, "RGF93 v1 / Lambert-93", 4258, 3, {3, 46.5, 44, 49, 700000, 6600000}},
    Known{3301, "Estonian Coordinate System of 1997", 4258, 3, {24, 57.51755393055556, 58, 59.333333333333336, 500000, 6375000}},
    Known{2180, "ETRF2000-PL / CS92", 4258, 8, {19, 0, 0.9993, 500000, -5300000}},
    Known{27700, "OSGB36 / British National Grid", 4277, 8, {-2, 49, 0.9996012717, 400000, -100000}},
    Known{31370, "BD72 / Belgian Lambert 72", 4313, 3, {4.367486666666666, 90, 49.8333339, 51.16666723333333, 150000.013, 5400088.438}},
    Known{31466, "DHDN / 3-degree Gauss-Kruger zone 2", 4314, 8, {6, 0, 1, 2500000, 0}},
    Known{31467, "DHDN / 3-degree Gauss-Kruger zone 3", 4314, 8, {9, 0, 1, 3500000, 0}},
    Known{31468, "DHDN / 3-degree Gauss-Kruger zone 4", 4314, 8, {12, 0, 1, 4500000, 0}},
    Known{27572, "NTF (Paris) / Lambert zone II", 4807, 3, {0, 46.8, 45.898918964344, 47.696014502105, 600000, 2200000}},
    Known{28992, "Amersfoort / RD New", 4289, 31, {5.387638888888889, 52.15616055555556, 0.9999079, 155000, 463000}},
    Known{2193, "NZGD2000 / New Zealand Transverse Mercator 2000", 4167, 8, {173, 0, 0.9996, 1600000, 10000000}},
};
// clang-format on

bool IsNear(double left, double right, double tolerance) {
    return std::fabs(left - right) <= tolerance;
}

// Numbers of a clause may have lost their last digits: a millimetre, and what moves points by one.
bool IsSameNumber(ProjectionParameter parameter, double left, double right) {
    constexpr double kDegrees = 1e-9;
    constexpr double kFactor = 1e-10;
    constexpr double kMetres = 1e-3;
    switch (parameter) {
    case ScaleFactor:
        return IsNear(left, right, kFactor);
    case FalseEasting:
    case FalseNorthing:
        return IsNear(left, right, kMetres);
    default:
        return IsNear(left, right, kDegrees);
    }
}

// The parallels of a cone may come in either order.
bool HasNumbers(const Clause& clause, const Known& known) {
    Clause sorted = clause;
    if (known.projection == kCone && sorted[StandardParallel1] > sorted[StandardParallel2]) {
        std::swap(sorted[StandardParallel1], sorted[StandardParallel2]);
    }
    std::size_t i = 0;
    for (const ProjectionParameter parameter : clause.projection->parameters) {
        if (!IsSameNumber(parameter, sorted[parameter], known.numbers[i++])) {
            return false;
        }
    }
    return true;
}

std::optional<RegisteredSystem> ZoneOf(const Clause& clause, int frame) {
    const bool isSouthern = clause[FalseNorthing] == 1e7;
    const double zone = (clause[OriginLongitude] + 183.0) / 6.0;  // 1 to 60
    if (clause.projection->code != kTransverseMercator || clause[OriginLatitude] != 0.0 ||
        clause[ScaleFactor] != 0.9996 || clause[FalseEasting] != 500000.0 ||
        (clause[FalseNorthing] != 0.0 && !isSouthern) || zone != std::floor(zone)) {
        return std::nullopt;
    }
    for (const Zones& zones : kZones) {
        if (zones.epsgGeographicCode == frame && zones.isSouthern == isSouthern &&
            zone >= zones.firstZone && zone <= zones.lastZone) {
            const int number = static_cast<int>(zone);
            return RegisteredSystem{zones.firstCode + number - zones.firstZone,
                                    zones.name + std::to_string(number) + zones.suffix};
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<RegisteredSystem> FindFrequentSystem(const Clause& clause) {
    const gcs::DatumDef datum = DatumOf(clause);
    const int frame = EpsgGeographicCodeOf(datum);
    if (frame == 0 || clause.affine) {
        return std::nullopt;
    }
    if (clause.IsGeographic()) {
        const char* name = EpsgGeographicNameOf(datum);
        return name != nullptr ? std::optional(RegisteredSystem{frame, name}) : std::nullopt;
    }
    if (clause.metresPerUnit != 1.0) {
        return std::nullopt;
    }
    for (const Known& known : kKnown) {
        if (known.epsgGeographicCode == frame && known.projection == clause.projection->code &&
            HasNumbers(clause, known)) {
            return RegisteredSystem{known.epsgCode, known.epsgName};
        }
    }
    return ZoneOf(clause, frame);
}

}  // namespace app
