#include "app/feature/FeatureBuilder.h"

#include "host/shr/Text.h"
#include "standalone/Text.h"

#include <algorithm>
#include <numbers>
#include <utility>

namespace app {
namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::vector<shr::Vec2d> Flat(const std::vector<shr::Vec3d>& points) {
    std::vector<shr::Vec2d> flat;
    flat.reserve(points.size());
    for (const shr::Vec3d& point : points) {
        flat.push_back({point.x, point.y});
    }
    return flat;
}

template <typename Class> Class* As(zeio::TrBase& object) {
    return object.GetTypeId() == Class::GetClassTypeId() ? static_cast<Class*>(&object) : nullptr;
}

}  // namespace

std::string Utf8FromNarrow(std::string narrow) {
    return IsAscii(narrow) ? std::move(narrow) : standalone::Narrow(shr::AtoW(narrow));
}

bool FeatureBuilder::Take(zeio::TrBase& object, Feature& feature) {
    feature.partSizes.clear();
    if (!TakeGeometry(object, feature)) {
        TakeStyle(object);
        return false;
    }
    feature.number = ++count_;
    feature.style = style_;
    TakeValues(static_cast<zeio::TrGraphics&>(object).attributes, feature);
    if (feature.kind == GeometryKind::Text && hasStyleBeforeText_) {
        style_ = std::move(styleBeforeText_);
        hasStyleBeforeText_ = false;
    }
    return true;
}

bool FeatureBuilder::TakeGeometry(zeio::TrBase& object, Feature& feature) {
    if (auto* line = As<zeio::TrPolyline>(object)) {
        feature.kind = GeometryKind::Line;
        feature.points = Flat(line->vertices);
    } else if (auto* polygon = As<zeio::TrPolygon>(object)) {
        TakePolygon(*polygon, feature);
    } else if (auto* markers = As<zeio::TrMarkerSet>(object)) {
        feature.kind = GeometryKind::Points;
        feature.points = Flat(markers->positions);
    } else if (auto* rectangle = As<zeio::TrRectangle>(object)) {
        feature.kind = GeometryKind::Rectangle;
        feature.points.clear();
        feature.box = {rectangle->x1, rectangle->y1, rectangle->x2, rectangle->y2};
        feature.radiusX = rectangle->radiusX;
        feature.radiusY = rectangle->radiusY;
    } else if (auto* ellipse = As<zeio::TrEllipse>(object)) {
        feature.kind = GeometryKind::Ellipse;
        feature.points.clear();
        feature.box = {ellipse->x1, ellipse->y1, ellipse->x2, ellipse->y2};
    } else if (auto* text = As<zeio::TrText>(object)) {
        TakeText(*text, feature);
    } else {
        return false;
    }
    return true;
}

void FeatureBuilder::TakePolygon(const zeio::TrPolygon& polygon, Feature& feature) {
    feature.kind = GeometryKind::Region;
    feature.points = Flat(polygon.vertices);
    std::size_t left = feature.points.size();
    for (const std::int32_t size : polygon.partSizes) {
        const std::size_t part = std::min(static_cast<std::size_t>(std::max(size, 0)), left);
        feature.partSizes.push_back(part);
        left -= part;
    }
    if (polygon.partSizes.empty()) {
        feature.partSizes.push_back(left);
    } else {
        feature.points.resize(feature.points.size() - left);
    }
}

void FeatureBuilder::TakeText(const zeio::TrText& text, Feature& feature) {
    feature.kind = GeometryKind::Text;
    feature.points = {{text.position.x, text.position.y}};
    feature.placement.text = standalone::Narrow(text.text);
    feature.placement.angleDegrees = text.transform.GetRotation2() * 180.0 / std::numbers::pi;
    feature.placement.height = font_.height;
    feature.placement.fontFace = standalone::Narrow(font_.faceName);
    feature.placement.fontFlags = font_.flags;
    feature.placement.justify = text.justify;
}

void FeatureBuilder::TakeStyle(zeio::TrBase& object) {
    if (auto* pen = As<zeio::TrPen>(object)) {
        style_.pen = *pen;
        style_.hasPen = true;
    } else if (auto* brush = As<zeio::TrBrush>(object)) {
        style_.brush = *brush;
        style_.hasBrush = true;
    } else if (auto* font = As<zeio::TrFont>(object)) {
        font_ = *font;
        if (!hasStyleBeforeText_) {
            styleBeforeText_ = style_;
            hasStyleBeforeText_ = true;
        }
    }
}

void FeatureBuilder::TakeValues(const shr::CParamList& attributes, Feature& feature) {
    feature.values.assign(columns_.size(), Value());
    if (attributes.Size() == columns_.size()) {
        // The usual case: the list holds every column, in order.
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            feature.values[i] = TypedValue(columns_[i], Utf8FromNarrow(attributes.NarrowValue(i)));
        }
        return;
    }
    if (attributes.Size() == 0) {
        return;
    }
    // Columns of one name share a value, so the list is shorter than the columns are many.
    std::wstring value;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (attributes.Get(standalone::Widen(columns_[i].name), value)) {
            feature.values[i] = TypedValue(columns_[i], standalone::Narrow(value));
        }
    }
}

}  // namespace app
