// Writes a coordinate system as a MIF coordinate-system clause, over the same reference tables
// that the reader uses.
#pragma once

#include "host/gcs/CSDef.h"

#include <string>

namespace mif {

inline constexpr unsigned kFirstVersion = 300;  // of MIF: the least that an export declares

// Replaces out by the clause, and minVersion by the first MIF version (kFirstVersion and up) that
// has all of its codes. out is empty when cs is null or MIF has no way to express it: the caller
// decides what to do then.
//
// inlineForm is the form of other clauses, which names its units at the end; else the header's.
void WriteCoordSys(const gcs::CSDef* cs, std::string& out, unsigned& minVersion, bool inlineForm);

// The quoted MIF name of a linear unit given as units per metre; a unit without a name is the
// quoted number.
std::string UnitName(double unitsPerMetre);

}  // namespace mif
