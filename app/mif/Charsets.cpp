#include "app/mif/Charsets.h"

#include <array>
#include <fstream>

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
    {"PackedEUCJapaese", 51932, "EUC-JP"},
    {"PackedEUCJapanese", 51932, "EUC-JP"},
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
    {"WindowsTradChinese", 950, "CP950"},
    {"WindowsSimpChinese", 936, "CP936"},
    {"WindowsJapanese", 932, "CP932"},
    {"WindowsKorean", 949, "CP949"},
    {"MacRoman", 10000, "MACINTOSH"},
    {"MacArabic", 10004, ""},
    {"MacHebrew", 10005, ""},
    {"MacGreek", 10006, ""},
    {"MacCyrillic", 10007, "MAC-CYRILLIC"},
    {"MacTurkish", 10081, ""},
    {"MacCentralEurope", 10029, "MAC-CENTRALEUROPE"},
    {"MacJapanese", 10001, "SHIFT_JIS"},
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

// The header precedes the data; a file without one is read no further than this.
constexpr int kMaxHeaderLines = 2000;
constexpr std::size_t kMaxLineBytes = 4096;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF";

char AsciiLower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) {
        return false;
    }
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (AsciiLower(left[i]) != AsciiLower(right[i])) {
            return false;
        }
    }
    return true;
}

bool IsBlank(char letter) {
    return letter == ' ' || letter == '\t';
}

// The next word of a line, quotes taken off; the line is left with the rest.
std::string_view TakeWord(std::string_view& line) {
    while (!line.empty() && IsBlank(line.front())) {
        line.remove_prefix(1);
    }
    const bool isQuoted = !line.empty() && line.front() == '"';
    if (isQuoted) {
        line.remove_prefix(1);
    }
    std::size_t length = 0;
    while (length < line.size() &&
           (isQuoted ? line[length] != '"' : !IsBlank(line[length]) && line[length] != '"')) {
        ++length;
    }
    const std::string_view word = line.substr(0, length);
    line.remove_prefix(length);
    if (isQuoted && !line.empty()) {
        line.remove_prefix(1);
    }
    return word;
}

// Reads up to a line end: LF, CR LF or CR. False at the end of the file.
bool ReadLine(std::istream& file, std::string& line) {
    line.clear();
    int letter = file.get();
    if (letter == std::istream::traits_type::eof()) {
        return false;
    }
    while (letter != std::istream::traits_type::eof() && letter != '\n' && letter != '\r') {
        if (line.size() < kMaxLineBytes) {
            line += static_cast<char>(letter);
        }
        letter = file.get();
    }
    if (letter == '\r' && file.peek() == '\n') {
        file.get();
    }
    return true;
}

CodePageChoice FallBack(std::string charset, std::string warning) {
    return {std::string(kDefaultCodePage), std::move(charset), std::move(warning)};
}

}  // namespace

const Charset* FindCharset(std::string_view mifName) {
    for (const Charset& charset : kCharsets) {
        if (EqualIgnoringAsciiCase(charset.mifName, mifName)) {
            return &charset;
        }
    }
    return nullptr;
}

CodePageChoice CodePageOfCharset(std::string_view mifName) {
    std::string name(mifName);
    if (name.empty() || EqualIgnoringAsciiCase(name, "Neutral")) {
        return FallBack(std::move(name), "");
    }
    const Charset* charset = FindCharset(mifName);
    if (charset == nullptr) {
        return FallBack(name, "character set \"" + name + "\" is not known; Windows-1252 is used");
    }
    if (EqualIgnoringAsciiCase(name, "UTF-16")) {
        return FallBack(name, "files in UTF-16 can't be read; convert it to UTF-8 first");
    }
    if (charset->iconvName.empty()) {
        return FallBack(name, "character set \"" + name +
                                  "\" has no conversion here; Windows-1252 is used");
    }
    return {std::string(charset->iconvName), std::move(name), ""};
}

CodePageChoice CodePageForFile(const std::filesystem::path& mif) {
    std::ifstream file(mif, std::ios::binary);
    std::string line;
    bool hasUtf8Mark = false;
    for (int number = 0; number < kMaxHeaderLines && ReadLine(file, line); ++number) {
        std::string_view rest = line;
        if (number == 0 && rest.starts_with(kUtf8Mark)) {
            hasUtf8Mark = true;
            rest.remove_prefix(kUtf8Mark.size());
        }
        if (number == 0 &&
            (rest.starts_with(kUtf16LittleEndianMark) || rest.starts_with(kUtf16BigEndianMark))) {
            return CodePageOfCharset("UTF-16");
        }
        const std::string_view keyword = TakeWord(rest);
        if (EqualIgnoringAsciiCase(keyword, "data")) {
            break;
        }
        if (EqualIgnoringAsciiCase(keyword, "charset") && !hasUtf8Mark) {
            return CodePageOfCharset(TakeWord(rest));
        }
    }
    return CodePageOfCharset(hasUtf8Mark ? "UTF-8" : "");
}

}  // namespace app
