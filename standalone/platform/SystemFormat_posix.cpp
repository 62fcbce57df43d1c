#include "standalone/platform/SystemFormat.h"

#include "host/shr/IError.h"
#include "standalone/Text.h"

#include <clocale>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <locale.h>

namespace standalone {

namespace {

// Lives as long as the process: a number may be formatted in a static's destructor.
locale_t PlainLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

}  // namespace

int FormatNarrow(char* buffer, std::size_t capacity, const char* format, ...) {
    const locale_t previous = uselocale(PlainLocale());
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, capacity, format, arguments);
    va_end(arguments);
    uselocale(previous);
    return length;
}

}  // namespace standalone

namespace shr {

std::wstring FormatSystemErrorMsg(int errorNumber) {
    return standalone::Widen(strerror_l(errorNumber, standalone::PlainLocale()));
}

}  // namespace shr
