// Checks the CoordSys clause of a header.
#pragma once

#include "app/check/HeaderFacts.h"
#include "app/check/Report.h"
#include "app/mif/LineReader.h"

namespace app::check {

// The clause begins on the next line of lines; takes the lines of the clause away, but not one that
// the reader swallows with it. Sets the bounds of header.
void CheckCoordSys(LineReader& lines, Report& report, CheckedHeader& header);

}  // namespace app::check
