// The command's one reader of numbers in MIF text. For the command; the module reads its numbers
// itself, with the same results: tests/mif/ holds the two equal.
//
// None of these look at the locale.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace app {

// Returns the number that the text begins with, behind white space and a sign: decimal,
// hexadecimal, "inf" or "nan". 0 when there is no number: the module detects no fault, either. One
// that is too large is infinite.
double ReadDouble(std::string_view text);

// Returns the whole number that the text begins with, behind white space and a sign; 0 when
// there is no number. One that is too large is the nearest std::int64_t.
std::int64_t ReadInteger(std::string_view text);

// The same, limited to the range of int, as the module takes counts and codes.
int ReadInt(std::string_view text);

// Whether the whole text is one number: a sign, digits with at most one full stop, an exponent.
bool IsDecimalNumber(std::string_view text);

// Whether the whole text is a sign and digits, or digits alone.
bool IsWholeNumber(std::string_view text);
bool IsDigits(std::string_view text);

// Whether the text is a number with a comma in place of the full stop: digits, comma, digits.
bool HasDecimalComma(std::string_view text);

// The shortest text that reads back as the same number.
std::string NumberAsText(double number);

}  // namespace app
