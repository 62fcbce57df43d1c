// The shortest decimal text that reads back to the same double.
#pragma once

#include <cstddef>

namespace app {

// No number is longer.
inline constexpr std::size_t kShortestNumberSize = 32;

// Writes what std::to_chars writes, to the character, and gives the end of it. There must be room
// for kShortestNumberSize characters. Numbers of few decimals, as coordinates mostly are, take a
// third of the time.
char* WriteShortest(char* out, double value);

// The same digits without an exponent ("500000", not "5e+05") from a millionth to 1e15, where
// people and programs expect them so; beyond that what WriteShortest writes.
char* WritePlain(char* out, double value);

}  // namespace app
