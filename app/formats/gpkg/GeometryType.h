// The types of geometries in a GeoPackage.
#pragma once

#include <cstdint>

namespace app {

// The numbers are those of WKB.
enum class GeometryType : std::uint32_t {
    Geometry = 0,  // any
    Point = 1,
    LineString = 2,
    Polygon = 3,
    MultiPoint = 4,
    MultiLineString = 5,
    MultiPolygon = 6,
    GeometryCollection = 7,
};

// Returns "POINT", "MULTIPOLYGON", ...
const char* GeometryTypeName(GeometryType type);

// Returns the type that collects several geometries of `type`. A collecting type stays as it is.
GeometryType MultiOf(GeometryType type);

}  // namespace app
