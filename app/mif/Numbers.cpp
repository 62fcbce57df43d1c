#include "app/mif/Numbers.h"

#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace app {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsSign(char c) {
    return c == '-' || c == '+';
}

std::size_t SkipSign(std::string_view text) {
    return !text.empty() && IsSign(text[0]) ? 1 : 0;
}

std::size_t SkipDigits(std::string_view text, std::size_t pos) {
    while (pos < text.size() && IsDigit(text[pos])) {
        ++pos;
    }
    return pos;
}

// Takes leading white space and one sign away. True for a minus.
bool TakeSign(std::string_view& text) {
    const std::size_t first = text.find_first_not_of(" \t\n\v\f\r");
    text.remove_prefix(std::min(first, text.size()));
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(SkipSign(text));
    return isNegative;
}

bool IsHexadecimal(std::string_view text) {
    if (text.size() < 3 || text[0] != '0' || AsciiLower(text[1]) != 'x') {
        return false;
    }
    const std::size_t digit = text[2] == '.' ? 3 : 2;
    return digit < text.size() && IsHexDigit(text[digit]);
}

// What a number becomes that no double can hold: the place of its first digit other than 0 tells
// whether it is too large or too small.
double OutOfRange(std::string_view text, bool isHex) {
    std::int64_t place = 0;  // 1 for units, 0 for the first digit behind the point
    bool isPastPoint = false;
    bool isPastFirst = false;
    std::size_t i = 0;
    for (; i < text.size() && (text[i] == '.' || (isHex ? IsHexDigit : IsDigit)(text[i])); ++i) {
        if (text[i] == '.') {
            isPastPoint = true;
            continue;
        }
        isPastFirst = isPastFirst || text[i] != '0';
        place += isPastPoint ? (isPastFirst ? 0 : -1) : (isPastFirst ? 1 : 0);
    }
    place *= isHex ? 4 : 1;  // the exponent of a hexadecimal number is one of two
    if (i < text.size() && AsciiLower(text[i]) == (isHex ? 'p' : 'e')) {
        constexpr std::int64_t kClamp = 1'000'000'000'000'000;
        place += std::clamp(ReadInteger(text.substr(i + 1)), -kClamp, kClamp);
    }
    return place > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

// Up to a second sign in the exponent, which ends the number there ("0x1p+-8"): not all libraries
// see that.
std::string_view UpToDoubleSign(std::string_view text) {
    const std::size_t letter = text.find_first_of("pP");
    const bool isDouble = letter != std::string_view::npos && letter + 2 < text.size() &&
                          IsSign(text[letter + 1]) && IsSign(text[letter + 2]);
    return isDouble ? text.substr(0, letter) : text;
}

}  // namespace

double ReadDouble(std::string_view text) {
    const bool isNegative = TakeSign(text);
    if (SkipSign(text) != 0) {
        return 0.0;  // two signs
    }
    const bool isHex = IsHexadecimal(text);
    const std::string_view digits = isHex ? UpToDoubleSign(text.substr(2)) : text;
    double number = 0.0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number,
                        isHex ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::invalid_argument) {
        return 0.0;  // no number: not even a minus counts
    }
    if (error == std::errc::result_out_of_range) {
        number = OutOfRange(digits, isHex);
    }
    return isNegative ? -number : number;
}

std::int64_t ReadInteger(std::string_view text) {
    const bool isNegative = TakeSign(text);
    if (SkipSign(text) != 0) {
        return 0;
    }
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();
    const std::uint64_t limit = kLargest + (isNegative ? 1 : 0);
    if (error == std::errc::result_out_of_range || number > limit) {
        number = limit;
    }
    return static_cast<std::int64_t>(isNegative ? 0 - number : number);
}

int ReadInt(std::string_view text) {
    return static_cast<int>(std::clamp<std::int64_t>(
        ReadInteger(text), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

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

bool HasDecimalComma(std::string_view text) {
    const std::size_t comma = text.find(',');
    return comma != std::string_view::npos && IsWholeNumber(text.substr(0, comma)) &&
           IsDecimalNumber(text.substr(comma + 1)) && IsDigits(text.substr(comma + 1, 1)) &&
           text.find('.') == std::string_view::npos;
}

std::string NumberAsText(double number) {
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number);
    return std::string(text.data(), error == std::errc{} ? end : text.data());
}

}  // namespace app
