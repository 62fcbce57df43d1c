#include "app/formats/mif/MifTarget.h"

#include "app/json/JsonText.h"
#include "standalone/Text.h"

#include <numbers>
#include <type_traits>
#include <utility>

namespace app {

namespace {

constexpr std::uint32_t kRendersText = 0x1;
constexpr std::uint32_t kRendersMarkers = 0x2;

const shr::Color4b kBlack{0, 0, 0, 255};

bool IsSame(const zeio::TrPen& left, const zeio::TrPen& right) {
    return left.style == right.style && left.color == right.color &&
           left.isRelative == right.isRelative && left.width == right.width &&
           left.dashes == right.dashes;
}

bool IsSame(const zeio::TrBrush& left, const zeio::TrBrush& right) {
    return left.pattern == right.pattern && left.fore == right.fore && left.back == right.back;
}

std::vector<shr::Vec3d> InSpace(const std::vector<shr::Vec2d>& points) {
    std::vector<shr::Vec3d> result;
    result.reserve(points.size());
    for (const shr::Vec2d& point : points) {
        result.push_back({point.x, point.y, 0.0});
    }
    return result;
}

}  // namespace

bool RendersText(std::uint32_t capabilities) {
    return (capabilities & kRendersText) != 0;
}

bool RendersMarkers(std::uint32_t capabilities) {
    return (capabilities & kRendersMarkers) != 0;
}

std::string TextOfValue(const Value& value) {
    return std::visit(
        [](const auto& held) -> std::string {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return {};
            } else if constexpr (std::is_same_v<Held, bool>) {
                return held ? "true" : "false";
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return held;
            } else {
                std::string text;
                AppendJsonNumber(text, held);
                return text;
            }
        },
        value);
}

MifTarget::MifTarget(const ExportSettings& settings, Reporter& reporter)
    : run_(settings, reporter) {}

MifTarget::~MifTarget() = default;

void MifTarget::BeginLayer(const LayerFacts& layer) {
    zeio::TrInitGraphicsExp questions;
    questions.extent = {0.0, 0.0, 0.0, -1.0, -1.0, -1.0};  // not known
    if (layer.knownExtent) {
        questions.extent = {layer.knownExtent->minX, layer.knownExtent->minY, 0.0,
                            layer.knownExtent->maxX, layer.knownExtent->maxY, 0.0};
    }
    run_.Send(questions);
    capabilities_ = questions.capabilities;
    if (layer.system != nullptr) {
        zeio::TrCRS system;
        system.SetCS(layer.system);
        run_.Send(system);
    }
    names_.clear();
    for (const LayerColumn& column : layer.columns) {
        names_.push_back(standalone::Widen(column.name));
    }
    if (!names_.empty()) {
        zeio::TrNamedIds columns;
        columns.names = names_;
        run_.Send(columns);
    }
}

void MifTarget::Write(Feature& feature) {
    if ((feature.kind == GeometryKind::Text && !RendersText(capabilities_)) ||
        (feature.kind == GeometryKind::Points && !RendersMarkers(capabilities_))) {
        return;
    }
    SendStyle(feature);
    SendGeometry(feature);
}

bool MifTarget::Finish() {
    return run_.Finish();
}

void MifTarget::SendStyle(const Feature& feature) {
    zeio::TrPen pen = feature.style.hasPen ? feature.style.pen
                                           : zeio::TrPen(zeio::TrPen::Style::Solid, kBlack, 0.0);
    if (!pen_ || !IsSame(*pen_, pen)) {
        run_.Send(pen);
        pen_ = pen;
    }
    zeio::TrBrush brush =
        feature.style.hasBrush ? feature.style.brush : zeio::TrBrush(zeio::TrBrush::Pattern::None);
    if (!brush_ || !IsSame(*brush_, brush)) {
        run_.Send(brush);
        brush_ = brush;
    }
}

void MifTarget::SendGeometry(Feature& feature) {
    switch (feature.kind) {
    case GeometryKind::Points: {
        zeio::TrMarkerSet markers;
        markers.positions = InSpace(feature.points);
        markers.attributes = Attributes(feature);
        run_.Send(markers);
        break;
    }
    case GeometryKind::Line: {
        zeio::TrPolyline line;
        line.vertices = InSpace(feature.points);
        line.attributes = Attributes(feature);
        run_.Send(line);
        break;
    }
    case GeometryKind::Region: {
        zeio::TrPolygon polygon;
        polygon.vertices = InSpace(feature.points);
        for (const std::size_t size : feature.partSizes) {
            polygon.partSizes.push_back(static_cast<std::int32_t>(size));
        }
        polygon.attributes = Attributes(feature);
        run_.Send(polygon);
        break;
    }
    case GeometryKind::Rectangle: {
        zeio::TrRectangle rectangle;
        rectangle.x1 = feature.box.minX;
        rectangle.y1 = feature.box.minY;
        rectangle.x2 = feature.box.maxX;
        rectangle.y2 = feature.box.maxY;
        rectangle.radiusX = feature.radiusX;
        rectangle.radiusY = feature.radiusY;
        rectangle.attributes = Attributes(feature);
        run_.Send(rectangle);
        break;
    }
    case GeometryKind::Ellipse: {
        zeio::TrEllipse ellipse;
        ellipse.x1 = feature.box.minX;
        ellipse.y1 = feature.box.minY;
        ellipse.x2 = feature.box.maxX;
        ellipse.y2 = feature.box.maxY;
        ellipse.attributes = Attributes(feature);
        run_.Send(ellipse);
        break;
    }
    case GeometryKind::Text:
        SendText(feature);
        break;
    }
}

void MifTarget::SendText(const Feature& feature) {
    zeio::TrFont font(standalone::Widen(feature.placement.fontFace));
    font.flags = feature.placement.fontFlags;
    font.height = feature.placement.height;
    run_.Send(font);
    const shr::Vec2d& at = feature.points.front();
    zeio::TrText text(standalone::Widen(feature.placement.text), {at.x, at.y, 0.0});
    text.justify = feature.placement.justify;
    text.align = 1;
    text.transform.Translate(-at.x, -at.y, 0.0);
    text.transform.RotateZ(feature.placement.angleDegrees / 180.0 * std::numbers::pi);
    text.transform.Translate(at.x, at.y, 0.0);
    text.attributes = Attributes(feature);
    run_.Send(text);
}

shr::CParamList MifTarget::Attributes(const Feature& feature) const {
    shr::CParamList attributes;
    const std::size_t count = std::min(names_.size(), feature.values.size());
    for (std::size_t i = 0; i < count; ++i) {
        attributes.Set(names_[i], standalone::Widen(TextOfValue(feature.values[i])));
    }
    return attributes;
}

}  // namespace app
