#include "app/feature/ColumnTypes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

namespace app {
namespace {

// From the narrowest: each holds the whole numbers of those before it.
enum class NumberRank { None, Logical, SmallInt, Integer, LargeInt, Decimal, Float };

NumberRank RankOf(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Logical:
        return NumberRank::Logical;
    case ColumnKind::SmallInt:
        return NumberRank::SmallInt;
    case ColumnKind::Integer:
        return NumberRank::Integer;
    case ColumnKind::LargeInt:
        return NumberRank::LargeInt;
    case ColumnKind::Decimal:
        return NumberRank::Decimal;
    case ColumnKind::Float:
        return NumberRank::Float;
    default:
        return NumberRank::None;
    }
}

// Digits before the decimal point, and a place for the sign.
int WholeDigits(const LayerColumn& column) {
    switch (column.kind) {
    case ColumnKind::Logical:
        return 1;
    case ColumnKind::SmallInt:
        return 6;
    case ColumnKind::Integer:
        return 11;
    case ColumnKind::LargeInt:
        return 20;
    default:
        return column.width - column.decimals;
    }
}

// Of two columns of which one is Decimal, and the other has a lower rank or is Decimal, too.
LayerColumn WidenedDecimal(const LayerColumn& left, const LayerColumn& right) {
    constexpr int kMostDigits = 20;  // of a Decimal column in a MIF file
    LayerColumn wider{left.name, ColumnKind::Decimal};
    wider.decimals = std::max(left.decimals, right.decimals);
    wider.width = std::max(WholeDigits(left), WholeDigits(right)) + wider.decimals;
    const auto isOpen = [](const LayerColumn& column) {
        return column.kind == ColumnKind::Decimal && column.width == 0;
    };
    if (isOpen(left) || isOpen(right)) {
        wider.width = 0;
    } else if (wider.width > kMostDigits) {
        return {left.name, ColumnKind::Float};
    }
    return wider;
}

// The longest text of a column's values; 0 when there is no limit.
int TextWidth(const LayerColumn& column) {
    constexpr int kNumber = 24;    // "-1.7976931348623157e+308"
    constexpr int kDateTime = 23;  // "2026-01-31T10:11:12.345"
    switch (column.kind) {
    case ColumnKind::Char:
        return column.width;
    case ColumnKind::Other:
        return 0;
    case ColumnKind::Date:
    case ColumnKind::Time:
    case ColumnKind::DateTime:
        return kDateTime;
    default:
        return kNumber;
    }
}

bool IsDay(ColumnKind kind) {
    return kind == ColumnKind::Date || kind == ColumnKind::DateTime;
}

std::string TextOfNumber(double number) {
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

}  // namespace

LayerColumn WidenedColumn(const LayerColumn& left, const LayerColumn& right) {
    const NumberRank leftRank = RankOf(left.kind);
    const NumberRank rightRank = RankOf(right.kind);
    if (leftRank != NumberRank::None && rightRank != NumberRank::None) {
        const NumberRank rank = std::max(leftRank, rightRank);
        if (rank == NumberRank::Decimal) {
            return WidenedDecimal(left, right);
        }
        return {left.name, leftRank == rank ? left.kind : right.kind};
    }
    if (left.kind == right.kind && left.kind != ColumnKind::Char) {
        return left;
    }
    if (IsDay(left.kind) && IsDay(right.kind)) {
        return {left.name, ColumnKind::DateTime};
    }
    LayerColumn text{left.name, ColumnKind::Char};
    const int leftWidth = TextWidth(left);
    const int rightWidth = TextWidth(right);
    text.width = leftWidth == 0 || rightWidth == 0 ? 0 : std::max(leftWidth, rightWidth);
    return text;
}

Value WidenedValue(const LayerColumn& column, Value value) {
    if (const auto* truth = std::get_if<bool>(&value)) {
        if (column.kind == ColumnKind::Char) {
            return std::string(*truth ? "true" : "false");
        }
        return column.kind == ColumnKind::Logical ? value : std::int64_t{*truth ? 1 : 0};
    }
    if (column.kind == ColumnKind::Char) {
        if (const auto* whole = std::get_if<std::int64_t>(&value)) {
            return std::to_string(*whole);
        }
        if (const auto* real = std::get_if<double>(&value)) {
            return TextOfNumber(*real);
        }
    }
    auto* text = std::get_if<std::string>(&value);
    if (column.kind == ColumnKind::DateTime && text != nullptr &&
        KindOfText(*text) == ColumnKind::Date) {
        *text += "T00:00:00";
    }
    return value;
}

}  // namespace app
