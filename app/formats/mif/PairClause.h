// The CoordSys clause of a pair.
#pragma once

#include "app/feature/LayerFacts.h"
#include "app/formats/mif/PairHeader.h"

#include <string>

namespace app {

struct PairClause {
    std::string text;  // without the line end at its end; "" for none
    BoundsPlace boundsPlace = BoundsPlace::Nowhere;
    int version = 300;  // the lowest that has the clause
};

// Returns the clause for a layer: that of the source as it is written there, else one for the
// system; a plane in metres for a layer of which nothing is known. A system of the Earth must have
// a clause.
PairClause ClauseFor(const LayerFacts& layer);

}  // namespace app
