#include "app/formats/gpkg/StyleNumbers.h"

#include "app/feature/LabelText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace app {

std::string NumberText(double number) {
    std::array<char, 64> digits{};
    const double rounded = std::round(number * 1e4) / 1e4;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   rounded == 0.0 ? 0.0 : rounded, std::chars_format::general, 10);
    return {digits.data(), end.ptr};
}

std::string PointsText(double pixels) {
    return NumberText(pixels / kPixelsPerInch * 72.0);
}

std::string HexText(const shr::Color4b& color) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const std::uint8_t part : {color.red, color.green, color.blue}) {
        text += kDigits[part / 16];
        text += kDigits[part % 16];
    }
    return text;
}

StyleResolver ResolverFor(std::size_t layer) {
    StyleResolver resolver(StyleSource::Objects,
                           [](const std::string&, int code) { return CleanCharacter(code); });
    resolver.BeginLayer(layer);
    return resolver;
}

std::string DashText(const Stroke& stroke, char separator) {
    std::string text;
    for (const double dash : stroke.dashes) {
        if (!text.empty()) {
            text += separator;
        }
        text += PointsText(dash * std::max(stroke.width, kThinnestDashUnit));
    }
    return text;
}

}  // namespace app
