// What each byte can be in MIF text, as one look into a table.
#pragma once

#include <array>
#include <cstdint>

namespace app {

enum ByteClass : std::uint8_t {
    kBlankByte = 1,     // blank and tab
    kEndsWordByte = 2,  // what no word holds: blanks, line ends, the double quote, ( ) and ,
    kNumberByte = 4,    // digits, signs, the full stop, and the letter of an exponent
    kDigitByte = 8,
    kFractionByte = 16,  // digits and the full stop: what a number ends with
};

inline constexpr std::array<std::uint8_t, 256> kByteClasses = [] {
    std::array<std::uint8_t, 256> classes{};
    const auto add = [&](const char* bytes, std::uint8_t flags) {
        for (; *bytes != '\0'; ++bytes) {
            classes[static_cast<unsigned char>(*bytes)] |= flags;
        }
    };
    add(" \t", kBlankByte | kEndsWordByte);
    add("\r\n\"(),", kEndsWordByte);
    add("0123456789", kNumberByte | kDigitByte | kFractionByte);
    add(".", kNumberByte | kFractionByte);
    add("+-eE", kNumberByte);
    return classes;
}();

inline bool IsByte(char byte, ByteClass byteClass) {
    return (kByteClasses[static_cast<unsigned char>(byte)] & byteClass) != 0;
}

}  // namespace app
