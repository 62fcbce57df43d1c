// Coordinate systems as the rows of a GeoPackage's table of them.
#pragma once

#include "app/crs/CoordinateSystem.h"

#include <cstdint>
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

// Returns the row of the register's system that the system was named by or that it equals
// (Identify), else of its own definition with the organization NONE. Null, a plane, and what has no
// definition are undefined.
SpatialReference ReferenceOf(const CoordinateSystem* system);

// The other way: by the organization's code when PROJ has it, else by the definition. An unknown
// system, with its problem, when PROJ reads neither; null for an undefined reference.
SystemPtr SystemOf(const SpatialReference& reference);

}  // namespace app
