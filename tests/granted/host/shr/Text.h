// Formatting and conversion; the code page is always stated.
#pragma once

#include <string>

namespace shr {

std::wstring FormatString(const wchar_t* format, ...);
void AppendFormatString(std::wstring& text, const wchar_t* format, ...);
std::string ToString(double value, const char* format);
std::wstring AtoW(const std::string& text, unsigned codePage);
std::string WtoAN(const std::wstring& text, unsigned codePage);

}  // namespace shr
