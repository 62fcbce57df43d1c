#include "standalone/shr/Format.h"

#include "host/shr/Text.h"
#include "standalone/platform/SystemFormat.h"

#include <algorithm>
#include <cstddef>
#include <cwchar>
#include <optional>
#include <vector>

namespace shr {

namespace {

// A va_list that functions can hand on by reference on every system.
struct Arguments {
    va_list list;
};

// One conversion of a format: everything between '%' and its letter, and the letter.
struct Conversion {
    std::string flags;
    std::optional<int> width;
    std::optional<int> precision;
    std::string length;  // "", "hh", "h", "l", "ll", "j", "z", "t", "L" or "I64"
    wchar_t letter = 0;
};

std::string FormatTemplate(const Conversion& conversion, const std::string& length) {
    std::string format = "%" + conversion.flags;
    if (conversion.width) {
        format += std::to_string(*conversion.width);
    }
    if (conversion.precision) {
        format += "." + std::to_string(*conversion.precision);
    }
    return format + length + static_cast<char>(conversion.letter);
}

// value is what the conversion's letter and length say: one template for all argument types.
template <typename Value> std::wstring FormatValue(const std::string& format, Value value) {
    const int length = standalone::FormatNarrow(nullptr, 0, format.c_str(), value);
    std::vector<char> buffer(static_cast<std::size_t>(std::max(length, 0)) + 1);
    standalone::FormatNarrow(buffer.data(), buffer.size(), format.c_str(), value);
    return {buffer.begin(), buffer.end() - 1};
}

// How many bytes an integer argument has; those smaller than int arrive as int.
std::size_t IntegerSize(const std::string& length) {
    if (length == "ll" || length == "I64" || length == "j") {
        return sizeof(long long);
    }
    if (length == "z" || length == "t") {
        return sizeof(std::size_t);
    }
    return length == "l" ? sizeof(long) : sizeof(int);
}

std::wstring FormatInteger(const Conversion& conversion, Arguments& arguments) {
    if (IntegerSize(conversion.length) == sizeof(int)) {
        const std::string length = conversion.length[0] == 'h' ? conversion.length : "";
        return FormatValue(FormatTemplate(conversion, length), va_arg(arguments.list, int));
    }
    return FormatValue(FormatTemplate(conversion, "ll"), va_arg(arguments.list, long long));
}

std::wstring FormatFloating(const Conversion& conversion, Arguments& arguments) {
    if (conversion.length == "L") {
        return FormatValue(FormatTemplate(conversion, "L"), va_arg(arguments.list, long double));
    }
    return FormatValue(FormatTemplate(conversion, ""), va_arg(arguments.list, double));
}

std::wstring Padded(const Conversion& conversion, std::wstring text) {
    const auto width = static_cast<std::size_t>(conversion.width.value_or(0));
    if (text.size() < width) {
        const bool isLeft = conversion.flags.find('-') != std::string::npos;
        text.insert(isLeft ? text.size() : 0, width - text.size(), L' ');
    }
    return text;
}

// The characters up to the NUL, but at most limit: with a limit there need not be a NUL.
template <typename Character>
std::basic_string<Character> Bounded(const Character* text, std::optional<int> limit) {
    int length = 0;
    while ((!limit || length < *limit) && text[length] != 0) {
        ++length;
    }
    return {text, text + length};
}

std::wstring FormatText(const Conversion& conversion, Arguments& arguments) {
    if (conversion.length == "h") {
        const char* text = va_arg(arguments.list, const char*);
        text = text == nullptr ? "(null)" : text;
        return Padded(conversion, AtoW(Bounded(text, conversion.precision)));
    }
    const wchar_t* text = va_arg(arguments.list, const wchar_t*);
    text = text == nullptr ? L"(null)" : text;
    return Padded(conversion, Bounded(text, conversion.precision));
}

std::wstring FormatCharacter(const Conversion& conversion, Arguments& arguments) {
    const int value = va_arg(arguments.list, int);  // both kinds of character arrive as int
    if (conversion.length == "h") {
        return Padded(conversion, AtoW(std::string(1, static_cast<char>(value))));
    }
    return Padded(conversion, std::wstring(1, static_cast<wchar_t>(value)));
}

// A width or precision: digits, or '*' for an argument. Digits beyond the largest int stay there.
int ReadNumber(const wchar_t*& next, Arguments& arguments) {
    if (*next == L'*') {
        ++next;
        return va_arg(arguments.list, int);
    }
    constexpr int largest = 1'000'000;
    int number = 0;
    for (; *next >= L'0' && *next <= L'9'; ++next) {
        number = std::min(number * 10 + static_cast<int>(*next - L'0'), largest);
    }
    return number;
}

std::string ReadLength(const wchar_t*& next) {
    for (const char* candidate : {"hh", "h", "ll", "l", "j", "z", "t", "L", "I64"}) {
        const std::wstring length(candidate, candidate + std::char_traits<char>::length(candidate));
        if (std::wcsncmp(next, length.c_str(), length.size()) == 0) {
            next += length.size();
            return candidate;
        }
    }
    return {};
}

// Reads a conversion; next stands behind '%' and moves past the letter.
Conversion ReadConversion(const wchar_t*& next, Arguments& arguments) {
    Conversion conversion;
    while (*next != 0 && std::wcschr(L"-+ #0", *next) != nullptr) {
        conversion.flags += static_cast<char>(*next++);
    }
    if (*next == L'*' || (*next >= L'0' && *next <= L'9')) {
        const int width = ReadNumber(next, arguments);
        if (width < 0) {
            conversion.flags += '-';
        }
        conversion.width = width < 0 ? -std::max(width, -1'000'000) : width;
    }
    if (*next == L'.') {
        ++next;
        const int precision = ReadNumber(next, arguments);
        if (precision >= 0) {  // a negative one counts as none
            conversion.precision = precision;
        }
    }
    conversion.length = ReadLength(next);
    conversion.letter = *next;
    if (*next != 0) {
        ++next;
    }
    return conversion;
}

// The converted argument; empty when the letter names no conversion.
std::optional<std::wstring> Convert(const Conversion& conversion, Arguments& arguments) {
    switch (conversion.letter) {
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X':
        return FormatInteger(conversion, arguments);
    case L'e':
    case L'E':
    case L'f':
    case L'F':
    case L'g':
    case L'G':
    case L'a':
    case L'A':
        return FormatFloating(conversion, arguments);
    case L's':
        return FormatText(conversion, arguments);
    case L'c':
        return FormatCharacter(conversion, arguments);
    case L'p':
        return FormatValue(FormatTemplate(conversion, ""), va_arg(arguments.list, void*));
    default:
        return std::nullopt;
    }
}

template <typename Value> std::string NumberToString(Value value, const char* format) {
    const int length = standalone::FormatNarrow(nullptr, 0, format, value);
    std::string text(static_cast<std::size_t>(std::max(length, 0)) + 1, '\0');
    standalone::FormatNarrow(text.data(), text.size(), format, value);
    text.pop_back();  // the NUL
    return text;
}

}  // namespace

namespace detail {

std::wstring FormatArguments(const wchar_t* format, va_list list) {
    Arguments arguments;
    va_copy(arguments.list, list);
    std::wstring text;
    while (*format != 0) {
        if (*format != L'%') {
            text += *format++;
            continue;
        }
        if (format[1] == L'%') {
            text += L'%';
            format += 2;
            continue;
        }
        const wchar_t* start = format++;
        const Conversion conversion = ReadConversion(format, arguments);
        // What is no conversion stands as it is.
        text += Convert(conversion, arguments).value_or(std::wstring(start, format));
    }
    va_end(arguments.list);
    return text;
}

}  // namespace detail

std::wstring FormatString(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::wstring text = detail::FormatArguments(format, arguments);
    va_end(arguments);
    return text;
}

void AppendFormatString(std::wstring& text, const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    text += detail::FormatArguments(format, arguments);  // an argument may point into text
    va_end(arguments);
}

std::string ToString(double value, const char* format) {
    return NumberToString(value, format);
}

std::string ToString(int value, const char* format) {
    return NumberToString(value, format);
}

}  // namespace shr
