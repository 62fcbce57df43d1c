// UTF-8, code point by code point. Not for programs outside this tree.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

constexpr char32_t kReplacementCharacter = 0xFFFD;

// The code point at position, which moves past it. Empty, and position unchanged, when no valid
// sequence begins there. position must be below text.size().
std::optional<char32_t> DecodeUtf8(std::string_view text, std::size_t& position);

// Appends a code point below 0x110000, surrogates included, by the general rule of UTF-8.
void AppendUtf8(std::string& text, char32_t codePoint);

// The code point at position of wide text, which moves past it. A surrogate pair is one code
// point; a lone surrogate is given as it is.
char32_t DecodeWide(std::wstring_view text, std::size_t& position);

// Appends a code point, as a surrogate pair where wide characters have 16 bits.
void AppendWide(std::wstring& text, char32_t codePoint);

constexpr bool IsSurrogate(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

}  // namespace platform
