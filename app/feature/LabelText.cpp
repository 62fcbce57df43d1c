#include "app/feature/LabelText.h"

#include "app/base/Utf8.h"

#include <cstdint>

namespace app {

namespace {

constexpr std::size_t kMostLines = 100;
constexpr std::size_t kLongestLine = 1000;
constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kEllipsis = 0x2026;

// Marks of the writing direction could make a page show other words than there are.
bool IsDirectionMark(char32_t codePoint) {
    return codePoint == 0x061C || codePoint == 0x200E || codePoint == 0x200F ||
           (codePoint >= 0x202A && codePoint <= 0x202E) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069);
}

bool IsClean(char32_t codePoint) {
    const bool isControl = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) ||
                           codePoint == 0x2028 || codePoint == 0x2029;
    const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    const bool isNoncharacter =
        (codePoint & 0xFFFE) == 0xFFFE || (codePoint >= 0xFDD0 && codePoint <= 0xFDEF);
    return !isControl && !isSurrogate && !isNoncharacter && !IsDirectionMark(codePoint) &&
           codePoint != kReplacement && codePoint <= 0x10FFFF;
}

void AppendUtf8(std::string& text, char32_t codePoint) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
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

// Takes at most a line's characters from the front of `utf8`.
std::string NameOf(std::string_view& utf8) {
    std::string clean;
    for (std::size_t length = 0; !utf8.empty() && length < kLongestLine; ++length) {
        const char32_t codePoint = TakeCodePoint(utf8);
        const bool isBreak = codePoint == '\t' || codePoint == '\n';
        if (isBreak || IsClean(codePoint)) {
            AppendUtf8(clean, isBreak ? U' ' : codePoint);
        }
    }
    return clean;
}

}  // namespace

std::vector<std::string> LinesOf(std::string_view utf8) {
    std::vector<std::string> lines(1);
    std::size_t length = 0;
    const auto breakLine = [&lines, &length] {
        lines.emplace_back();
        length = 0;
    };
    while (!utf8.empty() && lines.size() <= kMostLines) {
        if (utf8.starts_with("\\n")) {
            utf8.remove_prefix(2);
            breakLine();
            continue;
        }
        char32_t codePoint = TakeCodePoint(utf8);
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

std::string CleanName(std::string_view utf8) {
    return NameOf(utf8);
}

std::string ShortenedName(std::string_view utf8) {
    std::string name = NameOf(utf8);
    if (!utf8.empty()) {
        AppendUtf8(name, kEllipsis);
    }
    return name;
}

std::string CleanCharacter(int codePoint) {
    std::string text;
    if (codePoint > 0x20 && IsClean(static_cast<char32_t>(codePoint))) {
        AppendUtf8(text, static_cast<char32_t>(codePoint));
    }
    return text;
}

}  // namespace app
