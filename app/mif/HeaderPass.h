// One pass over the header of a .mif file, up to and with the Data line: what it means, and what
// the module would make of it.
#pragma once

#include "app/mif/FindingCounter.h"
#include "app/mif/LineReader.h"
#include "app/mif/MifHeader.h"

namespace app {

// On: the repairs turn tab-separated rows into comma-separated ones, the header's part included.
enum class TabRewriting { Off, On };

// Reads from the first line of `lines`. header.hasData is false when the file, or its first
// mebibyte, ends before a Data line. The header is filled as the clauses come, so that a line seen
// later can be tested against it.
void PassHeader(LineReader& lines, FindingCounter& report, TabRewriting rewriting,
                MifHeader& header);

}  // namespace app
