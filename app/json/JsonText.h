// Writing JSON text: strings, and numbers in the shortest form that reads back to the same double.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace app {

// Appends the text as a JSON string with its quotes. Bytes that are not UTF-8 become U+FFFD, so the
// output is always valid.
void AppendJsonString(std::string& out, std::string_view utf8);

// Appends the shortest number that reads back as the same double. JSON has no numbers for the
// others: they become "nan", "inf" or "-inf" in quotes.
void AppendJsonNumber(std::string& out, double value);

// The same, without an exponent where people expect none (WritePlain).
void AppendPlainJsonNumber(std::string& out, double value);

void AppendJsonNumber(std::string& out, std::int64_t value);

}  // namespace app
