// Wide formatting for a caller that has its arguments as a list. Internal to the host library.
#pragma once

#include <cstdarg>
#include <string>

namespace shr::detail {

// What shr::FormatString gives for the same arguments, which are used up.
std::wstring FormatArguments(const wchar_t* format, va_list arguments);

}  // namespace shr::detail
