// Which column holds the values of two others.
#pragma once

#include "app/feature/Values.h"

namespace app {

// Returns the narrowest column that holds all values of both, with the name of the first: whole
// numbers become wider ones, or Decimal, or Float; dates become DateTime; what has nothing in
// common becomes Char.
LayerColumn WidenedColumn(const LayerColumn& left, const LayerColumn& right);

// Returns the value in the terms of a wider column: a number or a truth value of a Char column as
// text, a truth value of a number column as 1 or 0, a date of a DateTime column with its midnight.
// Other values stay.
Value WidenedValue(const LayerColumn& column, Value value);

}  // namespace app
