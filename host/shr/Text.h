// Text: formatting and the conversion between wide text and the 8-bit text of a code page.
#pragma once

#include "host/platform/Export.h"

#include <string>

namespace shr {

// printf formatting into wide text, with the host's meaning of the formats on every system: "%s"
// takes const wchar_t*, "%hs" const char*; numbers as in C, with a full stop whatever the locale.
QOLF_HOST_API std::wstring FormatString(const wchar_t* format, ...);
QOLF_HOST_API void AppendFormatString(std::wstring& text, const wchar_t* format, ...);

// One number as narrow text by a printf format ("%d", "%.16G"). No locale.
QOLF_HOST_API std::string ToString(double value, const char* format);
QOLF_HOST_API std::string ToString(int value, const char* format);

// 8-bit text of a code page to wide text and back. Code page 0 is the host's own (Windows-1252
// unless SetCodePage0 chose another). Nothing fails: an undecodable byte of Windows-1252 becomes
// the C1 control of its number, that of another code page U+FFFD, and what a code page can't hold
// '?'.
QOLF_HOST_API std::wstring AtoW(const char* text, unsigned codePage = 0);
QOLF_HOST_API std::wstring AtoW(const std::string& text, unsigned codePage = 0);
QOLF_HOST_API std::string WtoAN(const std::wstring& text, unsigned codePage = 0);

}  // namespace shr
