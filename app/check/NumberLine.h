// Checks a line that should hold a known number of coordinates.
#pragma once

#include "app/check/Report.h"
#include "app/mif/LineReader.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app::check {

// A part of a line between blanks, with its place in the file.
struct Word {
    std::string text;
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

// The words of the line that begin at the offset from or behind it. Quotes have no meaning.
std::vector<Word> WordsOf(const MifLine& line, std::uint64_t from);

// How many numbers a line holds when decimal commas and blanks after a minus are taken as meant.
std::size_t CountNumbers(const MifLine& line, std::uint64_t from);

// Reads exactly count numbers from the offset from on, as they were meant; what could not be read
// is 0. Reports what is wrong, and offers the edits that have one right form.
std::vector<double> ReadNumbers(const MifLine& line, std::uint64_t from, std::size_t count,
                                const Place& place, Report& report);

}  // namespace app::check
