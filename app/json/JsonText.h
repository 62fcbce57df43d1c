// Writing JSON text: strings, and numbers in the shortest form that reads back to the same double.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace app {

// Appends a JSON string. Invalid UTF-8 becomes U+FFFD, so that the output is always valid.
void AppendJsonString(std::string& out, std::string_view utf8);

// Appends the shortest number. What JSON has no number for becomes "nan", "inf" or "-inf" in
// quotes.
void AppendJsonNumber(std::string& out, double value);

void AppendJsonNumber(std::string& out, std::int64_t value);

}  // namespace app
