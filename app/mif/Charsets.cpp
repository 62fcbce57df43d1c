#include "app/mif/Charsets.h"

#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace app {

namespace {

// By name. Those without a conversion have a code page of Windows at most.
constexpr Charset kCharsets[] = {
    {"ISO8859_1", 28591, "ISO-8859-1"},
    {"ISO8859_2", 28592, "ISO-8859-2"},
    {"ISO8859_3", 28593, "ISO-8859-3"},
    {"ISO8859_4", 28594, "ISO-8859-4"},
    {"ISO8859_5", 28595, "ISO-8859-5"},
    {"ISO8859_6", 28596, "ISO-8859-6"},
    {"ISO8859_7", 28597, "ISO-8859-7"},
    {"ISO8859_8", 28598, "ISO-8859-8"},
    {"ISO8859_9", 28599, "ISO-8859-9"},
    // The first spelling, without an n, is the usual one.
    {"PackedEUCJapaese", 51932, "EUC-JP", true},
    {"PackedEUCJapanese", 51932, "EUC-JP", true},
    {"WindowsLatin1", 1252, "CP1252"},
    {"WindowsLatin2", 1250, "CP1250"},
    {"WindowsArabic", 1256, "CP1256"},
    {"WindowsCyrillic", 1251, "CP1251"},
    {"WindowsGreek", 1253, "CP1253"},
    {"WindowsHebrew", 1255, "CP1255"},
    {"WindowsTurkish", 1254, "CP1254"},
    {"WindowsBalticRim", 1257, "CP1257"},
    {"WindowsVietnamese", 1258, "CP1258"},
    {"WindowsThai", 874, "CP874"},
    {"WindowsTradChinese", 950, "CP950", true},
    {"WindowsSimpChinese", 936, "CP936", true},
    {"WindowsJapanese", 932, "CP932", true},
    {"WindowsKorean", 949, "CP949", true},
    {"MacRoman", 10000, "MACINTOSH"},
    {"MacArabic", 10004, ""},
    {"MacHebrew", 10005, ""},
    {"MacGreek", 10006, ""},
    {"MacCyrillic", 10007, "MAC-CYRILLIC"},
    {"MacTurkish", 10081, ""},
    {"MacCentralEurope", 10029, "MAC-CENTRALEUROPE"},
    {"MacJapanese", 10001, "SHIFT_JIS", true},
    {"CodePage437", 437, "IBM437"},
    {"CodePage850", 850, "IBM850"},
    {"CodePage852", 852, "IBM852"},
    {"CodePage855", 855, "IBM855"},
    {"CodePage857", 857, "IBM857"},
    {"CodePage860", 860, "IBM860"},
    {"CodePage861", 861, "IBM861"},
    {"CodePage863", 863, "IBM863"},
    {"CodePage864", 864, "IBM864"},
    {"CodePage865", 865, "IBM865"},
    {"CodePage869", 869, "IBM869"},
    {"UTF-8", 65001, "UTF-8"},
    {"UTF-16", 1200, "UTF-16LE"},
    {"LICS", 0, ""},
    {"LMBCS", 0, ""},
};

CodePageChoice FallBack(std::string charset, std::string warning) {
    return {std::string(kDefaultCodePage), std::move(charset), std::move(warning)};
}

}  // namespace

const Charset* FindCharset(std::string_view mifName) {
    const auto* const found = std::ranges::find_if(kCharsets, [&](const Charset& charset) {
        return EqualsIgnoringCase(charset.mifName, mifName);
    });
    return found == std::end(kCharsets) ? nullptr : found;
}

const Charset* FindCharsetOfEncoding(std::string_view name) {
    if (const Charset* charset = FindCharset(name)) {
        return charset;
    }
    constexpr std::string_view kWindows = "windows-";
    const bool isWindows = EqualsIgnoringCase(name.substr(0, kWindows.size()), kWindows);
    const std::string wanted =
        isWindows ? "CP" + std::string(name.substr(kWindows.size())) : std::string(name);
    for (const Charset& charset : kCharsets) {
        if (!charset.iconvName.empty() && EqualsIgnoringCase(charset.iconvName, wanted)) {
            return &charset;
        }
    }
    return nullptr;
}

std::span<const Charset> AllCharsets() {
    return kCharsets;
}

CodePageChoice CodePageOfCharset(std::string_view mifName) {
    std::string name(mifName);
    if (name.empty() || EqualsIgnoringCase(name, "Neutral")) {
        return FallBack(std::move(name), "");
    }
    const Charset* charset = FindCharset(mifName);
    if (charset == nullptr) {
        return FallBack(name, "character set \"" + name + "\" is not known; Windows-1252 is used");
    }
    if (EqualsIgnoringCase(name, "UTF-16")) {
        return FallBack(name, "files in UTF-16 can't be read; convert it to UTF-8 first");
    }
    if (charset->iconvName.empty()) {
        return FallBack(name, "character set \"" + name +
                                  "\" has no conversion here; Windows-1252 is used");
    }
    return {std::string(charset->iconvName), std::move(name), ""};
}

CodePageChoice CodePageOf(const MifHeader& header) {
    if (header.start == FileStart::Utf16) {
        return CodePageOfCharset("UTF-16");
    }
    return CodePageOfCharset(header.start == FileStart::ByteOrderMark ? "UTF-8" : header.charset);
}

}  // namespace app
