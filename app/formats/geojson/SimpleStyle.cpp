#include "app/formats/geojson/SimpleStyle.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

namespace app {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<std::string_view, 8> kProperties{
    "marker-color", "marker-size",    "marker-symbol", "stroke",
    "stroke-width", "stroke-opacity", "fill",          "fill-opacity"};

constexpr std::uint32_t kMarkerColor = 0x7E7E7E;
constexpr std::uint32_t kDefaultColor = 0x555555;
constexpr double kDefaultWidth = 2.0;

// Patterns by how much of what lies below they let through.
constexpr int kNothing = 1;
constexpr int kSolid = 2;
constexpr int kDiagonalLines = 5;
constexpr int kDiagonalCross = 8;
constexpr double kLeastSolid = 0.75;
constexpr double kLeastCross = 0.4;

constexpr int kCircle = 34;

struct MarkerName {
    int shape;
    std::string_view name;
};
constexpr std::array<MarkerName, 13> kMarkers{{{32, "square"},
                                               {33, "diamond"},
                                               {34, "circle"},
                                               {35, "star"},
                                               {36, "triangle"},
                                               {38, "square-stroked"},
                                               {39, "diamond-stroked"},
                                               {40, "circle-stroked"},
                                               {41, "star-stroked"},
                                               {42, "triangle-stroked"},
                                               {49, "cross"},
                                               {44, "square"},
                                               {45, "triangle"}}};

struct MarkerSize {
    std::string_view name;
    int points;
};
constexpr std::array<MarkerSize, 3> kSizes{{{"small", 8}, {"medium", 12}, {"large", 18}}};
constexpr int kSmallestMedium = 10;
constexpr int kSmallestLarge = 15;

constexpr int kMostWholePixels = 7;
constexpr double kTenthsOfAPointPerPixel = 7.5;  // 96 pixels are 72 points
constexpr double kWidestPixels = 300.0;

std::optional<double> NumberOf(const Json& properties, const char* name) {
    const auto at = properties.find(name);
    if (at == properties.end()) {
        return std::nullopt;
    }
    double number = 0.0;
    if (at->is_number()) {
        number = at->get<double>();
    } else if (at->is_string()) {
        const std::string& text = at->get_ref<const std::string&>();
        const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
        if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
            return std::nullopt;
        }
    } else {
        return std::nullopt;
    }
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// "#a1b2c3" or "#abc", with or without the sign.
std::optional<std::uint32_t> ColorOf(const Json& properties, const char* name) {
    const auto at = properties.find(name);
    if (at == properties.end() || !at->is_string()) {
        return std::nullopt;
    }
    std::string_view text = at->get_ref<const std::string&>();
    text.remove_prefix(text.starts_with('#') ? 1 : 0);
    std::uint32_t color = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), color, 16);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    if (text.size() == 3) {
        const std::uint32_t red = color >> 8U;
        const std::uint32_t green = (color >> 4U) & 0xFU;
        const std::uint32_t blue = color & 0xFU;
        return red * 0x110000U + green * 0x1100U + blue * 0x11U;
    }
    return text.size() == 6 ? std::optional(color) : std::nullopt;
}

// Whole pixels where MIF files have them, else tenths of a point.
int PenWidth(double pixels) {
    pixels = std::clamp(pixels, 0.0, kWidestPixels);
    if (pixels == std::trunc(pixels) && pixels <= kMostWholePixels) {
        return static_cast<int>(pixels);
    }
    constexpr int kFirstOfPoints = 10;
    return kFirstOfPoints +
           std::max(1, static_cast<int>(std::lround(pixels * kTenthsOfAPointPerPixel)));
}

std::optional<Pen> PenOf(const Json& properties) {
    const auto color = ColorOf(properties, "stroke");
    const auto width = NumberOf(properties, "stroke-width");
    const auto opacity = NumberOf(properties, "stroke-opacity");
    if (!color && !width && !opacity) {
        return std::nullopt;
    }
    return Pen{PenWidth(width.value_or(kDefaultWidth)),
               opacity && *opacity <= 0.0 ? kNothing : kSolid, color.value_or(kDefaultColor)};
}

std::optional<Brush> BrushOf(const Json& properties) {
    const auto color = ColorOf(properties, "fill");
    const auto opacity = NumberOf(properties, "fill-opacity");
    if (!color && !opacity) {
        return std::nullopt;
    }
    const double covered = opacity.value_or(1.0);
    Brush brush;
    brush.fore = color.value_or(kDefaultColor);
    brush.pattern = covered <= 0.0           ? kNothing
                    : covered >= kLeastSolid ? kSolid
                    : covered >= kLeastCross ? kDiagonalCross
                                             : kDiagonalLines;
    return brush;
}

// The row of a table that has the property's text for its name; null when there is none.
template <typename Row, std::size_t count>
const Row* RowOf(const Json& properties, const char* property,
                 const std::array<Row, count>& table) {
    const auto at = properties.find(property);
    if (at == properties.end() || !at->is_string()) {
        return nullptr;
    }
    const auto row = std::ranges::find(table, at->get_ref<const std::string&>(), &Row::name);
    return row != table.end() ? &*row : nullptr;
}

// Icons, which marker-symbol may name as well, are circles.
std::optional<Symbol> SymbolOf(const Json& properties) {
    const auto color = ColorOf(properties, "marker-color");
    const MarkerSize* const size = RowOf(properties, "marker-size", kSizes);
    const MarkerName* const marker = RowOf(properties, "marker-symbol", kMarkers);
    if (!color && size == nullptr && marker == nullptr) {
        return std::nullopt;
    }
    Symbol symbol;
    symbol.shape = marker != nullptr ? marker->shape : kCircle;
    symbol.color = color.value_or(kMarkerColor);
    symbol.size = size != nullptr ? size->points : symbol.size;
    return symbol;
}

void SetStyle(const Json& properties, Geometry& geometry) {
    switch (geometry.kind) {
    case GeometryKind::Points:
        geometry.style.symbol = SymbolOf(properties);
        break;
    case GeometryKind::Region:
        geometry.style.brush = BrushOf(properties);
        [[fallthrough]];
    case GeometryKind::Line:
        geometry.style.pen = PenOf(properties);
        break;
    default:
        break;
    }
}

}  // namespace

bool IsStyleProperty(std::string_view name) {
    return std::ranges::find(kProperties, name) != kProperties.end();
}

void SetStyles(const nlohmann::ordered_json& properties, Feature& feature) {
    SetStyle(properties, feature.geometry);
    for (Geometry& member : feature.members) {
        SetStyle(properties, member);
    }
}

std::string_view MarkerSizeOf(const Symbol& symbol) {
    return kSizes[symbol.size < kSmallestMedium ? 0 : symbol.size < kSmallestLarge ? 1 : 2].name;
}

std::string_view MarkerSymbolOf(const Symbol& symbol) {
    const auto row = symbol.form == Symbol::Form::Shape
                         ? std::ranges::find(kMarkers, symbol.shape, &MarkerName::shape)
                         : kMarkers.end();
    return row != kMarkers.end() ? row->name : "circle";
}

}  // namespace app
