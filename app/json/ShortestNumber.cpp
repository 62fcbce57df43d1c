#include "app/json/ShortestNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace app {
namespace {

// So many decimals leave numbers below `most` 15 digits at most, which no two doubles share. A
// number that is equal to such a decimal therefore has no shorter digits.
struct Decimals {
    int count;
    double scale;
    std::uint64_t wholeScale;
    double most;
};
constexpr Decimals kNineDecimals{9, 1e9, 1'000'000'000, 1e6};
constexpr Decimals kSixDecimals{6, 1e6, 1'000'000, 1e9};

// From here on, the number without an exponent is never the longer one when it has decimals.
constexpr double kLeast = 0.01;

// Without an exponent whatever the length.
constexpr double kLeastPlain = 1e-6;
constexpr double kMostPlain = 1e15;

char* WriteWhole(char* out, std::uint64_t whole) {
    constexpr int kMostDigits = 20;
    return std::to_chars(out, out + kMostDigits, whole).ptr;
}

// Decimals without the zeros at their end; at least one of them is not 0.
char* WriteDecimals(char* out, std::uint64_t decimals, int count) {
    if (decimals % 1000 == 0) {
        decimals /= 1000;
        count -= 3;
    }
    while (decimals % 10 == 0) {
        decimals /= 10;
        --count;
    }
    *out++ = '.';
    for (int i = count; i-- > 0;) {
        out[i] = static_cast<char>('0' + decimals % 10);
        decimals /= 10;
    }
    return out + count;
}

// Writes a number that equals one with so many decimals, not all of them 0; null for others. What
// is divided by is known to the compiler: the divisions would take most of the time otherwise.
template <Decimals decimals> char* WriteExactly(char* out, double value) {
    const double size = std::abs(value);
    const auto scaled = static_cast<std::uint64_t>(size * decimals.scale + 0.5);
    const std::uint64_t fraction = scaled % decimals.wholeScale;
    // The division is exact to the last bit, so equality means that the decimal reads back.
    if (fraction == 0 || static_cast<double>(scaled) / decimals.scale != size) {
        return nullptr;
    }
    if (value < 0.0) {
        *out++ = '-';
    }
    return WriteDecimals(WriteWhole(out, scaled / decimals.wholeScale), fraction, decimals.count);
}

}  // namespace

char* WriteShortest(char* out, double value) {
    const double size = std::abs(value);
    if (size >= kLeast && size < kNineDecimals.most) {
        if (char* const end = WriteExactly<kNineDecimals>(out, value)) {
            return end;
        }
    }
    return std::to_chars(out, out + kShortestNumberSize, value).ptr;
}

char* WritePlain(char* out, double value) {
    const double size = std::abs(value);
    if (value != 0.0 && !(size >= kLeastPlain && size < kMostPlain)) {
        return WriteShortest(out, value);
    }
    if (size == std::trunc(size)) {
        if (std::signbit(value)) {
            *out++ = '-';
        }
        return WriteWhole(out, static_cast<std::uint64_t>(size));
    }
    if (size < kSixDecimals.most) {
        char* const end = size < kNineDecimals.most ? WriteExactly<kNineDecimals>(out, value)
                                                    : WriteExactly<kSixDecimals>(out, value);
        if (end != nullptr) {
            return end;
        }
    }
    return std::to_chars(out, out + kShortestNumberSize, value, std::chars_format::fixed).ptr;
}

std::string PlainText(double value) {
    std::array<char, kShortestNumberSize> text{};
    return {text.data(), WritePlain(text.data(), value)};
}

}  // namespace app
