#include "app/page/PageText.h"

#include "app/feature/LabelText.h"
#include "app/json/JsonText.h"
#include "app/json/ShortestNumber.h"

#include <array>
#include <cmath>

namespace app {

std::string HtmlText(std::string_view utf8) {
    std::string text;
    for (const char c : CleanName(utf8)) {
        switch (c) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        case '"':
            text += "&quot;";
            break;
        case '\'':
            text += "&#39;";
            break;
        default:
            text += c;
        }
    }
    return text;
}

// In JSON the three occur in strings alone, where the escape is the same character.
void AppendPageString(std::string& out, std::string_view utf8) {
    const std::size_t begin = out.size();
    AppendJsonString(out, ShortenedName(utf8));
    if (out.find_first_of("<>&", begin) == std::string::npos) {
        return;
    }
    std::string safe;
    for (const char c : std::string_view(out).substr(begin)) {
        switch (c) {
        case '<':
            safe += "\\u003c";
            break;
        case '>':
            safe += "\\u003e";
            break;
        case '&':
            safe += "\\u0026";
            break;
        default:
            safe += c;
        }
    }
    out.replace(begin, std::string::npos, safe);
}

void AppendColor(std::string& out, const shr::Color4b& color) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    out += "\"#";
    for (const unsigned part : {color.red, color.green, color.blue, color.alpha}) {
        out += kDigits[part / 16];
        out += kDigits[part % 16];
    }
    out += '"';
}

void AppendRounded(std::string& out, double value, int decimals) {
    const double steps = std::pow(10.0, decimals);
    const double scaled = value * steps;
    // Beyond that a number has no such decimals.
    constexpr double kExact = 9e15;
    double rounded = std::abs(scaled) < kExact ? std::round(scaled) / steps : value;
    if (rounded == 0.0) {
        rounded = 0.0;  // never "-0"
    }
    std::array<char, kShortestNumberSize> digits{};
    out.append(digits.data(), WritePlain(digits.data(), rounded));
}

}  // namespace app
