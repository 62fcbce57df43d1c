#include "app/info/ObjectCounter.h"

#include <algorithm>

namespace app {
namespace {

void Widen(std::optional<shr::Box2d>& extent, double x, double y) {
    if (!extent) {
        extent = shr::Box2d{x, y, x, y};
    }
    extent->minX = std::min(extent->minX, x);
    extent->minY = std::min(extent->minY, y);
    extent->maxX = std::max(extent->maxX, x);
    extent->maxY = std::max(extent->maxY, y);
}

std::uint64_t& CountOf(ObjectKind kind, ObjectCounts& counts) {
    switch (kind) {
    case ObjectKind::Point:
    case ObjectKind::Multipoint:
        return counts.points;
    case ObjectKind::Line:
    case ObjectKind::Pline:
        return counts.lines;
    case ObjectKind::Region:
        return counts.regions;
    case ObjectKind::Rect:
    case ObjectKind::RoundRect:
        return counts.rectangles;
    case ObjectKind::Ellipse:
        return counts.ellipses;
    case ObjectKind::Arc:
        return counts.arcs;
    case ObjectKind::Text:
        return counts.texts;
    case ObjectKind::Collection:
        return counts.collections;
    default:
        return counts.withoutPlace;
    }
}

}  // namespace

void ObjectCounter::Take(const ObjectFacts& object) {
    if (object.kind != ObjectKind::Skipped) {
        ++CountOf(object.kind, counts_);
        CountVertices(object);
    }
}

// Of objects whose points come as the corners of a box.
void ObjectCounter::CountVertices(const ObjectFacts& object) {
    counts_.vertices += object.kind == ObjectKind::Line ? 2U : 0U;
    counts_.vertices += object.kind == ObjectKind::Text ? 1U : 0U;
    for (const ObjectFacts& member : object.members) {
        CountVertices(member);
    }
}

void ObjectCounter::TakePoints(const ObjectPart& part) {
    counts_.vertices += part.shape == PartShape::Corners ? 0 : part.points.size();
    for (const shr::Vec2d& point : part.points) {
        Widen(counts_.extent, point.x, point.y);
    }
}

ObjectCounts ObjectCounter::Counts() const {
    ObjectCounts counts = counts_;
    if (transform_ && counts_.extent) {
        const shr::Box2d& box = *counts_.extent;
        counts.extent.reset();
        for (const shr::Vec2d& corner :
             {shr::Vec2d{box.minX, box.minY}, shr::Vec2d{box.maxX, box.maxY}}) {
            Widen(counts.extent, corner.x * transform_->factor.x + transform_->shift.x,
                  corner.y * transform_->factor.y + transform_->shift.y);
        }
    }
    return counts;
}

void FeatureCounter::Take(const Feature& feature) {
    const Geometry& geometry = feature.geometry;
    switch (geometry.kind) {
    case GeometryKind::Points:
        ++counts_.points;
        break;
    case GeometryKind::Line:
        ++counts_.lines;
        break;
    case GeometryKind::Region:
        ++counts_.regions;
        break;
    case GeometryKind::Rectangle:
    case GeometryKind::Ellipse:
        ++(geometry.kind == GeometryKind::Ellipse ? counts_.ellipses : counts_.rectangles);
        Widen(counts_.extent, geometry.box.minX, geometry.box.minY);
        Widen(counts_.extent, geometry.box.maxX, geometry.box.maxY);
        break;
    case GeometryKind::Text:
        ++counts_.texts;
        break;
    default:  // the module hands over no others
        break;
    }
    counts_.vertices += geometry.points.size();
    for (const shr::Vec2d& point : geometry.points) {
        Widen(counts_.extent, point.x, point.y);
    }
}

}  // namespace app
