#include "app/draw/GeometrySpool.h"

#include <cstdint>
#include <cstring>

namespace app {

namespace {

// The first byte of a record: a kind with flags, or the start of a layer.
constexpr std::uint8_t kKindBits = 0x0F;
constexpr std::uint8_t kNewStyle = 0x10;
constexpr std::uint8_t kLabel = 0x20;
constexpr std::uint8_t kParts = 0x40;
constexpr std::uint8_t kLayer = 0xFF;

// What a text says and how it lies, but for the text itself.
struct PlainPlacement {
    Justify justify;
    bool hasBox;
    bool hasLabelLine;
    bool hasArrow;
    double lineSpacing;
};

// Parts of a style that are there.
constexpr std::uint8_t kPen = 1;
constexpr std::uint8_t kBrush = 2;
constexpr std::uint8_t kSymbol = 4;
constexpr std::uint8_t kFont = 8;

struct PlainSymbol {
    Symbol::Form form;
    int shape;
    std::uint32_t color;
    int size;
    int styleBits;
    double rotationDegrees;
};

struct PlainFont {
    int styleBits;
    int size;
    std::uint32_t fore;
    bool hasBack;
    std::uint32_t back;
};

}  // namespace

void GeometrySpool::BeginLayer(std::size_t layer) {
    spool_.Put(kLayer);
    spool_.Put(layer);
}

void GeometrySpool::Add(const Geometry& geometry, std::string_view label) {
    const bool isNewStyle = geometry.style != style_;
    spool_.Put(static_cast<std::uint8_t>(
        static_cast<unsigned>(geometry.kind) | (isNewStyle ? kNewStyle : 0U) |
        (label.empty() ? 0U : kLabel) | (geometry.partSizes.empty() ? 0U : kParts)));
    if (isNewStyle) {
        style_ = geometry.style;
        WriteStyle(style_);
    }
    if (!label.empty()) {
        WriteText(label);
    }
    spool_.Put(geometry.points.size());
    spool_.Write({reinterpret_cast<const char*>(geometry.points.data()),
                  geometry.points.size() * sizeof(shr::Vec2d)});
    if (!geometry.partSizes.empty()) {
        spool_.Put(geometry.partSizes.size());
        spool_.Write({reinterpret_cast<const char*>(geometry.partSizes.data()),
                      geometry.partSizes.size() * sizeof(std::size_t)});
    }
    if (geometry.kind == GeometryKind::Text) {
        const TextPlacement& placement = geometry.placement;
        WriteText(placement.text);
        spool_.Put(PlainPlacement{
            placement.justify, placement.box.has_value(), placement.labelLine.has_value(),
            placement.labelLine && placement.labelLine->hasArrow, placement.lineSpacing});
    }
}

void GeometrySpool::Read(const Receiver& receiver) {
    Geometry geometry;
    std::string label;
    Spool::Reader from(spool_);
    while (!from.IsAtEnd()) {
        const auto head = from.Take<std::uint8_t>();
        if (head == kLayer) {
            receiver.beginLayer(from.Take<std::size_t>());
            continue;
        }
        geometry.kind = static_cast<GeometryKind>(head & kKindBits);
        if ((head & kNewStyle) != 0) {
            geometry.style = TakeStyle(from);
        }
        label = (head & kLabel) != 0 ? TakeText(from) : std::string();
        geometry.points.resize(from.Take<std::size_t>());
        if (!geometry.points.empty()) {
            const std::size_t size = geometry.points.size() * sizeof(shr::Vec2d);
            std::memcpy(geometry.points.data(), from.Read(size).data(), size);
        }
        geometry.partSizes.clear();
        if ((head & kParts) != 0) {
            geometry.partSizes.resize(from.Take<std::size_t>());
            const std::size_t size = geometry.partSizes.size() * sizeof(std::size_t);
            std::memcpy(geometry.partSizes.data(), from.Read(size).data(), size);
        }
        if (geometry.kind == GeometryKind::Text) {
            TakePlacement(from, geometry.placement);
        }
        receiver.take(geometry, label);
    }
}

void GeometrySpool::WriteText(std::string_view text) {
    spool_.Put(text.size());
    spool_.Write(text);
}

std::string GeometrySpool::TakeText(Spool::Reader& from) {
    return std::string(from.Read(from.Take<std::size_t>()));
}

void GeometrySpool::TakePlacement(Spool::Reader& from, TextPlacement& placement) {
    placement = {};
    placement.text = TakeText(from);
    const auto plain = from.Take<PlainPlacement>();
    placement.justify = plain.justify;
    placement.lineSpacing = plain.lineSpacing;
    if (plain.hasBox) {
        placement.box.emplace();
    }
    if (plain.hasLabelLine) {
        placement.labelLine = LabelLine{plain.hasArrow, {}};
    }
}

void GeometrySpool::WriteStyle(const Style& style) {
    spool_.Put(static_cast<std::uint8_t>((style.pen ? kPen : 0) | (style.brush ? kBrush : 0) |
                                         (style.symbol ? kSymbol : 0) | (style.font ? kFont : 0)));
    if (style.pen) {
        spool_.Put(*style.pen);
    }
    if (style.brush) {
        spool_.Put(*style.brush);
    }
    if (const auto& symbol = style.symbol) {
        spool_.Put(PlainSymbol{symbol->form, symbol->shape, symbol->color, symbol->size,
                               symbol->styleBits, symbol->rotationDegrees});
        WriteText(symbol->name);
    }
    if (const auto& font = style.font) {
        spool_.Put(PlainFont{font->styleBits, font->size, font->fore, font->back.has_value(),
                             font->back.value_or(0)});
        WriteText(font->name);
    }
}

Style GeometrySpool::TakeStyle(Spool::Reader& from) {
    Style style;
    const auto parts = from.Take<std::uint8_t>();
    if ((parts & kPen) != 0) {
        style.pen = from.Take<Pen>();
    }
    if ((parts & kBrush) != 0) {
        style.brush = from.Take<Brush>();
    }
    if ((parts & kSymbol) != 0) {
        const auto plain = from.Take<PlainSymbol>();
        style.symbol = Symbol{plain.form,     plain.shape,     plain.color,          plain.size,
                              TakeText(from), plain.styleBits, plain.rotationDegrees};
    }
    if ((parts & kFont) != 0) {
        const auto plain = from.Take<PlainFont>();
        style.font = Font{TakeText(from), plain.styleBits, plain.size, plain.fore, std::nullopt};
        if (plain.hasBack) {
            style.font->back = plain.back;
        }
    }
    return style;
}

}  // namespace app
