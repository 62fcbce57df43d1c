#include "app/json/ShortestNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace app {
namespace {

constexpr int kDecimals = 9;
constexpr double kScale = 1e9;
constexpr std::uint64_t kWholeScale = 1'000'000'000;

// Between these, the number without an exponent is never the longer one when it has decimals; and
// with nine of them it has at most 15 digits, which no two doubles share. A number that is equal to
// such a decimal therefore has no shorter form.
constexpr double kLeast = 0.01;
constexpr double kMost = 1e6;

char* WriteWhole(char* out, std::uint64_t whole) {
    char digits[20];
    char* first = digits + sizeof digits;
    char* const end = first;
    do {
        *--first = static_cast<char>('0' + whole % 10);
        whole /= 10;
    } while (whole > 0);
    while (first != end) {
        *out++ = *first++;
    }
    return out;
}

// Decimals without the zeros at their end; at least one is none.
char* WriteDecimals(char* out, std::uint64_t decimals) {
    int count = kDecimals;
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

}  // namespace

char* WriteShortest(char* out, double value) {
    const double size = std::abs(value);
    if (size >= kLeast && size < kMost) {
        const auto scaled = static_cast<std::uint64_t>(size * kScale + 0.5);
        const std::uint64_t decimals = scaled % kWholeScale;
        // The division is exact to the last bit, so equality means that the decimal reads back.
        if (decimals != 0 && static_cast<double>(scaled) / kScale == size) {
            if (value < 0.0) {
                *out++ = '-';
            }
            return WriteDecimals(WriteWhole(out, scaled / kWholeScale), decimals);
        }
    }
    return std::to_chars(out, out + kShortestNumberSize, value).ptr;
}

}  // namespace app
