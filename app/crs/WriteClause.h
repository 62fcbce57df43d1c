// Clauses as text for a MIF file.
#pragma once

#include "app/crs/Clause.h"

#include <string>

namespace app {

struct ClauseText {
    std::string text;     // "CoordSys Earth Projection 8, 104, ...", one line without line end
    int fromVersion = 0;  // of the format: the lowest that has all that the clause uses
};

// Writes a clause that ReadClause reads back as the same system. The code of
// azimuthal projections is that of the polar aspect where the centre is a pole, else the one for
// any latitude.
ClauseText WriteClause(const Clause& clause);

// "CoordSys NonEarth Units ..."
ClauseText WritePlaneClause(double metresPerUnit);

}  // namespace app
