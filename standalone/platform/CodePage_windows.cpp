#include "standalone/platform/CodePage.h"

#include "host/platform/Stdio.h"
#include "host/platform/Utf8.h"
#include "host/platform/WindowSystem.h"
#include "standalone/Text.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <utility>

namespace standalone {

namespace {

constexpr UINT kLatin1 = 28591;  // this and the next 15 are the parts of ISO 8859

struct NumberPrefix {
    const char* text;
    UINT base;  // what is added to the number behind it
};
constexpr NumberPrefix kPrefixes[] = {
    {"ISO-8859-", kLatin1 - 1}, {"WINDOWS-", 0}, {"IBM", 0}, {"CP", 0}, {"", 0}};

// The names without a number that iconv and this program use for them.
struct NamedPage {
    const char* name;
    UINT number;
};
constexpr NamedPage kNamedPages[] = {{"UTF-8", CP_UTF8},           {"SHIFT_JIS", 932},
                                     {"MACINTOSH", 10000},         {"MAC-CYRILLIC", 10007},
                                     {"MAC-CENTRALEUROPE", 10029}, {"EUC-JP", 20932}};

// The code pages of Windows itself, which have no control characters above 0x7F. The system decodes
// a byte without a character as a control character or as one of some private ones.
constexpr UINT kPagesOfWindows[] = {874,  932,  936,  949,  950,  1250, 1251,
                                    1252, 1253, 1254, 1255, 1256, 1257, 1258};

bool HasFiller(UINT codePage, std::wstring_view text) {
    return std::ranges::find(kPagesOfWindows, codePage) != std::end(kPagesOfWindows) &&
           std::ranges::any_of(text, [](wchar_t c) {
               return (c >= 0x80 && c < 0xA0) || (c >= 0xF8C0 && c <= 0xF8FF);
           });
}

std::optional<UINT> ParseNumber(std::string_view digits) {
    UINT number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return number;
}

bool StartsWithNoCase(const std::string& name, std::string_view prefix) {
    return platform::CompareNoCase(name.substr(0, prefix.size()).c_str(), prefix.data()) == 0;
}

// The number of a code page that has one or two bytes a character, or of UTF-8.
//
// The system converts others as well, but can't tell for them what was undecodable.
std::optional<UINT> NumberOf(const std::string& name) {
    for (const NamedPage& page : kNamedPages) {
        if (platform::CompareNoCase(name.c_str(), page.name) == 0) {
            return page.number;
        }
    }
    for (const NumberPrefix& prefix : kPrefixes) {
        if (!StartsWithNoCase(name, prefix.text)) {
            continue;
        }
        const std::optional<UINT> number =
            ParseNumber(std::string_view(name).substr(std::string_view(prefix.text).size()));
        CPINFO facts;
        // The numbers below 37 stand for the settings of the machine.
        if (number && *number + prefix.base >= 37 &&
            GetCPInfo(*number + prefix.base, &facts) != 0 &&
            (facts.MaxCharSize <= 2 || *number + prefix.base == CP_UTF8)) {
            return *number + prefix.base;
        }
    }
    return std::nullopt;
}

// The text of bytes that are valid throughout; empty when they are not.
std::optional<std::wstring> DecodeValid(UINT codePage, std::string_view bytes) {
    const int length = static_cast<int>(bytes.size());
    const int count =
        MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), length, nullptr, 0);
    if (count <= 0) {
        return std::nullopt;
    }
    std::wstring text(static_cast<std::size_t>(count), L'\0');
    MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), length, text.data(), count);
    return HasFiller(codePage, text) ? std::nullopt : std::optional(std::move(text));
}

std::wstring DecodePiecewise(UINT codePage, std::string_view bytes) {
    std::wstring text;
    for (std::size_t position = 0; position < bytes.size();) {
        const bool isPair = IsDBCSLeadByteEx(codePage, static_cast<BYTE>(bytes[position])) != 0 &&
                            position + 1 < bytes.size();
        const std::size_t size = isPair ? 2 : 1;
        if (const auto piece = DecodeValid(codePage, bytes.substr(position, size))) {
            text += *piece;
            position += size;
        } else {
            platform::AppendWide(text, platform::kReplacementCharacter);
            ++position;
        }
    }
    return text;
}

// The bytes of text that the code page holds throughout; empty when it does not.
std::optional<std::string> EncodeValid(UINT codePage, std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    BOOL hasSubstitute = FALSE;
    const int count = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, text.data(), length,
                                          nullptr, 0, "?", &hasSubstitute);
    if (count <= 0 || hasSubstitute != FALSE) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(count), '\0');
    WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, text.data(), length, bytes.data(), count,
                        nullptr, nullptr);
    return bytes;
}

std::string EncodePiecewise(UINT codePage, std::wstring_view text) {
    std::string bytes;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        static_cast<void>(
            platform::DecodeWide(text, position));  // a surrogate pair is one character
        bytes += EncodeValid(codePage, text.substr(start, position - start)).value_or("?");
    }
    return bytes;
}

}  // namespace

bool HasCodePage(const std::string& name) {
    return NumberOf(name).has_value();
}

std::wstring DecodeCodePage(const std::string& name, std::string_view bytes) {
    const std::optional<UINT> codePage = NumberOf(name);
    if (codePage == UINT{CP_UTF8}) {
        return Widen(bytes);
    }
    if (!codePage) {
        std::wstring text;
        for (const char byte : bytes) {
            platform::AppendWide(text, static_cast<unsigned char>(byte) < 0x80
                                           ? static_cast<char32_t>(byte)
                                           : platform::kReplacementCharacter);
        }
        return text;
    }
    const std::optional<std::wstring> text = DecodeValid(*codePage, bytes);
    return text ? *text : DecodePiecewise(*codePage, bytes);
}

std::string EncodeCodePage(const std::string& name, std::wstring_view text) {
    const std::optional<UINT> codePage = NumberOf(name);
    if (codePage == UINT{CP_UTF8}) {
        return Narrow(text);
    }
    if (!codePage) {
        std::string bytes;
        for (std::size_t position = 0; position < text.size();) {
            const char32_t codePoint = platform::DecodeWide(text, position);
            bytes += codePoint < 0x80 ? static_cast<char>(codePoint) : '?';
        }
        return bytes;
    }
    const std::optional<std::string> bytes = EncodeValid(*codePage, text);
    return bytes ? *bytes : EncodePiecewise(*codePage, text);
}

}  // namespace standalone
