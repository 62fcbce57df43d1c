// The shortest decimal text that reads back to the same double.
#pragma once

#include <cstddef>
#include <string>

namespace app {

// The most characters that WriteShortest writes.
inline constexpr std::size_t kShortestNumberSize = 32;

// Writes the same characters as std::to_chars, without a NUL, and returns their end. `out` must
// have room for kShortestNumberSize characters. Numbers of few decimals, as most coordinates are,
// take a third of the time of std::to_chars.
char* WriteShortest(char* out, double value);

// The same digits without an exponent ("500000", not "5e+05") from a millionth to 1e15, where
// people and programs expect them so; beyond that what WriteShortest writes.
char* WritePlain(char* out, double value);

// Returns what WritePlain writes.
std::string PlainText(double value);

}  // namespace app
