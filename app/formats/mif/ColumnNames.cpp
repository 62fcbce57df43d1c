#include "app/formats/mif/ColumnNames.h"

#include "app/base/Utf8.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <string_view>

namespace app {
namespace {

constexpr std::size_t kMostCharacters = 31;

struct Range {
    char32_t first;
    char32_t last;
};
// What is not a letter from 0x80 on: controls, punctuation, signs, symbols, private characters.
constexpr std::array<Range, 20> kNoLetters{{
    {0x80, 0xA9},     {0xAB, 0xB4},     {0xB6, 0xB9},     {0xBB, 0xBF},       {0xD7, 0xD7},
    {0xF7, 0xF7},     {0x2000, 0x2BFF}, {0x2E00, 0x2E7F}, {0x3000, 0x3004},   {0x3008, 0x3020},
    {0x3030, 0x3030}, {0xD800, 0xF8FF}, {0xFE10, 0xFE6F}, {0xFF00, 0xFF0F},   {0xFF1A, 0xFF20},
    {0xFF3B, 0xFF40}, {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF}, {0x1F000, 0x1FAFF}, {0xE0000, 0x10FFFF},
}};

bool IsAsciiDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

bool IsAllowed(char32_t c, CharsetEncoder& encoder) {
    if (c < 0x80) {
        return IsAsciiDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    }
    return encoder.Holds(c) && std::ranges::none_of(kNoLetters, [c](const Range& range) {
               return c >= range.first && c <= range.last;
           });
}

std::string CleanName(std::string_view wanted, CharsetEncoder& encoder) {
    std::string name;
    if (!wanted.empty() && IsAsciiDigit(static_cast<unsigned char>(wanted.front()))) {
        name += '_';
    }
    while (!wanted.empty()) {
        const std::string_view before = wanted;
        const char32_t c = TakeCodePoint(wanted);
        if (IsAllowed(c, encoder)) {
            name += before.substr(0, before.size() - wanted.size());
        } else {
            name += '_';
        }
    }
    return name;
}

// The first characters of a name.
std::string_view Beginning(std::string_view name, std::size_t characters) {
    std::string_view rest = name;
    for (; characters > 0 && !rest.empty(); --characters) {
        TakeCodePoint(rest);
    }
    return name.substr(0, name.size() - rest.size());
}

std::string Lower(std::string_view name) {
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(), AsciiLower);
    return lower;
}

// The beginning of the name, with a number where it is taken.
std::string UniqueName(const std::string& name, std::set<std::string>& taken) {
    std::string unique(Beginning(name, kMostCharacters));
    for (int number = 2; !taken.insert(Lower(unique)).second; ++number) {
        const std::string suffix = "_" + std::to_string(number);
        unique = std::string(Beginning(name, kMostCharacters - suffix.size())) + suffix;
    }
    return unique;
}

}  // namespace

std::vector<std::string> ColumnNamesFor(std::span<const LayerColumn> columns,
                                        CharsetEncoder& encoder) {
    std::vector<std::string> names(columns.size());
    std::set<std::string> taken;  // in lower case
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string name = CleanName(columns[i].name, encoder);
        const bool isKept = name == columns[i].name && Beginning(name, kMostCharacters) == name;
        if (isKept && taken.insert(Lower(name)).second) {
            names[i] = name;
        }
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (names[i].empty()) {
            names[i] = UniqueName(columns[i].name.empty() ? "column_" + std::to_string(i + 1)
                                                          : CleanName(columns[i].name, encoder),
                                  taken);
        }
    }
    return names;
}

}  // namespace app
