// The part of the pass over a header that reads a CoordSys clause.
#pragma once

#include "app/mif/FindingCounter.h"
#include "app/mif/LineReader.h"
#include "app/mif/MifHeader.h"

namespace app {

// The clause begins on the next line of `lines`. Takes its lines away, but not one that the module
// swallows with it. Sets what the header says of its system, and the bounds that the clause has.
void PassCoordSys(LineReader& lines, FindingCounter& report, MifHeader& header);

}  // namespace app
