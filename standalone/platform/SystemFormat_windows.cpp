#include "standalone/platform/SystemFormat.h"

#include "host/shr/IError.h"
#include "standalone/Text.h"

#include <algorithm>
#include <clocale>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

namespace standalone {

// The compiler's own formatting, which writes every digit of a number that is asked for; the
// system's stops after 17. It looks at the program's locale, but for the decimal point only.
int FormatNarrow(char* buffer, std::size_t capacity, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    va_end(arguments);

    const std::string decimalPoint = std::localeconv()->decimal_point;
    const std::size_t position = decimalPoint == "." ? std::string::npos : text.find(decimalPoint);
    if (position != std::string::npos) {
        text.replace(position, decimalPoint.size(), ".");
    }
    if (capacity > 0) {
        const std::size_t copied = text.copy(buffer, capacity - 1);
        buffer[copied] = '\0';
    }
    return length < 0 ? length : static_cast<int>(text.size());
}

}  // namespace standalone

namespace shr {

std::wstring FormatSystemErrorMsg(int errorNumber) {
    return standalone::Widen(std::strerror(errorNumber));
}

}  // namespace shr
