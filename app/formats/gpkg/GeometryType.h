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

// "POINT", "MULTIPOLYGON", ...
const char* GeometryTypeName(GeometryType type);

// The type that collects several of type; a collecting one stays.
GeometryType MultiOf(GeometryType type);

}  // namespace app
