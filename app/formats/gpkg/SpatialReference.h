// Coordinate systems as the rows of a GeoPackage's table of them.
#pragma once

#include "host/gcs/CSDef.h"

#include <cstdint>
#include <memory>
#include <string>

namespace app {

struct SpatialReference {
    std::string name;
    std::string organization = "NONE";
    std::int32_t code = -1;  // of the organization; -1: a plane that nothing is known of
    std::string definition;  // WKT; empty for a plane that nothing is known of
    std::string description;

    bool IsUndefined() const { return definition.empty(); }
    bool operator==(const SpatialReference&) const = default;
};

// Longitude and latitude of WGS 84.
SpatialReference Wgs84Reference();

// The EPSG system when the file's system is one of them for sure, else its own definition with the
// organization NONE. Null, a plane, and what has no definition are undefined.
SpatialReference ReferenceOf(const gcs::CSDef* system);

// The other way: by the EPSG code when there is one, else by the definition. Null, with the reason
// in problem, when MIF has no such system; null without a reason for an undefined one.
std::unique_ptr<gcs::CSDef> SystemOf(const SpatialReference& reference, std::string& problem);

}  // namespace app
