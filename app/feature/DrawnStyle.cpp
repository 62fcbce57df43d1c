#include "app/feature/DrawnStyle.h"

#include "app/feature/LabelText.h"
#include "app/feature/ObjectStyles.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr double kUsualLineWidth = 1.25;
constexpr double kUsualOutlineWidth = 0.75;
constexpr double kUsualDiameter = 7.0;
constexpr double kSmallestDiameter = 2.0;
constexpr double kLargestDiameter = 512.0;
constexpr double kWidestPen = 1024.0;

// Bits of a font symbol's style.
constexpr unsigned kBoldSymbol = 1;
constexpr unsigned kBlackBorder = 16;
constexpr unsigned kSymbolShadow = 32;
constexpr unsigned kWhiteBorder = 256;

// Bits of a font's style.
constexpr unsigned kBold = 1;
constexpr unsigned kItalic = 2;
constexpr unsigned kUnderlined = 4;
constexpr unsigned kShadow = 32;
constexpr unsigned kHalo = 256;

constexpr int kCircle = 34;
constexpr shr::Color4b kWhite{255, 255, 255};

Marker::Border BorderOf(unsigned styleBits) {
    if ((styleBits & kWhiteBorder) != 0) {
        return Marker::Border::White;
    }
    return (styleBits & kBlackBorder) != 0 ? Marker::Border::Black : Marker::Border::None;
}

}  // namespace

double BorderWidth(const Marker& marker) {
    switch (marker.border) {
    case Marker::Border::None:
        return 0.0;
    case Marker::Border::Light:
        return 0.75;
    default:
        return std::clamp(marker.diameter / 12.0, 1.0, 4.0);
    }
}

const shr::Color4b& BorderColor(Marker::Border border) {
    // The light one sets a symbol without a style off against areas and other symbols.
    static constexpr shr::Color4b kLightEdge{255, 255, 255, 220};
    static constexpr shr::Color4b kBlack{0, 0, 0};
    return border == Marker::Border::Light   ? kLightEdge
           : border == Marker::Border::White ? kWhite
                                             : kBlack;
}

Stroke StyleResolver::StrokeOf(const Style& style, GeometryKind kind) const {
    if (source_ == StyleSource::Layers || !style.pen) {
        const bool isLine = kind == GeometryKind::Line || kind == GeometryKind::Arc;
        return {colors_.line, isLine ? kUsualLineWidth : kUsualOutlineWidth, {}};
    }
    return {ObjectColorOf(style.pen->color), std::min(PixelsOf(*style.pen), kWidestPen),
            DashesOf(style.pen->pattern)};
}

Fill StyleResolver::FillOf(const Style& style) const {
    if (source_ == StyleSource::Layers || !style.brush) {
        return {BrushLook{}, colors_.area};
    }
    Fill fill{LookOf(style.brush->pattern), ObjectColorOf(style.brush->fore)};
    if (style.brush->back) {
        fill.back = ObjectColorOf(*style.brush->back);
    }
    return fill;
}

Marker StyleResolver::MarkerOf(const Style& style) const {
    Marker marker;
    marker.shape = &ShapeOf(kCircle);
    if (source_ == StyleSource::Layers || !style.symbol) {
        // Under a pen that draws nothing a point has its layer's colour.
        const bool hasPen = source_ == StyleSource::Objects && style.pen && style.pen->pattern != 1;
        marker.color = hasPen ? ObjectColorOf(style.pen->color) : colors_.symbol;
        marker.diameter = kUsualDiameter;
        marker.border = Marker::Border::Light;
        return marker;
    }
    const Symbol& symbol = *style.symbol;
    marker.color = ObjectColorOf(symbol.color);
    marker.diameter = std::clamp(PixelsOfPoints(symbol.size), kSmallestDiameter, kLargestDiameter);
    if (symbol.form == Symbol::Form::Shape) {
        marker.shape = &ShapeOf(symbol.shape);
        marker.diameter = symbol.shape == kBlankSymbol ? 0.0 : marker.diameter;
    } else if (symbol.form == Symbol::Form::FontCharacter) {
        const auto bits = static_cast<unsigned>(symbol.styleBits);
        marker.border = BorderOf(bits);
        marker.hasShadow = (bits & kSymbolShadow) != 0;
        marker.isBold = (bits & kBoldSymbol) != 0;
        marker.family = CleanName(symbol.name);
        marker.character = characterOf_(marker.family, symbol.shape);
        if (marker.character.empty()) {
            marker.family.clear();
        } else if (std::isfinite(symbol.rotationDegrees)) {
            marker.degrees = symbol.rotationDegrees;
        }
    }
    return marker;
}

Lettering StyleResolver::LetteringOf(const Style& style) const {
    Lettering lettering;
    if (style.font) {
        const auto bits = static_cast<unsigned>(style.font->styleBits);
        lettering.family = CleanName(style.font->name);
        lettering.isBold = (bits & kBold) != 0;
        lettering.isItalic = (bits & kItalic) != 0;
        lettering.isUnderlined = (bits & kUnderlined) != 0;
    }
    if (source_ == StyleSource::Layers || !style.font) {
        lettering.color = colors_.text;
        return lettering;
    }
    const auto bits = static_cast<unsigned>(style.font->styleBits);
    lettering.color = ObjectColorOf(style.font->fore);
    lettering.hasShadow = (bits & kShadow) != 0;
    const std::optional<std::uint32_t> back = style.font->back;
    if ((bits & kHalo) != 0) {
        lettering.halo = back ? ObjectColorOf(*back) : kWhite;
    } else if (back) {
        lettering.ground = ObjectColorOf(*back);
    }
    return lettering;
}

double StyleResolver::ReachOf(const Geometry& geometry) const {
    switch (geometry.kind) {
    case GeometryKind::None:
    case GeometryKind::Collection:
    case GeometryKind::Text:
        return 0.0;
    case GeometryKind::Points: {
        const Marker marker = MarkerOf(geometry.style);
        // The corners of a square lie further out than its side.
        return marker.diameter * 0.75 + BorderWidth(marker);
    }
    default:
        return StrokeOf(geometry.style, geometry.kind).width / 2.0;
    }
}

}  // namespace app
