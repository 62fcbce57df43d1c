#include "app/feature/DrawingColors.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>

namespace app {

namespace {

constexpr shr::Color4b kTextColor{40, 44, 52};

constexpr std::array<LayerColors, 8> kLayerColors{{
    // blue, vermilion, green, purple, amber, teal, rose, slate
    {{38, 102, 153}, {158, 202, 233, 200}, {38, 102, 153}, kTextColor},
    {{186, 64, 32}, {247, 196, 171, 190}, {214, 73, 37}, kTextColor},
    {{52, 122, 62}, {180, 220, 170, 190}, {52, 140, 70}, kTextColor},
    {{104, 70, 150}, {208, 190, 232, 190}, {120, 80, 170}, kTextColor},
    {{158, 110, 10}, {250, 224, 148, 190}, {214, 150, 10}, kTextColor},
    {{12, 122, 122}, {160, 220, 214, 190}, {12, 140, 136}, kTextColor},
    {{164, 50, 104}, {244, 190, 214, 190}, {190, 60, 120}, kTextColor},
    {{76, 86, 100}, {204, 210, 220, 190}, {76, 86, 100}, kTextColor},
}};

struct NamedColor {
    std::string_view name;
    shr::Color4b color;
};

constexpr NamedColor kNamedColors[] = {
    {"none", {255, 255, 255, 0}}, {"transparent", {255, 255, 255, 0}},
    {"black", {0, 0, 0}},         {"silver", {192, 192, 192}},
    {"gray", {128, 128, 128}},    {"white", {255, 255, 255}},
    {"maroon", {128, 0, 0}},      {"red", {255, 0, 0}},
    {"purple", {128, 0, 128}},    {"fuchsia", {255, 0, 255}},
    {"green", {0, 128, 0}},       {"lime", {0, 255, 0}},
    {"olive", {128, 128, 0}},     {"yellow", {255, 255, 0}},
    {"navy", {0, 0, 128}},        {"blue", {0, 0, 255}},
    {"teal", {0, 128, 128}},      {"aqua", {0, 255, 255}},
    {"orange", {255, 165, 0}},
};

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::optional<shr::Color4b> ParseHexDigits(std::string_view digits) {
    std::string full(digits);
    if (digits.size() == 3) {
        full = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
    }
    if (full.size() == 6) {
        full += "ff";
    }
    std::uint32_t value = 0;
    const char* const end = full.data() + full.size();
    const auto result = std::from_chars(full.data(), end, value, 16);
    if (full.size() != 8 || result.ec != std::errc{} || result.ptr != end) {
        return std::nullopt;
    }
    return shr::Color4b(static_cast<std::uint8_t>(value >> 24),
                        static_cast<std::uint8_t>(value >> 16),
                        static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value));
}

}  // namespace

const LayerColors& ColorsOfLayer(std::size_t layer) {
    return kLayerColors[layer % kLayerColors.size()];
}

std::optional<shr::Color4b> ParseColor(std::string_view text) {
    if (text.starts_with('#')) {
        return ParseHexDigits(text.substr(1));
    }
    std::string name(text);
    std::transform(name.begin(), name.end(), name.begin(), LowerAscii);
    for (const NamedColor& row : kNamedColors) {
        if (row.name == name) {
            return row.color;
        }
    }
    return std::nullopt;
}

}  // namespace app
