// Lines that hold numbers and nothing else: the vertices, which most of a .mif file is made of.
//
// A line is plain when it holds the wanted number of words, parted by blanks, made of nothing but
// digits, signs, full stops and the letter e. What the words are worth is not looked at.
#pragma once

#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace app {

struct NumberLineRun {
    std::uint64_t lines = 0;
    std::size_t bytes = 0;  // of these lines, line ends included
};

// Counts the plain lines of `words` words that the text begins with, at most `most` of them. A line
// counts when its end (LF or CR LF) is in the text. `words` is 1 to 8.
NumberLineRun CountNumberLines(std::string_view text, std::uint64_t most, unsigned words);

// Whether the text, which has no line feed, is one plain line.
bool HoldsNumbers(std::string_view text, unsigned words);

// Appends the pairs of numbers that the plain lines of the text hold, two words a line.
void ReadNumberLines(std::string_view text, std::vector<shr::Vec2d>& points);

}  // namespace app
