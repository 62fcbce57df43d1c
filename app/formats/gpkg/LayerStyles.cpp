#include "app/formats/gpkg/LayerStyles.h"

#include <algorithm>

namespace app {
namespace {

std::optional<StyledKind> KindOf(const Geometry& geometry) {
    switch (geometry.kind) {
    case GeometryKind::Points:
        return StyledKind::Point;
    case GeometryKind::Line:
    case GeometryKind::Arc:
        return StyledKind::Line;
    case GeometryKind::Text:
        return StyledKind::Text;
    case GeometryKind::Region:
    case GeometryKind::Rectangle:
    case GeometryKind::Ellipse:
        return StyledKind::Area;
    case GeometryKind::None:
    case GeometryKind::Collection:
        break;
    }
    return std::nullopt;
}

// What is seen of a style in an object of the kind.
Style SeenPart(const Style& style, StyledKind kind) {
    Style seen;
    switch (kind) {
    case StyledKind::Point:
        seen.symbol = style.symbol;
        seen.pen = style.symbol ? std::nullopt : style.pen;
        break;
    case StyledKind::Area:
        seen.brush = style.brush;
        [[fallthrough]];
    case StyledKind::Line:
        seen.pen = style.pen;
        break;
    case StyledKind::Text:
        seen.font = style.font;
        break;
    }
    return seen;
}

// Different for different styles.
std::string Key(const Style& style, StyledKind kind) {
    std::string key = std::to_string(static_cast<int>(kind));
    const auto add = [&key](auto... numbers) { ((key += ' ' + std::to_string(numbers)), ...); };
    if (style.pen) {
        key += 'p';
        add(style.pen->width, style.pen->pattern, style.pen->color);
    }
    if (style.brush) {
        key += 'b';
        add(style.brush->pattern, style.brush->fore, style.brush->back.has_value(),
            style.brush->back.value_or(0));
    }
    if (style.symbol) {
        key += 's';
        add(static_cast<int>(style.symbol->form), style.symbol->shape, style.symbol->color,
            style.symbol->size, style.symbol->styleBits, style.symbol->rotationDegrees);
        key += style.symbol->name;
    }
    if (style.font) {
        key += 'f';
        add(style.font->styleBits, style.font->fore, style.font->back.has_value(),
            style.font->back.value_or(0));
        key += style.font->name;
    }
    return key;
}

}  // namespace

std::optional<std::int64_t> LayerStyles::NumberOf(const Feature& feature) {
    const Geometry& geometry = feature.members.empty() ? feature.geometry : feature.members.front();
    const std::optional<StyledKind> kind = KindOf(geometry);
    if (!kind) {
        return std::nullopt;
    }
    Style style = SeenPart(geometry.style, *kind);
    const std::string key = Key(style, *kind);
    if (const auto known = numbers_.find(key); known != numbers_.end()) {
        return known->second;
    }
    const auto first = std::ranges::find(styles_, *kind, &NumberedStyle::kind);
    if (styles_.size() >= kMostStyles && first != styles_.end()) {
        ++replaced_;
        return first - styles_.begin() + 1;
    }
    styles_.push_back({*kind, std::move(style)});
    const auto number = static_cast<std::int64_t>(styles_.size());
    numbers_.emplace(key, number);
    return number;
}

}  // namespace app
