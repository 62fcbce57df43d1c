#include "app/trace/ExtentOfObjects.h"

#include <algorithm>
#include <cmath>

namespace app {
namespace {

template <typename Class> const Class* As(const zeio::TrBase& object) {
    return object.GetTypeId() == Class::GetClassTypeId() ? static_cast<const Class*>(&object)
                                                         : nullptr;
}

}  // namespace

void ExtentOfObjects::Add(const zeio::TrBase& object) {
    const std::vector<shr::Vec3d>* points = nullptr;
    if (const auto* line = As<zeio::TrPolyline>(object)) {
        points = &line->vertices;
    } else if (const auto* polygon = As<zeio::TrPolygon>(object)) {
        points = &polygon->vertices;
    } else if (const auto* markers = As<zeio::TrMarkerSet>(object)) {
        points = &markers->positions;
    } else if (const auto* rectangle = As<zeio::TrRectangle>(object)) {
        Widen(rectangle->x1, rectangle->y1, 0.0);
        Widen(rectangle->x2, rectangle->y2, 0.0);
    } else if (const auto* ellipse = As<zeio::TrEllipse>(object)) {
        Widen(ellipse->x1, ellipse->y1, 0.0);
        Widen(ellipse->x2, ellipse->y2, 0.0);
    } else if (const auto* text = As<zeio::TrText>(object)) {
        AddText(*text);
    }
    if (points != nullptr) {
        for (const shr::Vec3d& point : *points) {
            Widen(point.x, point.y, point.z);
        }
    }
}

void ExtentOfObjects::AddText(const zeio::TrText& text) {
    if (text.box.IsEmpty()) {
        Widen(text.position.x, text.position.y, text.position.z);
        return;
    }
    Widen(text.box.minX, text.box.minY, text.position.z);
    Widen(text.box.maxX, text.box.maxY, text.position.z);
}

void ExtentOfObjects::Widen(double x, double y, double z) {
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
        return;
    }
    if (isEmpty_) {
        box_ = {x, y, z, x, y, z};
        isEmpty_ = false;
    }
    box_.minX = std::min(box_.minX, x);
    box_.minY = std::min(box_.minY, y);
    box_.minZ = std::min(box_.minZ, z);
    box_.maxX = std::max(box_.maxX, x);
    box_.maxY = std::max(box_.maxY, y);
    box_.maxZ = std::max(box_.maxZ, z);
}

shr::Box3d ExtentOfObjects::Box() const {
    return isEmpty_ ? shr::Box3d{0.0, 0.0, 0.0, -1.0, -1.0, -1.0} : box_;
}

}  // namespace app
