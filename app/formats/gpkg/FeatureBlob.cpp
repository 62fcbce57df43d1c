#include "app/formats/gpkg/FeatureBlob.h"

#include <algorithm>
#include <utility>

namespace app {

shr::Box2d Union(const shr::Box2d& a, const shr::Box2d& b) {
    return {std::min(a.minX, b.minX), std::min(a.minY, b.minY), std::max(a.maxX, b.maxX),
            std::max(a.maxY, b.maxY)};
}

bool FeatureBlob::Build(const Feature& feature) {
    if (feature.geometry.kind == GeometryKind::Collection) {
        return BuildCollection(feature.members);
    }
    const std::optional<Body> body = BodyOf(feature.geometry);
    if (body) {
        type_ = body->type;
        box_ = body->box;
        blob_.Begin(type_, box_);
        Append(*body, feature.geometry);
    }
    return body.has_value();
}

bool FeatureBlob::BuildCollection(const std::vector<Geometry>& members) {
    std::vector<std::pair<const Geometry*, Body>> bodies;
    for (const Geometry& member : members) {
        if (std::optional<Body> body = BodyOf(member)) {
            box_ = bodies.empty() ? body->box : Union(box_, body->box);
            bodies.emplace_back(&member, std::move(*body));
        }
    }
    if (bodies.empty()) {
        return false;
    }
    type_ = GeometryType::GeometryCollection;
    blob_.Begin(type_, box_);
    blob_.Count(bodies.size());
    for (const auto& [member, body] : bodies) {
        blob_.Member(body.type);
        Append(body, *member);
    }
    return true;
}

std::optional<FeatureBlob::Body> FeatureBlob::BodyOf(const Geometry& geometry) {
    Body body;
    body.box = BoxOf(geometry);
    if (body.box.IsEmpty()) {
        return std::nullopt;
    }
    const bool isOne = geometry.points.size() == 1 && !geometry.isMulti;
    switch (geometry.kind) {
    case GeometryKind::Points:
    case GeometryKind::Text:
        body.type = isOne ? GeometryType::Point : GeometryType::MultiPoint;
        return body;
    case GeometryKind::Line:
        body.sections = SectionsOf(geometry);
        std::erase_if(body.sections, [](const auto& section) { return section.size() < 2; });
        body.type = body.sections.size() == 1 && !geometry.isMulti ? GeometryType::LineString
                                                                   : GeometryType::MultiLineString;
        return body.sections.empty() ? std::nullopt : std::optional(std::move(body));
    case GeometryKind::Region: {
        const std::vector<Ring> rings = RingsOf(geometry.points, geometry.partSizes);
        if (rings.empty()) {
            return std::nullopt;
        }
        body.polygons = NestRings(rings);
        body.type = body.polygons.size() == 1 ? GeometryType::Polygon : GeometryType::MultiPolygon;
        return body;
    }
    default:
        return std::nullopt;
    }
}

void FeatureBlob::Append(const Body& body, const Geometry& geometry) {
    switch (body.type) {
    case GeometryType::Point:
        blob_.Point(geometry.points.front());
        break;
    case GeometryType::MultiPoint:
        blob_.Count(geometry.points.size());
        for (const shr::Vec2d& point : geometry.points) {
            blob_.Member(GeometryType::Point);
            blob_.Point(point);
        }
        break;
    case GeometryType::LineString:
        blob_.Points(body.sections.front());
        break;
    case GeometryType::MultiLineString:
        blob_.Count(body.sections.size());
        for (const std::span<const shr::Vec2d> section : body.sections) {
            blob_.Member(GeometryType::LineString);
            blob_.Points(section);
        }
        break;
    case GeometryType::Polygon:
        AppendPolygon(body.polygons.front());
        break;
    default:
        blob_.Count(body.polygons.size());
        for (const NestedPolygon& polygon : body.polygons) {
            blob_.Member(GeometryType::Polygon);
            AppendPolygon(polygon);
        }
    }
}

void FeatureBlob::AppendPolygon(const NestedPolygon& polygon) {
    blob_.Count(1 + polygon.holes.size());
    blob_.Ring(polygon.outer);
    for (const Ring& hole : polygon.holes) {
        blob_.Ring(hole);
    }
}

}  // namespace app
