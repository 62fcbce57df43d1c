#include "app/feature/Values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>

namespace app {
namespace {

std::string_view Trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Reads the whole text as a number. Returns false when something is left over or out of range.
template <typename Number> bool ParseAll(std::string_view text, Number& value) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool AllDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Returns "20240131" as "2024-01-31"; "" for a text of another form.
std::string IsoDate(std::string_view text) {
    if (text.size() != 8 || !AllDigits(text)) {
        return {};
    }
    return std::string(text.substr(0, 4)) + "-" + std::string(text.substr(4, 2)) + "-" +
           std::string(text.substr(6, 2));
}

// Returns "235959" or "235959999" (hours to milliseconds) as "23:59:59" or "23:59:59.999"; "" for a
// text of another form.
std::string IsoTime(std::string_view text) {
    if ((text.size() != 6 && text.size() != 9) || !AllDigits(text)) {
        return {};
    }
    std::string time = std::string(text.substr(0, 2)) + ":" + std::string(text.substr(2, 2)) + ":" +
                       std::string(text.substr(4, 2));
    if (text.size() == 9) {
        time += "." + std::string(text.substr(6, 3));
    }
    return time;
}

std::string IsoDateTime(std::string_view text) {
    const std::string date = text.size() >= 8 ? IsoDate(text.substr(0, 8)) : std::string();
    const std::string time = text.size() > 8 ? IsoTime(text.substr(8)) : std::string();
    return date.empty() || time.empty() ? std::string() : date + "T" + time;
}

Value TextOr(std::string converted, const std::string& text) {
    return converted.empty() ? Value(text) : Value(std::move(converted));
}

Value LogicalValue(std::string text) {
    const std::string_view trimmed = Trimmed(text);
    if (trimmed.size() == 1) {
        switch (trimmed.front()) {
        case 'T':
        case 't':
        case 'Y':
        case 'y':
        case '1':
            return true;
        case 'F':
        case 'f':
        case 'N':
        case 'n':
        case '0':
            return false;
        default:
            break;
        }
    }
    return text;
}

// The digits of a decimal number from the first to the last that is not 0, without its exponent.
std::string SignificantDigits(std::string_view number) {
    std::string digits;
    for (const char c : number.substr(0, number.find_first_of("eE"))) {
        if (c >= '0' && c <= '9' && (c != '0' || !digits.empty())) {
            digits += c;
        }
    }
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits;
}

// Whether a double has all digits of the text that it was read from. Many programs print doubles
// with 16 or 17 digits: 49.410499999999999 is 49.4105.
bool HasAllDigits(double real, std::string_view text) {
    constexpr std::size_t kAlwaysHeld = 15;
    constexpr std::size_t kMost = std::numeric_limits<double>::max_digits10;
    const std::string digits = SignificantDigits(text);
    if (digits.size() <= kAlwaysHeld || digits.size() > kMost) {
        return digits.size() <= kAlwaysHeld;
    }
    std::array<char, 32> printed{};
    const auto result =
        std::to_chars(printed.data(), printed.data() + printed.size(), real,
                      std::chars_format::scientific, static_cast<int>(digits.size()) - 1);
    return digits == SignificantDigits(
                         {printed.data(), static_cast<std::size_t>(result.ptr - printed.data())});
}

Value WholeValue(std::string text) {
    std::int64_t whole = 0;
    double real = 0.0;
    if (ParseAll(Trimmed(text), whole)) {
        return whole;
    }
    if (ParseAll(Trimmed(text), real) && std::isfinite(real) && HasAllDigits(real, Trimmed(text))) {
        return real;
    }
    return text;
}

Value RealValue(std::string text) {
    double real = 0.0;
    if (ParseAll(Trimmed(text), real) && std::isfinite(real)) {
        return real;
    }
    return text;
}

// Decimal values are exact in their files: they stay text where a double would lose digits.
Value DecimalValue(std::string text) {
    std::int64_t whole = 0;
    double real = 0.0;
    if (!ParseAll(Trimmed(text), real) || !std::isfinite(real)) {
        return text;
    }
    if (HasAllDigits(real, Trimmed(text))) {
        return real;
    }
    return ParseAll(Trimmed(text), whole) ? Value(whole) : Value(std::move(text));
}

constexpr std::string_view kDateForm = "0000-00-00";

// Whether the text is the form with any digits in place of its zeros.
bool HasForm(std::string_view text, std::string_view form) {
    return text.size() == form.size() &&
           std::equal(text.begin(), text.end(), form.begin(), [](char c, char wanted) {
               return wanted == '0' ? c >= '0' && c <= '9' : c == wanted;
           });
}

// Whether two digits are a number up to `most`.
bool IsUpTo(std::string_view digits, int most) {
    return (digits[0] - '0') * 10 + (digits[1] - '0') <= most;
}

// Of a text that begins with a date's form.
bool IsDate(std::string_view text) {
    const std::string_view month = text.substr(5, 2);
    const std::string_view day = text.substr(8, 2);
    return month != "00" && IsUpTo(month, 12) && day != "00" && IsUpTo(day, 31);
}

bool IsTime(std::string_view text) {
    constexpr std::string_view kForm = "00:00:00";
    if (!HasForm(text.substr(0, kForm.size()), kForm) || !IsUpTo(text, 23) ||
        !IsUpTo(text.substr(3), 59) || !IsUpTo(text.substr(6), 59)) {
        return false;
    }
    const std::string_view fraction = text.substr(kForm.size());
    return fraction.empty() || HasForm(fraction, ".0") || HasForm(fraction, ".00") ||
           HasForm(fraction, ".000");
}

}  // namespace

ColumnKind KindOfText(std::string_view text) {
    const bool isDate = HasForm(text.substr(0, kDateForm.size()), kDateForm) && IsDate(text);
    if (isDate && text.size() == kDateForm.size()) {
        return ColumnKind::Date;
    }
    if (!isDate) {
        return IsTime(text) ? ColumnKind::Time : ColumnKind::Char;
    }
    std::string_view time = text.substr(kDateForm.size());
    if (!time.starts_with('T')) {
        return ColumnKind::Char;
    }
    time.remove_prefix(1);
    time.remove_suffix(time.ends_with('Z') ? 1 : 0);
    return IsTime(time) ? ColumnKind::DateTime : ColumnKind::Char;
}

Value TypedValue(const LayerColumn& column, std::string text) {
    if (column.kind == ColumnKind::Char || column.kind == ColumnKind::Other) {
        return text;
    }
    if (Trimmed(text).empty()) {
        return std::monostate();
    }
    switch (column.kind) {
    case ColumnKind::Integer:
    case ColumnKind::SmallInt:
    case ColumnKind::LargeInt:
        return WholeValue(std::move(text));
    case ColumnKind::Decimal:
        return DecimalValue(std::move(text));
    case ColumnKind::Float:
        return RealValue(std::move(text));
    case ColumnKind::Logical:
        return LogicalValue(std::move(text));
    case ColumnKind::Date:
        return TextOr(IsoDate(Trimmed(text)), text);
    case ColumnKind::Time:
        return TextOr(IsoTime(Trimmed(text)), text);
    case ColumnKind::DateTime:
        return TextOr(IsoDateTime(Trimmed(text)), text);
    default:
        return text;
    }
}

}  // namespace app
