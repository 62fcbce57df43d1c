// Checks the rows of a .mid file.
#pragma once

#include "app/check/CharsetCheck.h"
#include "app/check/HeaderCheck.h"
#include "app/check/HeaderFacts.h"
#include "app/check/Report.h"
#include "app/mif/LineReader.h"

#include <cstdint>

namespace app::check {

// Reads all lines and answers how many rows there are; empty lines at the end are none. row is kept
// at the number of the row under check.
std::uint64_t CheckRows(LineReader& lines, Report& report, const CheckedHeader& header,
                        const CharsetTester& charset, TabRewriting rewriting, std::uint64_t& row);

}  // namespace app::check
