// The attributes of features: typed values, and the columns that they belong to.
#pragma once

#include "app/mif/Columns.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace app {

// A value is null, text (valid UTF-8), a whole number, a number or a truth value.
using Value = std::variant<std::monostate, std::string, std::int64_t, double, bool>;

// A column of a layer.
struct LayerColumn {
    std::string name = {};  // UTF-8
    ColumnKind kind = ColumnKind::Char;
    int width = 0;     // Char: characters, Decimal: digits; 0 when not stated
    int decimals = 0;  // Decimal: digits behind the point
};

// Returns the kind of an ISO text: Date, Time or DateTime ("2026-01-31T10:11:12.345", with or
// without a Z at its end, at most milliseconds); Char for another text.
ColumnKind KindOfText(std::string_view text);

// Returns the text of a value in the type of its column: numbers for the numeric kinds, true and
// false for Logical, ISO dates and times. A text that is not such a value stays text, as does a
// whole or Decimal number with digits that neither 64 bits nor a double hold; an empty one of a
// typed column is null.
Value TypedValue(const LayerColumn& column, std::string text);

}  // namespace app
