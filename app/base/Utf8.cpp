#include "app/base/Utf8.h"

#include "host/shr/Text.h"
#include "standalone/Text.h"

#include <cstddef>
#include <utility>

namespace app {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Returns the length of a character in bytes, by its first byte; 0 when the byte begins no
// character.
std::size_t LengthOf(unsigned char first) {
    if (first < 0x80) {
        return 1;
    }
    if (first < 0xC2 || first > 0xF4) {
        return 0;
    }
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

// Whether the character has a shorter encoding, is a surrogate, or lies beyond the last character.
bool IsForbidden(char32_t codePoint, std::size_t length) {
    return (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000) ||
           (codePoint >= 0xD800 && codePoint <= 0xDFFF) || codePoint > 0x10FFFF;
}

char32_t Small(char32_t letter) {
    const auto isFrom = [letter](char32_t first, char32_t last) {
        return letter >= first && letter <= last;
    };
    if (isFrom('A', 'Z') || (isFrom(0xC0, 0xDE) && letter != 0xD7) || isFrom(0x391, 0x3A9) ||
        isFrom(0x410, 0x42F)) {
        return letter + 0x20;
    }
    if (isFrom(0x400, 0x40F)) {
        return letter + 0x50;
    }
    // Here small letters follow their capitals, from an even code point or from an odd one.
    if (isFrom(0x100, 0x12F) || isFrom(0x132, 0x137) || isFrom(0x14A, 0x177)) {
        return letter | 1U;
    }
    if (isFrom(0x139, 0x148) || isFrom(0x179, 0x17E)) {
        return letter + (letter & 1U);
    }
    return letter;
}

}  // namespace

char32_t TakeCodePoint(std::string_view& utf8) {
    const auto first = static_cast<unsigned char>(utf8.front());
    const std::size_t length = LengthOf(first);
    char32_t codePoint = length == 1 ? first : first & (0x7FU >> length);
    bool isValid = length != 0 && length <= utf8.size();
    for (std::size_t i = 1; isValid && i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        isValid = (next & 0xC0U) == 0x80U;
        codePoint = codePoint << 6U | (next & 0x3FU);
    }
    if (!isValid || IsForbidden(codePoint, length)) {
        utf8.remove_prefix(1);
        return kReplacement;
    }
    utf8.remove_prefix(length);
    return codePoint;
}

bool IsAscii(std::string_view bytes) {
    unsigned char all = 0;
    for (const char byte : bytes) {
        all |= static_cast<unsigned char>(byte);
    }
    return all < 0x80;
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t before = bytes.size();
        if (TakeCodePoint(bytes) == kReplacement && before - bytes.size() == 1) {
            return false;
        }
    }
    return true;
}

std::u32string FoldedCase(std::string_view utf8) {
    std::u32string folded;
    while (!utf8.empty()) {
        folded += Small(TakeCodePoint(utf8));
    }
    return folded;
}

std::string Utf8FromNarrow(std::string narrow) {
    return IsAscii(narrow) ? std::move(narrow) : standalone::Narrow(shr::AtoW(narrow));
}

}  // namespace app
