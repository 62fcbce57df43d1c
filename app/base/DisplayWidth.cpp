#include "app/base/DisplayWidth.h"

#include "app/base/Utf8.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr std::array kWide = {
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0xA4CF},
    Range{0xA960, 0xA97C},   Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},
    Range{0xFE30, 0xFE6F},   Range{0xFF01, 0xFF60},   Range{0xFFE0, 0xFFE6},
    Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF}, Range{0x1F900, 0x1F9FF},
    Range{0x20000, 0x3FFFD},
};

constexpr std::array kWithoutWidth = {
    Range{0x0300, 0x036F}, Range{0x0483, 0x0489}, Range{0x0591, 0x05BD}, Range{0x0610, 0x061A},
    Range{0x064B, 0x065F}, Range{0x0900, 0x0902}, Range{0x093C, 0x093C}, Range{0x0941, 0x0948},
    Range{0x094D, 0x094D}, Range{0x0E31, 0x0E31}, Range{0x0E34, 0x0E3A}, Range{0x0E47, 0x0E4E},
    Range{0x1AB0, 0x1AFF}, Range{0x1DC0, 0x1DFF}, Range{0x200B, 0x200F}, Range{0x20D0, 0x20FF},
    Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F}, Range{0xFEFF, 0xFEFF},
};

template <std::size_t size> bool Holds(const std::array<Range, size>& ranges, char32_t codePoint) {
    return std::ranges::any_of(ranges, [codePoint](const Range& range) {
        return codePoint >= range.first && codePoint <= range.last;
    });
}

}  // namespace

std::size_t DisplayWidth(std::string_view utf8) {
    std::size_t width = 0;
    while (!utf8.empty()) {
        const char32_t codePoint = TakeCodePoint(utf8);
        width += Holds(kWithoutWidth, codePoint) ? 0 : Holds(kWide, codePoint) ? 2 : 1;
    }
    return width;
}

}  // namespace app
