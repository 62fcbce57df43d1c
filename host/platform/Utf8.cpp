#include "host/platform/Utf8.h"

namespace platform {

namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;

// How a lead byte starts a sequence: its length, its own bits and the smallest value that needs
// this length (a smaller one is an overlong form, which is invalid).
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t smallest;
};

std::optional<Lead> LeadOf(unsigned char byte) {
    if (byte < 0x80) {
        return Lead{1, byte, 0};
    }
    if ((byte & 0xE0) == 0xC0) {
        return Lead{2, byte & 0x1FU, 0x80};
    }
    if ((byte & 0xF0) == 0xE0) {
        return Lead{3, byte & 0x0FU, 0x800};
    }
    if ((byte & 0xF8) == 0xF0) {
        return Lead{4, byte & 0x07U, 0x10000};
    }
    return std::nullopt;
}

}  // namespace

std::optional<char32_t> DecodeUtf8(std::string_view text, std::size_t& position) {
    const std::optional<Lead> lead = LeadOf(static_cast<unsigned char>(text[position]));
    if (!lead || text.size() - position < lead->length) {
        return std::nullopt;
    }
    char32_t codePoint = lead->bits;
    for (std::size_t i = 1; i < lead->length; ++i) {
        const auto byte = static_cast<unsigned char>(text[position + i]);
        if ((byte & 0xC0) != 0x80) {
            return std::nullopt;
        }
        codePoint = (codePoint << 6) | (byte & 0x3FU);
    }
    if (codePoint < lead->smallest || codePoint > kLastCodePoint || IsSurrogate(codePoint)) {
        return std::nullopt;
    }
    position += lead->length;
    return codePoint;
}

void AppendUtf8(std::string& text, char32_t codePoint) {
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU));
    };
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        text += static_cast<char>(0xC0U | (codePoint >> 6));
        tail(0);
    } else if (codePoint < 0x10000) {
        text += static_cast<char>(0xE0U | (codePoint >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | ((codePoint >> 18) & 0x07U));
        tail(12);
        tail(6);
        tail(0);
    }
}

char32_t DecodeWide(std::wstring_view text, std::size_t& position) {
    const auto first = static_cast<char32_t>(text[position]);
    ++position;
    if (first < 0xD800 || first > 0xDBFF || position == text.size()) {
        return first;
    }
    const auto second = static_cast<char32_t>(text[position]);
    if (second < 0xDC00 || second > 0xDFFF) {
        return first;
    }
    ++position;
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

void AppendWide(std::wstring& text, char32_t codePoint) {
    if (sizeof(wchar_t) == 2 && codePoint >= 0x10000) {
        text += static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
    } else {
        text += static_cast<wchar_t>(codePoint);
    }
}

}  // namespace platform
