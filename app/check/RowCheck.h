// Checks the rows of a .mid file.
#pragma once

#include "app/check/CharsetCheck.h"
#include "app/mif/FindingCounter.h"
#include "app/mif/HeaderPass.h"
#include "app/mif/LineReader.h"

#include <cstdint>

namespace app {

// Reads all lines and returns how many rows there are; empty lines at the end do not count. `row`
// is kept at the number of the row under check.
std::uint64_t CheckRows(LineReader& lines, FindingCounter& report, const MifHeader& header,
                        const CharsetTester& charset, TabRewriting rewriting, std::uint64_t& row);

}  // namespace app
