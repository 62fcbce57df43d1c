#include "app/formats/mif/ModuleTarget.h"

#include "app/base/Paths.h"
#include "app/feature/ObjectStyles.h"
#include "app/formats/mif/ExportSystem.h"
#include "app/json/JsonText.h"
#include "standalone/Text.h"

#include <algorithm>
#include <numbers>
#include <span>
#include <type_traits>
#include <utility>

namespace app {

namespace {

// The diagonal of the extent that the filter gets. It only grades the widths of pens.
constexpr double kDiagonal = 1.0;
constexpr int kArcSegments = 120;

const shr::Color4b kBlack{0, 0, 0, 255};

bool IsSame(const zeio::TrPen& left, const zeio::TrPen& right) {
    return left.style == right.style && left.color == right.color &&
           left.isRelative == right.isRelative && left.width == right.width &&
           left.dashes == right.dashes;
}

bool IsSame(const zeio::TrBrush& left, const zeio::TrBrush& right) {
    return left.pattern == right.pattern && left.fore == right.fore && left.back == right.back;
}

std::vector<shr::Vec3d> InSpace(std::span<const shr::Vec2d> points) {
    std::vector<shr::Vec3d> result;
    result.reserve(points.size());
    for (const shr::Vec2d& point : points) {
        result.push_back({point.x, point.y, 0.0});
    }
    return result;
}

zeio::TrText::Justify ObjectJustify(Justify justify) {
    switch (justify) {
    case Justify::Center:
        return zeio::TrText::Justify::Centre;
    case Justify::Right:
        return zeio::TrText::Justify::Right;
    case Justify::Left:
        break;
    }
    return zeio::TrText::Justify::Left;
}

}  // namespace

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

ExportSettings ExportSettingsOf(const std::filesystem::path& path, const TargetOptions& options) {
    ExportSettings settings;
    settings.path = path;
    settings.ifExists = options.ifExists;
    settings.noStore = options.noStore;
    settings.optionString = options.optionString;
    settings.modulePath = options.modulePath;
    return settings;
}

ModuleTarget::ModuleTarget(const std::filesystem::path& path, const TargetOptions& options,
                           Reporter& reporter)
    : run_(ExportSettingsOf(path, options), reporter), reporter_(reporter), name_(PathText(path)) {}

ModuleTarget::~ModuleTarget() = default;

void ModuleTarget::BeginLayer(const LayerFacts& layer) {
    run_.Begin({0.0, 0.0, 0.0, kDiagonal, 0.0, 0.0});
    if (const auto system = HostSystemForExport(layer)) {
        run_.SendSystem(*system);
    }
    names_.clear();
    for (const LayerColumn& column : layer.columns) {
        names_.push_back(standalone::Widen(column.name));
    }
    if (!names_.empty()) {
        run_.SendColumns(names_);
    }
}

void ModuleTarget::Write(Feature& feature) {
    if (feature.geometry.kind == GeometryKind::None) {
        ++withoutGeometry_;
        return;
    }
    const shr::CParamList attributes = Attributes(feature);
    if (feature.geometry.kind == GeometryKind::Collection) {
        for (Geometry& member : feature.members) {
            WriteGeometry(member, attributes);
        }
    } else {
        WriteGeometry(feature.geometry, attributes);
    }
}

bool ModuleTarget::Finish() {
    if (withoutGeometry_ > 0) {
        reporter_.Warning(name_ + ": " + std::to_string(withoutGeometry_) +
                          (withoutGeometry_ == 1 ? " feature has" : " features have") +
                          " no geometry and was left out");
    }
    return run_.Finish();
}

void ModuleTarget::WriteGeometry(Geometry& geometry, const shr::CParamList& attributes) {
    if ((geometry.kind == GeometryKind::Text && !run_.RendersText()) ||
        (geometry.kind == GeometryKind::Points && !run_.RendersMarkers())) {
        return;
    }
    if (geometry.kind == GeometryKind::Arc) {
        FlattenCurves(geometry, kArcSegments);
    }
    SendStyle(geometry);
    SendGeometry(geometry, attributes);
}

void ModuleTarget::SendStyle(const Geometry& geometry) {
    const Style& style = geometry.style;
    const zeio::TrPen pen = style.pen ? ObjectOf(*style.pen, kDiagonal)
                                      : zeio::TrPen(zeio::TrPen::Style::Solid, kBlack, 0.0);
    if (!pen_ || !IsSame(*pen_, pen)) {
        zeio::TrPen sent = pen;
        run_.Send(sent);
        pen_ = pen;
    }
    zeio::TrBrush brush =
        style.brush ? ObjectOf(*style.brush) : zeio::TrBrush(zeio::TrBrush::Pattern::None);
    if (geometry.kind == GeometryKind::Text) {
        // The filter takes the colour of a text from the brush.
        brush = ObjectOf(Brush{.pattern = 2, .fore = style.font ? style.font->fore : 0});
    }
    if (!brush_ || !IsSame(*brush_, brush)) {
        run_.Send(brush);
        brush_ = brush;
    }
}

void ModuleTarget::SendGeometry(const Geometry& geometry, const shr::CParamList& attributes) {
    switch (geometry.kind) {
    case GeometryKind::Points: {
        zeio::TrMarkerSet markers;
        markers.positions = InSpace(geometry.points);
        Send(markers, attributes);
        break;
    }
    case GeometryKind::Line:
        for (const std::span<const shr::Vec2d> section : SectionsOf(geometry)) {
            zeio::TrPolyline line;
            line.vertices = InSpace(section);
            Send(line, attributes);
        }
        break;
    case GeometryKind::Region: {
        zeio::TrPolygon polygon;
        polygon.vertices = InSpace(geometry.points);
        for (const std::size_t size : geometry.partSizes) {
            polygon.partSizes.push_back(static_cast<std::int32_t>(size));
        }
        Send(polygon, attributes);
        break;
    }
    case GeometryKind::Rectangle: {
        zeio::TrRectangle rectangle;
        rectangle.x1 = geometry.box.minX;
        rectangle.y1 = geometry.box.minY;
        rectangle.x2 = geometry.box.maxX;
        rectangle.y2 = geometry.box.maxY;
        rectangle.radiusX = geometry.radiusX;
        rectangle.radiusY = geometry.radiusY;
        Send(rectangle, attributes);
        break;
    }
    case GeometryKind::Ellipse: {
        zeio::TrEllipse ellipse;
        ellipse.x1 = geometry.box.minX;
        ellipse.y1 = geometry.box.minY;
        ellipse.x2 = geometry.box.maxX;
        ellipse.y2 = geometry.box.maxY;
        Send(ellipse, attributes);
        break;
    }
    case GeometryKind::Text:
        SendText(geometry, attributes);
        break;
    default:
        break;
    }
}

void ModuleTarget::SendText(const Geometry& geometry, const shr::CParamList& attributes) {
    const TextPlacement& placement = geometry.placement;
    const Font style = geometry.style.font.value_or(Font());
    zeio::TrFont font(standalone::Widen(style.name));
    font.flags = FontFlags(style.styleBits);
    font.height = placement.height;
    run_.Send(font);
    const shr::Vec2d& at = geometry.points.front();
    zeio::TrText text(standalone::Widen(placement.text), {at.x, at.y, 0.0});
    text.justify = ObjectJustify(placement.justify);
    text.align = 1;
    text.transform.Translate(-at.x, -at.y, 0.0);
    text.transform.RotateZ(placement.angleDegrees / 180.0 * std::numbers::pi);
    text.transform.Translate(at.x, at.y, 0.0);
    Send(text, attributes);
}

void ModuleTarget::Send(zeio::TrGraphics& object, const shr::CParamList& attributes) {
    object.attributes = attributes;
    run_.Send(object);
}

shr::CParamList ModuleTarget::Attributes(const Feature& feature) const {
    shr::CParamList attributes;
    const std::size_t count = std::min(names_.size(), feature.values.size());
    for (std::size_t i = 0; i < count; ++i) {
        attributes.Set(names_[i], standalone::Widen(TextOfValue(feature.values[i])));
    }
    return attributes;
}

}  // namespace app
