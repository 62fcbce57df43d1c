// UTF-8, character by character.
#pragma once

#include <algorithm>
#include <string_view>

namespace app {

// Takes the first character away and returns its code point. A byte that begins no character is one
// by itself, U+FFFD. `utf8` must not be empty.
char32_t TakeCodePoint(std::string_view& utf8);

inline bool IsAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace app
