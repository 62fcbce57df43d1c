// For the module, quirk for quirk: numbers in MIF text. Nowhere else in the module does text become
// a number.
//
// None of these look at the locale: a host that has set a decimal comma changes nothing.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mif {

// The double that the C library's atof gives in the C locale, bit for bit: the longest prefix that
// is a number (decimal, hexadecimal, "inf", "nan"), after leading white space and a sign; 0 when
// there is none. Too large a number is infinite, too small a one 0, each with its sign. The text
// ends at a NUL. The payload of a "nan(…)" is not kept.
double ReadDouble(std::string_view text);

// The int that atoi gives: the longest decimal prefix after white space and a sign, 0 when there
// is none. A number beyond the range of int becomes the nearest int.
int ReadInt(std::string_view text);

// A buffer of this size holds any double in the %.18G form, without a NUL.
inline constexpr std::size_t kDouble18GSize = 32;

// Writes what printf("%.18G") prints (with glibc: -0, INF, NAN and -NAN included) to out, which has
// room for kDouble18GSize characters. Returns the end of the text; no NUL is written.
char* WriteDouble18G(char* out, double value);
void AppendDouble18G(std::string& text, double value);

// The other forms that MIF text uses: %.16g, %.16G and %20.10f.
void AppendDouble16g(std::string& text, double value);
void AppendDouble16G(std::string& text, double value);
void AppendDouble20f(std::string& text, double value);

}  // namespace mif
