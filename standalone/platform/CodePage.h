// The system's conversion between wide text and a named code page. Internal to the host library.
#pragma once

#include <string>
#include <string_view>

namespace standalone {

// True when the system can convert both ways.
bool HasCodePage(const std::string& name);

// A byte that can't be decoded becomes U+FFFD. Without such a code page every byte above 0x7F does.
std::wstring DecodeCodePage(const std::string& name, std::string_view bytes);

// A character that the code page does not have becomes '?'. Without such a code page every
// character above 0x7F does.
std::string EncodeCodePage(const std::string& name, std::wstring_view text);

}  // namespace standalone
