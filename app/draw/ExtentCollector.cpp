#include "app/draw/ExtentCollector.h"

#include "app/draw/Outlines.h"
#include "app/draw/PolygonRings.h"
#include "app/draw/TextPainter.h"

#include <algorithm>
#include <utility>

namespace app {

void ExtentCollector::BeginLayer(std::size_t) {
    transform_ = {};
    font_ = zeio::TrFont();
}

void ExtentCollector::SetTransform(PointTransform transform) {
    transform_ = std::move(transform);
}

void ExtentCollector::Add(const zeio::TrBase& object) {
    const shr::CTypeInfo* const type = object.GetTypeId();
    if (type == zeio::TrFont::GetClassTypeId()) {
        font_ = static_cast<const zeio::TrFont&>(object);
    } else if (type == zeio::TrPolyline::GetClassTypeId()) {
        for (const shr::Vec3d& vertex : static_cast<const zeio::TrPolyline&>(object).vertices) {
            Include({vertex.x, vertex.y});
        }
    } else if (type == zeio::TrPolygon::GetClassTypeId()) {
        for (const auto ring : RingsOf(static_cast<const zeio::TrPolygon&>(object))) {
            std::for_each(ring.begin(), ring.end(), [this](const shr::Vec3d& vertex) {
                Include({vertex.x, vertex.y});
            });
        }
    } else if (type == zeio::TrMarkerSet::GetClassTypeId()) {
        for (const shr::Vec3d& place : static_cast<const zeio::TrMarkerSet&>(object).positions) {
            Include({place.x, place.y});
        }
    } else if (type == zeio::TrRectangle::GetClassTypeId()) {
        for (const shr::Vec2d& point : OutlineOf(static_cast<const zeio::TrRectangle&>(object))) {
            Include(point);
        }
    } else if (type == zeio::TrEllipse::GetClassTypeId()) {
        for (const shr::Vec2d& point : OutlineOf(static_cast<const zeio::TrEllipse&>(object))) {
            Include(point);
        }
    } else if (type == zeio::TrText::GetClassTypeId()) {
        const TextFrame frame =
            FrameOf(static_cast<const zeio::TrText&>(object), FontHeightOf(font_));
        for (const shr::Vec2d& corner :
             {frame.bottomLeft, frame.bottomRight, frame.topLeft, frame.topRight}) {
            Include(corner);
        }
    }
}

void ExtentCollector::Include(const shr::Vec2d& point) {
    const std::optional<shr::Vec2d> place = PlaceOf(point, transform_);
    if (!place) {
        return;
    }
    if (!extent_) {
        extent_ = shr::Box2d{place->x, place->y, place->x, place->y};
        return;
    }
    extent_->minX = std::min(extent_->minX, place->x);
    extent_->minY = std::min(extent_->minY, place->y);
    extent_->maxX = std::max(extent_->maxX, place->x);
    extent_->maxY = std::max(extent_->maxY, place->y);
}

}  // namespace app
