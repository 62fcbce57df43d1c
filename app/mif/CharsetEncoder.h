// Texts as the bytes of a MIF file's character set, and which set a file's texts need.
#pragma once

#include "app/mif/Charsets.h"

#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// UTF-8 as bytes of one code page.
class CharsetEncoder {
public:
    // Takes the name of a system conversion: "UTF-8", "CP1251".
    explicit CharsetEncoder(std::string codePage);

    // Appends the text; a character that the code page lacks becomes '?' and is counted.
    void Append(std::string& out, std::string_view utf8);

    // Whether the code page has the character.
    bool Holds(char32_t codePoint);

    // Returns how much of the text fits into so many bytes: the length in UTF-8 of its longest
    // beginning that does, whole characters only.
    std::size_t LengthThatFits(std::string_view utf8, std::size_t byteCount);

    // Characters that have become '?'.
    std::uint64_t LostCount() const { return lostCount_; }

private:
    std::uint32_t CodeOf(char32_t codePoint);

    std::string codePage_;
    bool isUtf8_;
    // By code point below 0x10000: the number of bytes in the highest byte, then the bytes, the
    // last one lowest; kUnknown until it is needed.
    std::vector<std::uint32_t> codes_;
    std::uint64_t lostCount_ = 0;
};

// Finds the smallest charset for texts that come one after the other.
class CharsetChoice {
public:
    // Remembers the characters of a text.
    void See(std::string_view utf8);

    // Returns the first of WindowsLatin1 and the other Windows charsets that has every character
    // seen so far, else UTF-8. East Asian charsets have letters of half the world; they are taken
    // only for texts in their own script.
    const Charset& Best() const;

private:
    bool HasAll(const Charset& charset) const;
    bool Suits(const Charset& charset) const;

    static constexpr std::size_t kCodePoints = 0x10000;
    std::bitset<kCodePoints> seen_;
    bool sawBeyond_ = false;  // a character from 0x10000 on, which only UTF-8 has
};

}  // namespace app
