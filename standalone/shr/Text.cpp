#include "host/shr/Text.h"

#include "host/platform/Stdio.h"
#include "host/platform/Utf8.h"
#include "standalone/CodePages.h"
#include "standalone/platform/CodePage.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace shr {

namespace {

constexpr const char* kWindows1252 = "CP1252";
constexpr std::array kWindows1252Names = {kWindows1252, "WINDOWS-1252", "1252"};
constexpr unsigned kWindows1252Number = 1252;
constexpr unsigned kUtf8Number = 65001;
constexpr unsigned kLatin1Number = 28591;  // this and the next 15 are the parts of ISO 8859
constexpr unsigned kLatin10Number = 28606;

// The characters of bytes 0x80 to 0x9F. The five bytes that the code page leaves undefined are the
// C1 controls of their numbers, so that each of the 256 bytes survives a round trip.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct CodePage {
    std::string name;
    bool is1252;
    bool keepsAscii;  // bytes below 0x80 are ASCII wherever they stand alone
};

bool KeepsAscii(const std::string& name) {
    for (wchar_t character = 0; character < 0x80; ++character) {
        const char byte = static_cast<char>(character);
        const std::wstring text = standalone::DecodeCodePage(name, {&byte, 1});
        if (text.size() != 1 || text[0] != character) {
            return false;
        }
    }
    return true;
}

bool Is1252(const std::string& name) {
    return std::any_of(kWindows1252Names.begin(), kWindows1252Names.end(), [&](const char* known) {
        return platform::CompareNoCase(name.c_str(), known) == 0;
    });
}

CodePage Describe(const std::string& name) {
    const bool is1252 = Is1252(name);
    return {name, is1252, is1252 || KeepsAscii(name)};
}

CodePage& HostPage() {
    static CodePage page = Describe(kWindows1252);
    return page;
}

std::string NameOf(unsigned codePage) {
    if (codePage == kUtf8Number) {
        return "UTF-8";
    }
    if (codePage >= kLatin1Number && codePage <= kLatin10Number) {
        return "ISO-8859-" + std::to_string(codePage - kLatin1Number + 1);
    }
    return "CP" + std::to_string(codePage);
}

bool IsAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

bool IsAscii(std::wstring_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](wchar_t character) { return static_cast<char32_t>(character) >= 0x80; });
}

wchar_t Decode1252(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 && value < 0xA0 ? static_cast<wchar_t>(kUpperControls[value - 0x80U])
                                         : static_cast<wchar_t>(value);
}

char Encode1252(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
        return static_cast<char>(codePoint);
    }
    const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), codePoint);
    return found == kUpperControls.end()
               ? '?'
               : static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

std::wstring Decode1252(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return Decode1252(byte); });
    return text;
}

std::string Encode1252(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        bytes += Encode1252(platform::DecodeWide(text, position));
    }
    return bytes;
}

std::wstring Decode(std::string_view bytes, unsigned codePage) {
    const CodePage& host = HostPage();
    if (codePage == kWindows1252Number || (codePage == 0 && host.is1252) ||
        (codePage == 0 && host.keepsAscii && IsAscii(bytes))) {
        return Decode1252(bytes);  // equals ASCII there
    }
    return standalone::DecodeCodePage(codePage == 0 ? host.name : NameOf(codePage), bytes);
}

}  // namespace

std::wstring AtoW(const char* text, unsigned codePage) {
    return text == nullptr ? std::wstring() : Decode(text, codePage);
}

std::wstring AtoW(const std::string& text, unsigned codePage) {
    return Decode(text, codePage);
}

std::string WtoAN(const std::wstring& text, unsigned codePage) {
    const CodePage& host = HostPage();
    if (codePage == kWindows1252Number || (codePage == 0 && host.is1252) ||
        (codePage == 0 && host.keepsAscii && IsAscii(text))) {
        return Encode1252(text);
    }
    return standalone::EncodeCodePage(codePage == 0 ? host.name : NameOf(codePage), text);
}

namespace detail {

bool SetHostCodePage(const std::string& name) {
    if (!Is1252(name) && !standalone::HasCodePage(name)) {
        return false;
    }
    HostPage() = Describe(name);
    return true;
}

const std::string& HostCodePage() {
    return HostPage().name;
}

std::string EncodeNamed(const std::string& name, const std::wstring& text) {
    return Is1252(name) ? Encode1252(text) : standalone::EncodeCodePage(name, text);
}

std::wstring DecodeNamed(const std::string& name, const std::string& bytes) {
    return Is1252(name) ? Decode1252(bytes) : standalone::DecodeCodePage(name, bytes);
}

}  // namespace detail

}  // namespace shr
