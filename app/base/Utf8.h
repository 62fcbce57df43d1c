// UTF-8, character by character.
#pragma once

#include <string>
#include <string_view>

namespace app {

// Takes the first character away and returns its code point. A byte that begins no character is one
// by itself, U+FFFD. `utf8` must not be empty.
char32_t TakeCodePoint(std::string_view& utf8);

bool IsAscii(std::string_view bytes);

// Well-formed by the Unicode standard: no overlong forms, no surrogates.
bool IsUtf8(std::string_view bytes);

// The characters with capital letters made small, to compare names without regard to case: those of
// the Latin, Greek and Cyrillic alphabets up to U+045F.
std::u32string FoldedCase(std::string_view utf8);

// Text of the host's code page 0 as UTF-8.
std::string Utf8FromNarrow(std::string narrow);

}  // namespace app
