// The C library's formatting without the locale that a program may have set. Internal to the host
// library.
#pragma once

#include <cstddef>

namespace standalone {

// As snprintf in the "C" locale.
int FormatNarrow(char* buffer, std::size_t capacity, const char* format, ...);

}  // namespace standalone
