#include "app/formats/gpkg/SpatialReference.h"

#include "app/crs/CrsIdentity.h"
#include "app/crs/GcsFromCrs.h"
#include "app/crs/GcsToProj.h"
#include "app/crs/Reprojection.h"
#include "app/crs/WktText.h"

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

SpatialReference ReferenceOf(const gcs::CSDef* system) {
    if (system == nullptr) {
        return {};
    }
    if (IsWgs84(system)) {  // without PROJ's register, which costs more than a small file
        return Wgs84Reference();
    }
    const CrsIdentity identity = Identify(*system);
    if (identity.epsgCode == 4326) {
        return Wgs84Reference();
    }
    SpatialReference reference;
    reference.name = identity.epsgCode != 0 ? identity.epsgName : NameInWords(*system);
    if (identity.epsgCode != 0) {
        reference.organization = "EPSG";
        reference.code = identity.epsgCode;
        reference.definition = WktTextOf("EPSG:" + std::to_string(identity.epsgCode));
    } else {
        // With the datum shift of the file's own parameters, which the WKT of Identify may lack.
        reference.definition = WktTextOf(ToProj(*system).crs);
        if (reference.definition.empty()) {
            reference.definition = WktTextOf(identity.wkt2);
        }
    }
    return reference;
}

std::unique_ptr<gcs::CSDef> SystemOf(const SpatialReference& reference, std::string& problem) {
    if (reference.IsUndefined()) {
        return nullptr;
    }
    CrsForExport crs;
    if (reference.organization == "EPSG") {
        crs = GcsFromCrs("EPSG:" + std::to_string(reference.code));
    }
    if (!crs) {
        crs = GcsFromCrs(reference.definition);
    }
    problem = crs.problem;
    return std::move(crs.system);
}

}  // namespace app
