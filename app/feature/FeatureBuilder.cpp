#include "app/feature/FeatureBuilder.h"

#include "app/base/Utf8.h"
#include "app/feature/ObjectStyles.h"
#include "standalone/Text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace app {
namespace {

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

// Returns the diagonal of the box as the module has it; 0 for a box that counts as no box there.
double DiagonalOf(const shr::Box2d& box) {
    const double width = std::abs(box.maxX - box.minX);
    const double height = std::abs(box.maxY - box.minY);
    return width + height < static_cast<double>(std::numeric_limits<float>::epsilon())
               ? 0.0
               : std::hypot(width, height);
}

void TakePolygon(const zeio::TrPolygon& polygon, Geometry& geometry) {
    geometry.kind = GeometryKind::Region;
    geometry.points = Flat(polygon.vertices);
    std::size_t left = geometry.points.size();
    for (const std::int32_t size : polygon.partSizes) {
        const std::size_t part = std::min(static_cast<std::size_t>(std::max(size, 0)), left);
        geometry.partSizes.push_back(part);
        left -= part;
    }
    if (polygon.partSizes.empty()) {
        geometry.partSizes.push_back(left);
    } else {
        geometry.points.resize(geometry.points.size() - left);
    }
}

// The box as a file has it, which is turned about its upper left corner; the module's is turned
// about the lower left one.
std::optional<shr::Box2d> TextBox(const zeio::TrText& text) {
    const double angle = text.transform.GetRotation2();
    if (text.box.IsEmpty() || angle == 0.0) {
        return text.box.IsEmpty() ? std::nullopt : std::optional(text.box);
    }
    const double width = text.box.maxX - text.box.minX;
    const double height = text.box.maxY - text.box.minY;
    const shr::Vec2d corner{text.position.x - height * std::sin(angle),
                            text.position.y + height * std::cos(angle)};
    return shr::Box2d{corner.x, corner.y - height, corner.x + width, corner.y};
}

void TakeText(const zeio::TrText& text, Geometry& geometry) {
    geometry.kind = GeometryKind::Text;
    geometry.points = {{text.position.x, text.position.y}};
    geometry.placement.text = standalone::Narrow(text.text);
    geometry.placement.box = TextBox(text);
    geometry.placement.angleDegrees = text.transform.GetRotation2() * 180.0 / std::numbers::pi;
    switch (text.justify) {
    case zeio::TrText::Justify::Centre:
        geometry.placement.justify = Justify::Center;
        break;
    case zeio::TrText::Justify::Right:
        geometry.placement.justify = Justify::Right;
        break;
    default:
        geometry.placement.justify = Justify::Left;
    }
}

}  // namespace

bool FeatureBuilder::Take(zeio::TrBase& object, Feature& feature) {
    Geometry& geometry = feature.geometry;
    geometry.partSizes.clear();
    if (!TakeGeometry(object, geometry)) {
        TakeStyle(object);
        return false;
    }
    feature.number = ++count_;
    feature.members.clear();
    SeeExtent(geometry);
    SetStyle(geometry);
    TakeValues(static_cast<zeio::TrGraphics&>(object).attributes, feature);
    if (geometry.kind == GeometryKind::Text && styleBeforeText_) {
        style_ = std::move(*styleBeforeText_);
        styleBeforeText_.reset();
    }
    return true;
}

bool FeatureBuilder::TakeGeometry(zeio::TrBase& object, Geometry& geometry) {
    if (auto* line = As<zeio::TrPolyline>(object)) {
        geometry.kind = GeometryKind::Line;
        geometry.points = Flat(line->vertices);
    } else if (auto* polygon = As<zeio::TrPolygon>(object)) {
        TakePolygon(*polygon, geometry);
    } else if (auto* markers = As<zeio::TrMarkerSet>(object)) {
        geometry.kind = GeometryKind::Points;
        geometry.points = Flat(markers->positions);
    } else if (auto* rectangle = As<zeio::TrRectangle>(object)) {
        geometry.kind = GeometryKind::Rectangle;
        geometry.points.clear();
        geometry.box = {rectangle->x1, rectangle->y1, rectangle->x2, rectangle->y2};
        geometry.radiusX = rectangle->radiusX;
        geometry.radiusY = rectangle->radiusY;
    } else if (auto* ellipse = As<zeio::TrEllipse>(object)) {
        geometry.kind = GeometryKind::Ellipse;
        geometry.points.clear();
        geometry.box = {ellipse->x1, ellipse->y1, ellipse->x2, ellipse->y2};
    } else if (auto* text = As<zeio::TrText>(object)) {
        TakeText(*text, geometry);
    } else {
        return false;
    }
    return true;
}

void FeatureBuilder::TakeStyle(zeio::TrBase& object) {
    if (auto* pen = As<zeio::TrPen>(object)) {
        style_.pen = *pen;
    } else if (auto* brush = As<zeio::TrBrush>(object)) {
        style_.brush = *brush;
    } else if (auto* font = As<zeio::TrFont>(object)) {
        font_ = *font;
        if (!styleBeforeText_) {
            styleBeforeText_ = style_;
        }
    }
}

void FeatureBuilder::SetStyle(Geometry& geometry) {
    Style& style = geometry.style;
    style.pen.reset();
    style.brush.reset();
    style.font.reset();
    if (style_.pen) {
        const bool isScaled = style_.pen->isRelative && style_.pen->width > 0.0;
        style.pen = PenOf(*style_.pen, isScaled ? Diagonal() : 0.0);
    }
    if (geometry.kind != GeometryKind::Text) {
        if (style_.brush) {
            style.brush = BrushOf(*style_.brush);
        }
        return;
    }
    geometry.placement.height = font_.height;
    style.font = Font{.name = standalone::Narrow(font_.faceName),
                      .styleBits = FontStyleBits(font_.flags),
                      .fore = style_.brush ? MifColorOf(style_.brush->fore) : 0};
}

void FeatureBuilder::SeeExtent(const Geometry& geometry) {
    if (bounds_ && DiagonalOf(*bounds_) > 0.0) {
        return;
    }
    const shr::Box2d box = BoxOf(geometry);
    if (box.IsEmpty()) {
        return;
    }
    if (!seen_) {
        seen_ = box;
    }
    seen_ = {std::min(seen_->minX, box.minX), std::min(seen_->minY, box.minY),
             std::max(seen_->maxX, box.maxX), std::max(seen_->maxY, box.maxY)};
}

double FeatureBuilder::Diagonal() const {
    const double declared = bounds_ ? DiagonalOf(*bounds_) : 0.0;
    return declared > 0.0 || !seen_ ? declared : DiagonalOf(*seen_);
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
    // Columns of the same name share one entry of the list.
    std::wstring value;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (attributes.Get(standalone::Widen(columns_[i].name), value)) {
            feature.values[i] = TypedValue(columns_[i], standalone::Narrow(value));
        }
    }
}

}  // namespace app
