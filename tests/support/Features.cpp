#include "tests/support/Features.h"

#include <utility>

namespace support {

app::LayerColumn Column(std::string name, app::ColumnKind kind, int width) {
    app::LayerColumn column;
    column.name = std::move(name);
    column.kind = kind;
    column.width = width;
    return column;
}

app::Feature PointAt(double x, double y, std::vector<app::Value> values) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Points;
    feature.geometry.points = {{x, y}};
    feature.values = std::move(values);
    return feature;
}

app::Feature PointsAt(std::vector<shr::Vec2d> points) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Points;
    feature.geometry.points = std::move(points);
    return feature;
}

app::Feature LineThrough(std::vector<shr::Vec2d> points) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Line;
    feature.geometry.points = std::move(points);
    return feature;
}

app::Feature RegionOf(const std::vector<std::vector<shr::Vec2d>>& rings) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Region;
    for (const std::vector<shr::Vec2d>& ring : rings) {
        feature.geometry.points.insert(feature.geometry.points.end(), ring.begin(), ring.end());
        feature.geometry.partSizes.push_back(ring.size());
    }
    return feature;
}

std::vector<shr::Vec2d> Square(double x, double y, double side) {
    return {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}};
}

app::Feature EllipseIn(const shr::Box2d& box) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Ellipse;
    feature.geometry.box = box;
    return feature;
}

}  // namespace support
