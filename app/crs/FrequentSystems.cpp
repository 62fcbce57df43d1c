#include "app/crs/FrequentSystems.h"

#include "app/crs/GcsToProj.h"
#include "app/crs/detail/DatumCodes.h"

#include <cmath>

namespace app {

namespace {

constexpr int kFirstNorthernZone = 32601;
constexpr int kFirstSouthernZone = 32701;
constexpr double kZones = 60.0;

std::optional<RegisteredSystem> ZoneOnWgs84(const gcs::ProjectionDef& projection) {
    const gcs::ProjectionParameters p = projection.GetParameters();
    const bool isSouthern = p.falseNorthing == 1e7;
    const double zone = (p.centralLongitude + 183.0) / 6.0;  // 1 to 60
    if (projection.GetMethod() != gcs::ProjectionMethod::TransverseMercator ||
        p.unitsPerMetre != 1.0 || p.latitudeOfOrigin != 0.0 || p.scaleFactor != 0.9996 ||
        p.falseEasting != 500000.0 || (p.falseNorthing != 0.0 && !isSouthern) ||
        !(zone >= 1.0 && zone <= kZones) || zone != std::floor(zone)) {
        return std::nullopt;
    }
    const int number = static_cast<int>(zone);
    return RegisteredSystem{(isSouthern ? kFirstSouthernZone : kFirstNorthernZone) + number - 1,
                            "WGS 84 / UTM zone " + std::to_string(number) +
                                (isSouthern ? "S" : "N")};
}

}  // namespace

std::optional<RegisteredSystem> FindFrequentSystem(const gcs::CSDef& system) {
    const ProjDefinition definition = ToProj(system);
    if (!definition) {
        return std::nullopt;
    }
    const auto& earth = static_cast<const gcs::GCSDef&>(system);
    const gcs::DatumDef& datum = earth.GetDatum();
    if (definition.isGeographic) {
        const char* name = detail::EpsgGeographicNameOf(datum);
        return name != nullptr
                   ? std::optional(RegisteredSystem{detail::EpsgGeographicCodeOf(datum), name})
                   : std::nullopt;
    }
    return datum.GetToken() == L"DATUM_WGS84" ? ZoneOnWgs84(earth.GetProjection()) : std::nullopt;
}

}  // namespace app
