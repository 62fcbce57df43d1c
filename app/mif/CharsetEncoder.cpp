#include "app/mif/CharsetEncoder.h"

#include "app/base/Utf8.h"
#include "standalone/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace app {
namespace {

constexpr std::string_view kUtf8 = "UTF-8";
constexpr std::uint32_t kUnknown = 0;
constexpr std::uint32_t kMissing = 0xFF000000U;
constexpr char32_t kFirstBeyondTable = 0x10000;

std::string Utf8Of(char32_t codePoint) {
    std::string utf8;
    if (codePoint < 0x80) {
        utf8 += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        utf8 += static_cast<char>(0xC0U | (codePoint >> 6U));
        utf8 += static_cast<char>(0x80U | (codePoint & 0x3FU));
    } else {
        utf8 += static_cast<char>(0xE0U | (codePoint >> 12U));
        utf8 += static_cast<char>(0x80U | ((codePoint >> 6U) & 0x3FU));
        utf8 += static_cast<char>(0x80U | (codePoint & 0x3FU));
    }
    return utf8;
}

std::size_t ByteCount(std::uint32_t code) {
    return code == kMissing ? 1 : code >> 24U;
}

bool IsIn(char32_t codePoint, char32_t first, char32_t last) {
    return codePoint >= first && codePoint <= last;
}

// The marks that Windows-1258 writes behind the letter, from which readers make one character.
bool IsVietnameseTone(char32_t codePoint) {
    constexpr std::array<char32_t, 5> kTones{0x300, 0x301, 0x303, 0x309, 0x323};
    return std::ranges::find(kTones, codePoint) != kTones.end();
}

bool IsKana(char32_t codePoint) {
    return IsIn(codePoint, 0x3040, 0x30FF) || IsIn(codePoint, 0xFF66, 0xFF9F);
}

bool IsHangul(char32_t codePoint) {
    return IsIn(codePoint, 0x1100, 0x11FF) || IsIn(codePoint, 0x3130, 0x318F) ||
           IsIn(codePoint, 0xAC00, 0xD7A3);
}

bool IsHan(char32_t codePoint) {
    return IsIn(codePoint, 0x3400, 0x9FFF) || IsIn(codePoint, 0xF900, 0xFAFF);
}

}  // namespace

CharsetEncoder::CharsetEncoder(std::string codePage)
    : codePage_(std::move(codePage)), isUtf8_(codePage_ == kUtf8) {}

std::uint32_t CharsetEncoder::CodeOf(char32_t codePoint) {
    if (codePoint >= kFirstBeyondTable) {
        return kMissing;
    }
    codes_.resize(kFirstBeyondTable, kUnknown);
    std::uint32_t& code = codes_[codePoint];
    if (code != kUnknown) {
        return code;
    }
    const std::optional<std::string> bytes = standalone::Encode(codePage_, Utf8Of(codePoint));
    constexpr std::size_t kMostBytes = 3;
    if (!bytes || bytes->empty() || bytes->size() > kMostBytes) {
        code = kMissing;
        return code;
    }
    code = static_cast<std::uint32_t>(bytes->size()) << 24U;
    std::uint32_t packed = 0;
    for (const char byte : *bytes) {
        packed = packed << 8U | static_cast<unsigned char>(byte);
    }
    code |= packed;
    return code;
}

bool CharsetEncoder::Holds(char32_t codePoint) {
    return isUtf8_ || codePoint < 0x80 || CodeOf(codePoint) != kMissing;
}

void CharsetEncoder::Append(std::string& out, std::string_view utf8) {
    if (isUtf8_) {
        out += utf8;
        return;
    }
    while (!utf8.empty()) {
        const auto* const end = std::ranges::find_if(
            utf8, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
        const auto plain = static_cast<std::size_t>(end - utf8.begin());
        out += utf8.substr(0, plain);
        utf8.remove_prefix(plain);
        if (utf8.empty()) {
            break;
        }
        const std::uint32_t code = CodeOf(TakeCodePoint(utf8));
        if (code == kMissing) {
            out += '?';
            ++lostCount_;
            continue;
        }
        for (std::size_t left = ByteCount(code); left > 0; --left) {
            out += static_cast<char>(code >> (8U * (left - 1)));
        }
    }
}

std::size_t CharsetEncoder::LengthThatFits(std::string_view utf8, std::size_t byteCount) {
    std::string_view rest = utf8;
    while (!rest.empty()) {
        std::string_view behind = rest;
        const char32_t codePoint = TakeCodePoint(behind);
        const std::size_t bytes = isUtf8_            ? rest.size() - behind.size()
                                  : codePoint < 0x80 ? 1
                                                     : ByteCount(CodeOf(codePoint));
        if (bytes > byteCount) {
            break;
        }
        byteCount -= bytes;
        rest = behind;
    }
    return utf8.size() - rest.size();
}

void CharsetChoice::See(std::string_view utf8) {
    while (!utf8.empty()) {
        const char32_t codePoint = TakeCodePoint(utf8);
        if (codePoint >= kCodePoints) {
            sawBeyond_ = true;
        } else if (codePoint >= 0x80) {
            seen_.set(codePoint);
        }
    }
}

const Charset& CharsetChoice::Best() const {
    for (const Charset& charset : AllCharsets()) {
        if (charset.mifName.starts_with("Windows") && !sawBeyond_ && Suits(charset) &&
            HasAll(charset)) {
            return charset;
        }
    }
    return *FindCharset(kUtf8);
}

bool CharsetChoice::HasAll(const Charset& charset) const {
    CharsetEncoder encoder{std::string(charset.iconvName)};
    for (std::size_t codePoint = 0x80; codePoint < kCodePoints; ++codePoint) {
        if (seen_.test(codePoint) && !encoder.Holds(static_cast<char32_t>(codePoint))) {
            return false;
        }
    }
    return true;
}

bool CharsetChoice::Suits(const Charset& charset) const {
    constexpr int kVietnamese = 1258;
    constexpr int kJapanese = 932;
    constexpr int kKorean = 949;
    constexpr std::array kChinese = {936, 950};
    const auto saw = [this](bool (*isOfScript)(char32_t)) {
        for (std::size_t codePoint = 0x80; codePoint < kCodePoints; ++codePoint) {
            if (seen_.test(codePoint) && isOfScript(static_cast<char32_t>(codePoint))) {
                return true;
            }
        }
        return false;
    };
    if (charset.windowsCodePage == kVietnamese) {
        return !saw(IsVietnameseTone);
    }
    if (charset.windowsCodePage == kJapanese) {
        return saw(IsKana);
    }
    if (charset.windowsCodePage == kKorean) {
        return saw(IsHangul);
    }
    if (std::ranges::find(kChinese, charset.windowsCodePage) != kChinese.end()) {
        return saw(IsHan) && !saw(IsKana) && !saw(IsHangul);
    }
    return true;
}

}  // namespace app
