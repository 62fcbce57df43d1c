#include "app/draw/LabelText.h"

#include <cstdint>
#include <type_traits>

namespace app {

namespace {

constexpr std::size_t kMostLines = 100;
constexpr std::size_t kLongestLine = 1000;

bool IsClean(std::uint32_t codePoint) {
    const bool isControl = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    const bool isNoncharacter =
        (codePoint & 0xFFFE) == 0xFFFE || (codePoint >= 0xFDD0 && codePoint <= 0xFDEF);
    return !isControl && !isSurrogate && !isNoncharacter && codePoint <= 0x10FFFF;
}

void AppendUtf8(std::string& text, std::uint32_t codePoint) {
    const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | (codePoint >> 6));
        append(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        append(0xE0 | (codePoint >> 12));
        append(0x80 | ((codePoint >> 6) & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    } else {
        append(0xF0 | (codePoint >> 18));
        append(0x80 | ((codePoint >> 12) & 0x3F));
        append(0x80 | ((codePoint >> 6) & 0x3F));
        append(0x80 | (codePoint & 0x3F));
    }
}

// Wide characters are signed on some systems.
std::uint32_t NumberOf(wchar_t character) {
    return static_cast<std::make_unsigned_t<wchar_t>>(character);
}

// Takes the next code point off the text, joined from two where wide text has 16 bits.
std::uint32_t TakeCodePoint(std::wstring_view& text) {
    const auto first = NumberOf(text[0]);
    text.remove_prefix(1);
    if (first < 0xD800 || first > 0xDBFF || text.empty()) {
        return first;
    }
    const auto second = NumberOf(text[0]);
    if (second < 0xDC00 || second > 0xDFFF) {
        return first;
    }
    text.remove_prefix(1);
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

}  // namespace

std::vector<std::string> LinesOf(std::wstring_view text) {
    std::vector<std::string> lines(1);
    std::size_t length = 0;
    const auto breakLine = [&lines, &length] {
        lines.emplace_back();
        length = 0;
    };
    while (!text.empty() && lines.size() <= kMostLines) {
        if (text.starts_with(L"\\n")) {
            text.remove_prefix(2);
            breakLine();
            continue;
        }
        std::uint32_t codePoint = TakeCodePoint(text);
        if (codePoint == '\n') {
            breakLine();
            continue;
        }
        codePoint = codePoint == '\t' ? ' ' : codePoint;
        if (IsClean(codePoint) && length < kLongestLine) {
            AppendUtf8(lines.back(), codePoint);
            ++length;
        }
    }
    if (lines.size() > kMostLines) {
        lines.resize(kMostLines);
    }
    return lines;
}

std::string CleanName(std::wstring_view name) {
    std::string clean;
    for (std::size_t length = 0; !name.empty() && length < kLongestLine; ++length) {
        const std::uint32_t codePoint = TakeCodePoint(name);
        if (IsClean(codePoint)) {
            AppendUtf8(clean, codePoint);
        }
    }
    return clean;
}

std::string CleanCharacter(int codePoint) {
    std::string text;
    if (codePoint > 0x20 && IsClean(static_cast<std::uint32_t>(codePoint))) {
        AppendUtf8(text, static_cast<std::uint32_t>(codePoint));
    }
    return text;
}

}  // namespace app
