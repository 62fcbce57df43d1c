// Checks the CoordSys clause of a header.
#pragma once

#include "app/check/HeaderFacts.h"
#include "app/check/LineReader.h"
#include "app/check/Report.h"

#include <cstdint>
#include <optional>
#include <string>

namespace app::check {

// What a projection code that the reader does not know stands for, in words; never empty.
std::string ProjectionInWords(std::int64_t code);

// The code with exactly the same meaning that the reader knows: n for 2000 + n, 8 for 34.
std::optional<std::int64_t> EqualProjection(std::int64_t code);

// The clause begins on the next line of lines; takes the lines of the clause away, but not one that
// the reader swallows with it. Sets the bounds of header.
void CheckCoordSys(LineReader& lines, Report& report, CheckedHeader& header);

}  // namespace app::check
