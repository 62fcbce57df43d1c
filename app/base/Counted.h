// Counts in messages.
#pragma once

#include <cstdint>
#include <string>

namespace app {

// Returns the count with the word that fits it: "1 vertex", "3 vertices".
std::string Counted(std::uint64_t count, const std::string& one, const std::string& many);

}  // namespace app
