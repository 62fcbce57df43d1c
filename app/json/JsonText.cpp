#include "app/json/JsonText.h"

#include "app/json/ShortestNumber.h"

#include <charconv>
#include <cmath>

namespace app {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

bool IsContinuation(std::string_view text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
}

// Returns the length of the well-formed sequence that begins at a byte above 127; 0 for an invalid
// one.
std::size_t SequenceLength(std::string_view text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    const auto second = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    if (!IsContinuation(text, at + 1)) {
        return 0;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return 2;
    }
    if (!IsContinuation(text, at + 2)) {
        return 0;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        const bool isOverlong = first == 0xE0 && second < 0xA0;
        const bool isSurrogate = first == 0xED && second > 0x9F;
        return isOverlong || isSurrogate ? 0 : 3;
    }
    if (first >= 0xF0 && first <= 0xF4 && IsContinuation(text, at + 3)) {
        const bool isOverlong = first == 0xF0 && second < 0x90;
        const bool isBeyond = first == 0xF4 && second > 0x8F;
        return isOverlong || isBeyond ? 0 : 4;
    }
    return 0;
}

bool IsPlain(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\\' && byte != 0x7F;
}

// U+0080 to U+009F, which drive a terminal as the controls below U+0020 do.
bool IsHighControl(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]) == 0xC2 &&
           static_cast<unsigned char>(text[at + 1]) < 0xA0;
}

void AppendEscape(std::string& out, unsigned char byte) {
    static constexpr char kDigits[] = "0123456789abcdef";
    switch (byte) {
    case '"':
        out += "\\\"";
        break;
    case '\\':
        out += "\\\\";
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    default:
        out += "\\u00";
        out += kDigits[byte >> 4];
        out += kDigits[byte & 15];
    }
}

void AppendNumber(std::string& out, double value, char* (*write)(char*, double)) {
    if (std::isnan(value)) {
        out += "\"nan\"";
    } else if (std::isinf(value)) {
        out += value > 0 ? "\"inf\"" : "\"-inf\"";
    } else if (value == 0.0 && std::signbit(value)) {
        out += "-0.0";  // many readers of JSON take "-0" for the integer 0 and lose the sign
    } else {
        char text[kShortestNumberSize];
        out.append(text, write(text, value));
    }
}

}  // namespace

void AppendJsonString(std::string& out, std::string_view utf8) {
    out += '"';
    std::size_t at = 0;
    while (at < utf8.size()) {
        std::size_t end = at;
        while (end < utf8.size() && IsPlain(utf8[end])) {
            ++end;
        }
        out.append(utf8, at, end - at);
        at = end;
        if (at == utf8.size()) {
            break;
        }
        const auto byte = static_cast<unsigned char>(utf8[at]);
        if (byte < 0x80) {
            AppendEscape(out, byte);
            ++at;
        } else if (const std::size_t length = SequenceLength(utf8, at);
                   length == 2 && IsHighControl(utf8, at)) {
            AppendEscape(out, static_cast<unsigned char>(utf8[at + 1]));
            at += length;
        } else if (length > 0) {
            out.append(utf8, at, length);
            at += length;
        } else {
            out += kReplacement;
            ++at;
        }
    }
    out += '"';
}

void AppendJsonNumber(std::string& out, double value) {
    AppendNumber(out, value, WriteShortest);
}

void AppendPlainJsonNumber(std::string& out, double value) {
    AppendNumber(out, value, WritePlain);
}

void AppendJsonNumber(std::string& out, std::int64_t value) {
    char text[24];
    const auto result = std::to_chars(text, text + sizeof text, value);
    out.append(text, result.ptr);
}

}  // namespace app
