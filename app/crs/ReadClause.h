// What a CoordSys clause means, as its author meant it.
#pragma once

#include "app/crs/CoordinateSystem.h"
#include "app/mif/FindingCodes.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// Reads a clause; its keyword CoordSys in front may be missing. What the module reads in another
// way comes with a note or a warning:
// - codes of projections that the module doesn't know, thousands of codes, Affine;
// - units by any name or number of the format;
// - six numbers of Albers (9), and seven where the fifth is an azimuth of 0; four of the New
//   Zealand Map Grid (18); the range of azimuthal projections, which moves no coordinate;
// - ellipsoid 0 of a datum with its own numbers: GRS 80.
// Bounds are not looked at. An unknown datum is WGS 84, with a warning. Numbers that are missing
// count as 0. A clause that can't be understood is an unknown system with its problem; it never
// throws.
CoordinateSystem ReadClause(std::string_view text);

// Returns the lowest version of the format that has all that the clause uses; nothing when it uses
// codes whose version is not known.
std::optional<int> VersionOfClause(std::string_view text);

// What ReadClause could not take as it stands in a clause: the system's warnings and its problem.
struct ClauseFault {
    FindingCode code;        // of the same part of the clause
    std::string text;        // what is taken instead, or why the system is unknown
    bool isProblem = false;  // of the whole system
};

// Returns the faults of the clause in the order of its parts; empty for one that is understood.
std::vector<ClauseFault> FaultsOfClause(std::string_view text);

}  // namespace app
