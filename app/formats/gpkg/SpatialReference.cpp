#include "app/formats/gpkg/SpatialReference.h"

#include "app/crs/CrsIdentity.h"
#include "app/crs/Definitions.h"

#include <utility>

namespace app {
namespace {

constexpr const char* kWgs84Definition =
    "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563,"
    "AUTHORITY[\"EPSG\",\"7030\"]],AUTHORITY[\"EPSG\",\"6326\"]],PRIMEM[\"Greenwich\",0,"
    "AUTHORITY[\"EPSG\",\"8901\"]],UNIT[\"degree\",0.0174532925199433,"
    "AUTHORITY[\"EPSG\",\"9122\"]],AXIS[\"Latitude\",NORTH],AXIS[\"Longitude\",EAST],"
    "AUTHORITY[\"EPSG\",\"4326\"]]";

}  // namespace

SpatialReference Wgs84Reference() {
    return {.name = "WGS 84 geodetic",
            .organization = "EPSG",
            .code = 4326,
            .definition = kWgs84Definition,
            .description =
                "longitude/latitude coordinates in decimal degrees on the WGS 84 spheroid"};
}

SpatialReference ReferenceOf(const CoordinateSystem* system) {
    if (system == nullptr || !system->IsOnEarth()) {
        return {};
    }
    if (IsWgs84(*system)) {  // without PROJ's register, which costs more than a small file
        return Wgs84Reference();
    }
    SpatialReference reference;
    reference.name = system->name;
    reference.organization = system->authority;
    reference.code = system->code;
    if (system->code == 0) {
        const CrsIdentity identity = Identify(*system);
        reference.organization = identity.epsgCode != 0 ? "EPSG" : "NONE";
        reference.code = identity.epsgCode;
        reference.name = identity.epsgCode != 0 ? identity.epsgName : system->name;
    }
    if (reference.organization == "EPSG" && reference.code == Wgs84Reference().code) {
        return Wgs84Reference();
    }
    if (reference.code != 0) {
        reference.definition =
            WktTextOf(reference.organization + ":" + std::to_string(reference.code));
    } else {
        reference.code = SpatialReference().code;
        reference.definition = WktTextOf(system->definition);
    }
    return reference;
}

SystemPtr SystemOf(const SpatialReference& reference) {
    if (reference.IsUndefined()) {
        return nullptr;
    }
    CoordinateSystem system;
    if (reference.organization != "NONE") {
        system = SystemOfDefinition(reference.organization + ":" + std::to_string(reference.code));
    }
    if (!system.IsOnEarth()) {
        system = SystemOfDefinition(reference.definition);
    }
    return std::make_shared<const CoordinateSystem>(std::move(system));
}

}  // namespace app
