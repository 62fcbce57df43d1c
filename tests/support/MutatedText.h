// Texts with seeded random changes, for readers that must take anything.
#pragma once

#include <random>
#include <string>
#include <string_view>

namespace support {

// A header with a clause of every kind, and one object.
extern const std::string_view kHeaderToMutate;

// The original with a few changes (bytes replaced, dropped or repeated, keywords put somewhere, an
// end), or, once in ten times, random bytes.
std::string MutatedText(std::string_view original, std::mt19937& random);

}  // namespace support
