#include "app/formats/geojson/GeoJsonGeometry.h"

#include <nlohmann/json.hpp>

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace app {
namespace {

using Json = nlohmann::ordered_json;

const Json& ArrayOf(const Json& object, const char* name) {
    const auto at = object.find(name);
    if (at == object.end() || !at->is_array()) {
        throw GeometryError(std::string("the geometry has no array \"") + name + "\"");
    }
    return *at;
}

void AddPosition(const Json& position, Geometry& geometry) {
    if (!position.is_array() || position.size() < 2 || !position[0].is_number() ||
        !position[1].is_number()) {
        throw GeometryError("a position is not an array of two or more numbers");
    }
    geometry.points.push_back({position[0].get<double>(), position[1].get<double>()});
}

const Json& Nested(const Json& coordinates) {
    if (!coordinates.is_array()) {
        throw GeometryError("the coordinates are not nested as the geometry's type asks");
    }
    return coordinates;
}

// Returns the number of positions.
std::size_t AddPositions(const Json& positions, Geometry& geometry) {
    geometry.points.reserve(geometry.points.size() + Nested(positions).size());
    for (const Json& position : positions) {
        AddPosition(position, geometry);
    }
    return positions.size();
}

void AddPart(const Json& positions, Geometry& geometry) {
    if (const std::size_t count = AddPositions(positions, geometry); count > 0) {
        geometry.partSizes.push_back(count);
    }
}

void CheckLine(std::size_t count) {
    if (count == 1) {
        throw GeometryError("a line has one position only");
    }
}

void ReadPoint(const Json& coordinates, Geometry& geometry) {
    if (!coordinates.empty()) {
        AddPosition(coordinates, geometry);
    }
}

void ReadMultiPoint(const Json& coordinates, Geometry& geometry) {
    geometry.isMulti = true;
    AddPositions(coordinates, geometry);
}

void ReadLine(const Json& coordinates, Geometry& geometry) {
    CheckLine(AddPositions(coordinates, geometry));
}

void ReadMultiLine(const Json& coordinates, Geometry& geometry) {
    geometry.isMulti = true;
    for (const Json& line : coordinates) {
        CheckLine(Nested(line).size());
        AddPart(line, geometry);
    }
}

void ReadPolygon(const Json& coordinates, Geometry& geometry) {
    for (const Json& ring : Nested(coordinates)) {
        AddPart(ring, geometry);
    }
}

void ReadMultiPolygon(const Json& coordinates, Geometry& geometry) {
    for (const Json& polygon : coordinates) {
        ReadPolygon(polygon, geometry);
    }
}

struct TypeRow {
    std::string_view name;
    GeometryKind kind;
    void (*read)(const Json& coordinates, Geometry& geometry);
};
constexpr std::array<TypeRow, 6> kTypes{{
    {"Point", GeometryKind::Points, ReadPoint},
    {"MultiPoint", GeometryKind::Points, ReadMultiPoint},
    {"LineString", GeometryKind::Line, ReadLine},
    {"MultiLineString", GeometryKind::Line, ReadMultiLine},
    {"Polygon", GeometryKind::Region, ReadPolygon},
    {"MultiPolygon", GeometryKind::Region, ReadMultiPolygon},
}};

std::string GeometryTypeOf(const Json& geometry) {
    if (!geometry.is_object()) {
        throw GeometryError("the geometry is not an object");
    }
    return TypeOf(geometry);
}

// Empty without coordinates.
Geometry SimpleGeometry(const Json& json, const std::string& type) {
    for (const TypeRow& row : kTypes) {
        if (row.name == type) {
            Geometry geometry;
            row.read(ArrayOf(json, "coordinates"), geometry);
            geometry.kind = geometry.points.empty() ? GeometryKind::None : row.kind;
            return geometry;
        }
    }
    throw GeometryError("GeoJSON has no geometry type \"" + type + "\"");
}

constexpr std::string_view kCollection = "GeometryCollection";

void AddMembers(const Json& collection, std::vector<Geometry>& members) {
    for (const Json& member : ArrayOf(collection, "geometries")) {
        if (member.is_null()) {
            continue;
        }
        const std::string type = GeometryTypeOf(member);
        if (type == kCollection) {
            AddMembers(member, members);
        } else if (Geometry geometry = SimpleGeometry(member, type);
                   geometry.kind != GeometryKind::None) {
            members.push_back(std::move(geometry));
        }
    }
}

}  // namespace

std::string TypeOf(const Json& object) {
    const auto at = object.find("type");
    return at != object.end() && at->is_string() ? at->get<std::string>() : "";
}

void ReadGeometry(const nlohmann::ordered_json& json, Feature& feature) {
    feature.geometry = {};
    feature.members.clear();
    if (json.is_null()) {
        return;
    }
    const std::string type = GeometryTypeOf(json);
    if (type != kCollection) {
        feature.geometry = SimpleGeometry(json, type);
        return;
    }
    AddMembers(json, feature.members);
    feature.geometry.kind = feature.members.empty() ? GeometryKind::None : GeometryKind::Collection;
}

}  // namespace app
