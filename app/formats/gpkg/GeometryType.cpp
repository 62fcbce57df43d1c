#include "app/formats/gpkg/GeometryType.h"

namespace app {

const char* GeometryTypeName(GeometryType type) {
    switch (type) {
    case GeometryType::Point:
        return "POINT";
    case GeometryType::LineString:
        return "LINESTRING";
    case GeometryType::Polygon:
        return "POLYGON";
    case GeometryType::MultiPoint:
        return "MULTIPOINT";
    case GeometryType::MultiLineString:
        return "MULTILINESTRING";
    case GeometryType::MultiPolygon:
        return "MULTIPOLYGON";
    case GeometryType::GeometryCollection:
        return "GEOMETRYCOLLECTION";
    case GeometryType::Geometry:
        break;
    }
    return "GEOMETRY";
}

GeometryType MultiOf(GeometryType type) {
    switch (type) {
    case GeometryType::Point:
        return GeometryType::MultiPoint;
    case GeometryType::LineString:
        return GeometryType::MultiLineString;
    case GeometryType::Polygon:
        return GeometryType::MultiPolygon;
    default:
        return type;
    }
}

}  // namespace app
