#include "standalone/Text.h"

#include "host/platform/Utf8.h"
#include "standalone/CodePages.h"
#include "standalone/platform/CodePage.h"

#include <utility>

namespace standalone {

bool SetCodePage0(const std::string& name) {
    return shr::detail::SetHostCodePage(name);
}

std::string CodePage0() {
    return shr::detail::HostCodePage();
}

std::wstring Widen(std::string_view utf8) {
    std::wstring text;
    text.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        if (const auto codePoint = platform::DecodeUtf8(utf8, position)) {
            platform::AppendWide(text, *codePoint);
        } else {
            platform::AppendWide(text, platform::kReplacementCharacter);
            ++position;
        }
    }
    return text;
}

std::string Narrow(std::wstring_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t codePoint = platform::DecodeWide(text, position);
        if (platform::IsSurrogate(codePoint) || codePoint > 0x10FFFF) {
            utf8 += '?';
        } else {
            platform::AppendUtf8(utf8, codePoint);
        }
    }
    return utf8;
}

std::optional<std::string> Encode(const std::string& codePage, std::string_view utf8) {
    const std::wstring text = Widen(utf8);
    std::string bytes = shr::detail::EncodeNamed(codePage, text);
    // What the code page lacks has become a question mark.
    if (shr::detail::DecodeNamed(codePage, bytes) != text) {
        return std::nullopt;
    }
    return bytes;
}

std::optional<std::wstring> Decode(const std::string& codePage, std::string_view bytes) {
    if (!HasCodePage(codePage)) {
        return std::nullopt;
    }
    std::wstring text = DecodeCodePage(codePage, bytes);
    const bool isLossy = text.find(wchar_t{platform::kReplacementCharacter}) != text.npos;
    return isLossy ? std::nullopt : std::optional(std::move(text));
}

}  // namespace standalone
