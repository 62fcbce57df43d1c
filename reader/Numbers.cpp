// For the module, quirk for quirk: reading like atof and atoi, writing like printf.
#include "reader/Numbers.h"

#include "host/shr/Text.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cfloat>
#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace mif {

namespace {

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

// White space of the C locale.
bool IsSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

char ToLower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

char ToUpper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

bool IsHexDigit(char character) {
    const char lower = ToLower(character);
    return IsDigit(character) || (lower >= 'a' && lower <= 'f');
}

bool StartsWith(std::string_view text, std::string_view lowerCasePrefix) {
    if (text.size() < lowerCasePrefix.size()) {
        return false;
    }
    for (std::size_t index = 0; index < lowerCasePrefix.size(); ++index) {
        if (ToLower(text[index]) != lowerCasePrefix[index]) {
            return false;
        }
    }
    return true;
}

// True for a digit, or a full stop and a digit.
bool StartsWithDecimal(std::string_view text) {
    const std::size_t digit = !text.empty() && text.front() == '.' ? 1 : 0;
    return text.size() > digit && IsDigit(text[digit]);
}

bool StartsWithHexadecimal(std::string_view text) {
    if (!StartsWith(text, "0x")) {
        return false;
    }
    const std::size_t digit = text.size() > 2 && text[2] == '.' ? 3 : 2;
    return text.size() > digit && IsHexDigit(text[digit]);
}

// Cuts leading white space and one sign off the text. True for a minus.
bool TakeSign(std::string_view& text) {
    while (!text.empty() && IsSpace(text.front())) {
        text.remove_prefix(1);
    }
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    return isNegative;
}

// The exponent that the text begins with (behind its letter), clamped; 0 when there is none.
long long ReadExponent(std::string_view text) {
    constexpr long long kClamp = 1'000'000'000'000'000;
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    long long exponent = 0;
    for (const char character : text) {
        if (!IsDigit(character)) {
            break;
        }
        exponent = std::min(kClamp, exponent * 10 + (character - '0'));
    }
    return isNegative ? -exponent : exponent;
}

// What a number that no double can hold becomes: whether it is too large or too small shows in the
// place of its first digit other than 0.
double OutOfRangeValue(std::string_view text, std::chars_format format) {
    const bool isHexadecimal = format == std::chars_format::hex;
    long long place = 0;  // of the first such digit: 1 for units, 0 for the first behind the point
    bool isPastPoint = false;
    bool isPastFirst = false;
    std::size_t index = 0;
    for (; index < text.size(); ++index) {
        if (text[index] == '.' && !isPastPoint) {
            isPastPoint = true;
        } else if (isHexadecimal ? IsHexDigit(text[index]) : IsDigit(text[index])) {
            isPastFirst = isPastFirst || text[index] != '0';
            place += isPastPoint ? (isPastFirst ? 0 : -1) : (isPastFirst ? 1 : 0);
        } else {
            break;
        }
    }
    place *= isHexadecimal ? 4 : 1;  // the exponent of a hexadecimal number is one of two
    if (index < text.size() && ToLower(text[index]) == (isHexadecimal ? 'p' : 'e')) {
        place += ReadExponent(text.substr(index + 1));
    }
    return place > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

// The text up to a second sign in its exponent, which makes it none ("0x1p+-8"): from_chars of some
// libraries accepts it in hexadecimal numbers.
std::string_view WithoutDoubleSign(std::string_view text) {
    const std::size_t letter = text.find_first_of("pP");
    if (letter == std::string_view::npos || letter + 2 >= text.size()) {
        return text;
    }
    const auto isSign = [](char character) { return character == '+' || character == '-'; };
    return isSign(text[letter + 1]) && isSign(text[letter + 2]) ? text.substr(0, letter) : text;
}

// Reads digits, without a sign and without "0x".
double ReadDigits(std::string_view text, std::chars_format format) {
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, format);
    if (result.ec == std::errc::result_out_of_range) {
        return OutOfRangeValue(text, format);
    }
    return result.ec == std::errc() ? value : 0.0;
}

// Reads a plain decimal ("-123.456789") of at most 15 digits. They make an integer that a double
// holds exactly, and one division by an exact power of ten is rounded right: the same number as by
// the general way, in a third of the time. False, and value unchanged, for everything else.
bool ReadPlainDecimal(std::string_view text, double& value) {
    constexpr std::size_t kMostDigits = 15;  // 10^15 < 2^53
    static constexpr std::array kPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool isNegative = !text.empty() && text.front() == '-';
    const char* place = text.data() + (isNegative ? 1 : 0);
    const char* const end = text.data() + text.size();
    if (static_cast<std::size_t>(end - place) > kMostDigits) {
        return false;
    }
    const char* const begin = place;
    std::uint64_t digits = 0;
    for (; place != end && IsDigit(*place); ++place) {
        digits = digits * 10 + static_cast<unsigned char>(*place - '0');
    }
    if (place == begin) {
        return false;
    }
    std::size_t decimals = 0;
    if (place != end && *place == '.') {
        const char* const point = place++;
        for (; place != end && IsDigit(*place); ++place) {
            digits = digits * 10 + static_cast<unsigned char>(*place - '0');
        }
        decimals = static_cast<std::size_t>(place - point - 1);
    }
    if (place != end) {
        return false;
    }
    const double magnitude = static_cast<double>(digits) / kPowers[decimals];
    value = isNegative ? -magnitude : magnitude;
    return true;
}

// Every form that from_chars reads differently from atof, or not at all.
double ReadUnusualDouble(std::string_view text) {
    const bool isNegative = TakeSign(text);
    double value = 0.0;
    if (StartsWith(text, "inf")) {
        value = std::numeric_limits<double>::infinity();
    } else if (StartsWith(text, "nan")) {
        value = std::numeric_limits<double>::quiet_NaN();
    } else if (StartsWithHexadecimal(text)) {
        value = ReadDigits(WithoutDoubleSign(text.substr(2)), std::chars_format::hex);
    } else if (StartsWithDecimal(text)) {
        value = ReadDigits(text, std::chars_format::general);
    } else {
        return 0.0;  // no number: not even a minus counts
    }
    return isNegative ? -value : value;
}

void AppendFormatted(std::string& text, double value, const char* format) {
    text += shr::ToString(value, format);
}

}  // namespace

double ReadDouble(std::string_view text) {
    static_assert(FLT_EVAL_METHOD == 0, "ReadPlainDecimal needs doubles that are rounded once");
    double plain = 0.0;
    if (ReadPlainDecimal(text, plain)) {
        return plain;
    }
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const char* const digits = begin != end && *begin == '-' ? begin + 1 : begin;
    if (digits == end || !IsDigit(*digits)) {
        return ReadUnusualDouble(text);
    }
    double value = 0.0;
    const auto result = std::from_chars(begin, end, value, std::chars_format::general);
    const bool mayBeHexadecimal = result.ptr != end && ToLower(*result.ptr) == 'x';
    if (result.ec != std::errc() || mayBeHexadecimal) {
        return ReadUnusualDouble(text);
    }
    return value;
}

int ReadInt(std::string_view text) {
    const bool isNegative = TakeSign(text);
    constexpr long long kLargest = std::numeric_limits<int>::max();
    const long long limit = isNegative ? kLargest + 1 : kLargest;
    long long value = 0;
    for (const char character : text) {
        if (!IsDigit(character)) {
            break;
        }
        value = std::min(limit, value * 10 + (character - '0'));
    }
    return static_cast<int>(isNegative ? -value : value);
}

char* WriteDouble18G(char* out, double value) {
    constexpr int kSignificantDigits = 18;
    const auto result = std::to_chars(out, out + kDouble18GSize, value, std::chars_format::general,
                                      kSignificantDigits);
    assert(result.ec == std::errc());
    // Letters stand only at the end: an exponent of at most five characters, or "-inf", "nan".
    constexpr std::ptrdiff_t kLongestWord = 5;
    for (char* place = std::max(out, result.ptr - kLongestWord); place != result.ptr; ++place) {
        *place = ToUpper(*place);
    }
    return result.ptr;
}

void AppendDouble18G(std::string& text, double value) {
    char buffer[kDouble18GSize];
    text.append(buffer, WriteDouble18G(buffer, value));
}

void AppendDouble16g(std::string& text, double value) {
    AppendFormatted(text, value, "%.16g");
}

void AppendDouble16G(std::string& text, double value) {
    AppendFormatted(text, value, "%.16G");
}

void AppendDouble20f(std::string& text, double value) {
    AppendFormatted(text, value, "%20.10f");
}

}  // namespace mif
