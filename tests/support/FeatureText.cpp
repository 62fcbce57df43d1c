#include "tests/support/FeatureText.h"

#include <span>
#include <sstream>
#include <type_traits>

namespace support {
namespace {

using app::Geometry;
using app::GeometryKind;

std::string TextOf(const Geometry& geometry);

const char* NameOf(GeometryKind kind) {
    switch (kind) {
    case GeometryKind::None:
        return "None";
    case GeometryKind::Points:
        return "Points";
    case GeometryKind::Line:
        return "Line";
    case GeometryKind::Region:
        return "Region";
    case GeometryKind::Rectangle:
        return "Rectangle";
    case GeometryKind::Ellipse:
        return "Ellipse";
    case GeometryKind::Arc:
        return "Arc";
    case GeometryKind::Text:
        return "Text";
    case GeometryKind::Collection:
        return "Collection";
    }
    return "?";
}

void Write(std::ostringstream& out, std::span<const shr::Vec2d> points) {
    const char* separator = " ";
    for (const shr::Vec2d& point : points) {
        out << separator << point.x << ' ' << point.y;
        separator = ", ";
    }
}

void WriteShape(std::ostringstream& out, const Geometry& geometry) {
    out << (geometry.isMulti ? "Multi" : "") << NameOf(geometry.kind);
    const bool isBox = geometry.kind == GeometryKind::Rectangle ||
                       geometry.kind == GeometryKind::Ellipse || geometry.kind == GeometryKind::Arc;
    if (isBox) {
        out << ' ' << geometry.box.minX << ' ' << geometry.box.minY << ", " << geometry.box.maxX
            << ' ' << geometry.box.maxY;
    }
    if (geometry.kind == GeometryKind::Rectangle && geometry.radiusX != 0.0) {
        out << " round " << geometry.radiusX << ' ' << geometry.radiusY;
    }
    if (geometry.kind == GeometryKind::Arc) {
        out << " from " << geometry.startDegrees << " to " << geometry.endDegrees;
    }
    if (geometry.kind == GeometryKind::Text) {
        out << " '" << geometry.placement.text << '\'';
    }
    if (isBox || geometry.kind == GeometryKind::None || geometry.kind == GeometryKind::Collection) {
        return;
    }
    std::span<const shr::Vec2d> rest(geometry.points);
    for (std::size_t i = 0; i < geometry.partSizes.size(); ++i) {
        out << (i == 0 ? "" : " |");
        Write(out, rest.first(geometry.partSizes[i]));
        rest = rest.subspan(geometry.partSizes[i]);
    }
    Write(out, rest);
}

void WriteSymbol(std::ostringstream& out, const app::Symbol& symbol) {
    out << " symbol " << (symbol.form == app::Symbol::Form::Bitmap ? 0 : symbol.shape) << ' '
        << symbol.color << ' ' << symbol.size;
    if (!symbol.name.empty()) {
        out << " '" << symbol.name << "' " << symbol.styleBits << ' ' << symbol.rotationDegrees;
    }
}

void WriteStyle(std::ostringstream& out, const app::Style& style) {
    if (style.pen) {
        out << " pen " << style.pen->width << ' ' << style.pen->pattern << ' ' << style.pen->color;
    }
    if (style.brush) {
        out << " brush " << style.brush->pattern << ' ' << style.brush->fore;
    }
    if (style.brush && style.brush->back) {
        out << ' ' << *style.brush->back;
    }
    if (style.symbol) {
        WriteSymbol(out, *style.symbol);
    }
    if (style.font) {
        out << " font '" << style.font->name << "' " << style.font->styleBits << ' '
            << style.font->size << ' ' << style.font->fore;
    }
}

std::string TextOf(const Geometry& geometry) {
    std::ostringstream out;
    out.precision(12);
    WriteShape(out, geometry);
    WriteStyle(out, geometry.style);
    return out.str();
}

void Write(std::ostringstream& out, const app::Value& value) {
    std::visit(
        [&out](const auto& held) {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
                out << "null";
            } else {
                out << held;
            }
        },
        value);
}

}  // namespace

std::string TextOf(const app::Feature& feature) {
    std::ostringstream out;
    out << TextOf(feature.geometry);
    const char* separator = " {";
    for (const Geometry& member : feature.members) {
        out << separator << TextOf(member);
        separator = "; ";
    }
    out << (feature.members.empty() ? " [" : "} [");
    for (std::size_t i = 0; i < feature.values.size(); ++i) {
        out << (i == 0 ? "" : ", ");
        Write(out, feature.values[i]);
    }
    out << "]\n";
    return out.str();
}

std::string TextOf(const std::vector<app::Feature>& features) {
    std::string text;
    for (const app::Feature& feature : features) {
        text += TextOf(feature);
    }
    return text;
}

}  // namespace support
