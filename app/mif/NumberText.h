// Numbers in MIF text: what they should look like, and what the module's reader makes of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace app::check {

// Sign, digits with at most one full stop, exponent; nothing else.
bool IsDecimalNumber(std::string_view text);
// Sign and digits; nothing else.
bool IsWholeNumber(std::string_view text);
bool IsDigits(std::string_view text);

// The number that text begins with, or 0: the reader detects no fault. Too large gives infinity.
double ReaderDouble(std::string_view text);
// The whole number that text begins with, or 0; limited to the range of std::int64_t.
std::int64_t ReaderInteger(std::string_view text);

// The shortest text that reads back as the same number.
std::string NumberAsText(double number);

// Folds ASCII letters only, as the reader's comparison does.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

// text in single quotes for a message: at most 40 bytes, without control characters.
std::string Quoted(std::string_view text);

}  // namespace app::check
