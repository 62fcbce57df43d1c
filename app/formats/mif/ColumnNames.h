// Column names as a MIF header can have them.
#pragma once

#include "app/feature/Values.h"
#include "app/mif/CharsetEncoder.h"

#include <span>
#include <string>
#include <vector>

namespace app {

// Returns a name for each column, UTF-8: letters of the encoder's charset, digits and "_", not
// beginning with a digit, 31 characters at most; blanks and all else become "_". A name that
// another column has in any ASCII case gets "_2", "_3", ... at its end: a changed one rather than
// one that can stay. One that is empty becomes "column_" with the column's place.
std::vector<std::string> ColumnNamesFor(std::span<const LayerColumn> columns,
                                        CharsetEncoder& encoder);

}  // namespace app
