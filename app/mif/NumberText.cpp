#include "app/mif/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace app::check {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::size_t SkipSign(std::string_view text) {
    return !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
}

std::size_t SkipDigits(std::string_view text, std::size_t pos) {
    while (pos < text.size() && IsDigit(text[pos])) {
        ++pos;
    }
    return pos;
}

}  // namespace

bool IsDigits(std::string_view text) {
    return !text.empty() && SkipDigits(text, 0) == text.size();
}

bool IsWholeNumber(std::string_view text) {
    return IsDigits(text.substr(SkipSign(text)));
}

bool IsDecimalNumber(std::string_view text) {
    const std::size_t first = SkipSign(text);
    std::size_t pos = SkipDigits(text, first);
    std::size_t digits = pos - first;
    if (pos < text.size() && text[pos] == '.') {
        const std::size_t fraction = pos + 1;
        pos = SkipDigits(text, fraction);
        digits += pos - fraction;
    }
    if (digits == 0) {
        return false;
    }
    if (pos == text.size()) {
        return true;
    }
    return (text[pos] == 'e' || text[pos] == 'E') && IsWholeNumber(text.substr(pos + 1));
}

double ReaderDouble(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    std::string_view digits = text.substr(SkipSign(text));
    if (digits.starts_with('-')) {
        return 0.0;
    }
    auto format = std::chars_format::general;
    if (digits.size() > 2 && digits[0] == '0' && Lower(digits[1]) == 'x') {
        digits.remove_prefix(2);
        format = std::chars_format::hex;
    }
    double number = 0.0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number, format);
    if (error == std::errc::result_out_of_range) {
        const bool isTiny = digits.find("e-") != std::string_view::npos ||
                            digits.find("E-") != std::string_view::npos;
        number = isTiny ? 0.0 : std::numeric_limits<double>::infinity();
    } else if (error != std::errc{}) {
        number = 0.0;
    }
    return isNegative ? -number : number;
}

std::int64_t ReaderInteger(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    std::int64_t number = 0;
    const std::string_view digits = text.substr(SkipSign(text));
    if (digits.starts_with('-')) {
        return 0;
    }
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::result_out_of_range) {
        number = std::numeric_limits<std::int64_t>::max();
    }
    return isNegative ? -number : number;
}

std::string NumberAsText(double number) {
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number);
    return std::string(text.data(), error == std::errc{} ? end : text.data());
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, [](char a, char b) { return Lower(a) == Lower(b); });
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t kMaxBytes = 40;
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string quoted = "'";
    for (const char c : text.substr(0, kMaxBytes)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || byte == 127) {
            quoted += "\\x";
            quoted += kHex[byte / 16U];
            quoted += kHex[byte % 16U];
        } else {
            quoted += c;
        }
    }
    return quoted + (text.size() > kMaxBytes ? "…'" : "'");
}

}  // namespace app::check
