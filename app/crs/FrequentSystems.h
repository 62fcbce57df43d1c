// The systems that most files are in, with their codes in the EPSG register. Loading PROJ and
// opening its register takes ten times as long as all else that qolf info does, and these need
// neither.
#pragma once

#include "app/crs/Clause.h"

#include <optional>
#include <string>

namespace app {

struct RegisteredSystem {
    int epsgCode = 0;
    std::string epsgName;  // as in the register
};

// Returns what Identify answers for the clause, without its WKT: for longitude and latitude on the
// known datums, the zones of UTM on the usual datums, and the systems of some countries. Nothing
// for a clause that only the register can tell.
std::optional<RegisteredSystem> FindFrequentSystem(const Clause& clause);

}  // namespace app
