#include "app/check/CharsetCheck.h"

#include "app/base/Utf8.h"
#include "app/mif/Charsets.h"
#include "app/mif/Words.h"
#include "standalone/Text.h"

#include <algorithm>

namespace app {

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
        conversion_ = charset->iconvName;
        kind_ = standalone::Decode(conversion_, "") ? CharsetKind::Known : kind_;
    }
}

bool CharsetTester::Converts(std::string_view bytes) const {
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
    return standalone::Decode(conversion_, input).has_value();
}

CharsetVerdict CharsetTester::Test(std::string_view bytes) const {
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

}  // namespace app
