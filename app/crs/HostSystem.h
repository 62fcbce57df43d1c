// Coordinate systems of the host, as the module hands them over and takes them.
#pragma once

#include "app/crs/CoordinateSystem.h"
#include "host/gcs/CSDef.h"

#include <memory>

namespace app {

// Returns what the host's system means. Some parameters hold what real MIF files put there by the
// layout that the module gives the clause:
// - Albers (method 3): the false easting in the azimuth (14), the false northing in the false
//   easting (4). The false northing (5) is what followed the clause, and is ignored.
// - New Zealand Map Grid (29): 173 and -41 in 4 and 5. Both are ignored; the grid has constants.
// - Azimuthal equidistant (4) and equal-area (17): the latitude of origin in 10.
// Null means no system at all.
CoordinateSystem FromHost(const gcs::CSDef* system);

// Returns the system as the module writes it, with the parameters in the places above, and the
// latitude of azimuthal projections in both of its own; null for a clause that the module can't
// write: a projection at which it stops, an affine transformation.
std::unique_ptr<gcs::GCSDef> ToHost(const Clause& clause);

}  // namespace app
