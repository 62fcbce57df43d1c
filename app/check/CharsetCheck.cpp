#include "app/check/CharsetCheck.h"

#include "app/mif/Charsets.h"
#include "app/mif/Words.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>

namespace app::check {
namespace {

iconv_t NoConversion() {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): what iconv_open answers on failure
    return reinterpret_cast<iconv_t>(static_cast<std::intptr_t>(-1));
}

// The number of bytes of the UTF-8 character that bytes begins with; 0 when it is none.
std::size_t Utf8Length(std::string_view bytes) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80) {
        return 1;
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (byteAt(i) < 0x80 || byteAt(i) > 0xBF) {
            return 0;
        }
    }
    const unsigned char second = byteAt(1);
    const bool isBad = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                       (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return isBad ? 0 : length;
}

}  // namespace

bool IsAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 128; });
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = Utf8Length(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

CharsetTester::CharsetTester(std::string_view declaredName) {
    if (declaredName.empty()) {
        return;
    }
    if (EqualsIgnoringCase(declaredName, "Neutral")) {
        kind_ = CharsetKind::Neutral;
        return;
    }
    const Charset* const charset = FindCharset(declaredName);
    if (charset == nullptr) {
        kind_ = CharsetKind::Unknown;
        return;
    }
    isUtf8_ = charset->mifName == "UTF-8";
    isThai_ = charset->mifName == "WindowsThai";
    isMultiByte_ = charset->isMultiByte;
    // A file in UTF-16 is found by its first bytes, not by its name.
    const bool hasConversion = !charset->iconvName.empty() && charset->mifName != "UTF-16";
    kind_ = isUtf8_ ? CharsetKind::Known : CharsetKind::Untestable;
    if (!isUtf8_ && hasConversion) {
        const iconv_t conversion = iconv_open("UTF-8", std::string(charset->iconvName).c_str());
        if (conversion != NoConversion()) {
            conversion_ = conversion;
            kind_ = CharsetKind::Known;
        }
    }
}

CharsetTester::~CharsetTester() {
    if (conversion_ != nullptr) {
        iconv_close(conversion_);
    }
}

bool CharsetTester::Converts(std::string_view bytes) {
    std::string input(bytes);
    if (isThai_) {
        // The common table of this charset lacks the punctuation that Windows put into it.
        std::ranges::replace_if(
            input,
            [](char c) {
                const auto byte = static_cast<unsigned char>(c);
                return byte == 0x80 || byte == 0x85 || (byte >= 0x91 && byte <= 0x97);
            },
            ' ');
    }
    iconv(conversion_, nullptr, nullptr, nullptr, nullptr);
    char* in = input.data();
    std::size_t inLeft = input.size();
    std::array<char, 4096> output{};
    while (inLeft > 0) {
        char* out = output.data();
        std::size_t outLeft = output.size();
        if (iconv(conversion_, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1) &&
            errno != E2BIG) {
            return false;
        }
    }
    return true;
}

CharsetVerdict CharsetTester::Test(std::string_view bytes) {
    if (IsAscii(bytes)) {
        return CharsetVerdict::Fits;
    }
    if (kind_ != CharsetKind::Known) {
        return CharsetVerdict::NotTested;
    }
    if (isUtf8_) {
        return IsUtf8(bytes) ? CharsetVerdict::Fits : CharsetVerdict::NotInCharset;
    }
    if (!isMultiByte_ && IsUtf8(bytes)) {
        return CharsetVerdict::LooksLikeUtf8;
    }
    return Converts(bytes) ? CharsetVerdict::Fits : CharsetVerdict::NotInCharset;
}

std::size_t CharsetTester::CountCharacters(std::string_view bytes) const {
    if (!IsUtf8(bytes)) {
        return bytes.size();
    }
    return static_cast<std::size_t>(std::ranges::count_if(
        bytes, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

}  // namespace app::check
