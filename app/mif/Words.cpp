#include "app/mif/Words.h"

#include <algorithm>
#include <cstddef>

namespace app {

char AsciiLower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return AsciiLower(a) == AsciiLower(b); });
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t kMaxBytes = 40;
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string quoted = "'";
    for (const char c : text.substr(0, kMaxBytes)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || byte == 127) {
            quoted += "\\x";
            quoted += kHex[byte / 16U];
            quoted += kHex[byte % 16U];
        } else {
            quoted += c;
        }
    }
    return quoted + (text.size() > kMaxBytes ? "…'" : "'");
}

}  // namespace app
