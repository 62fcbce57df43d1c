// How a coordinate system is known in the EPSG register and in WKT. Needs PROJ.
#pragma once

#include "app/crs/CoordinateSystem.h"

#include <string>

namespace app {

struct CrsIdentity {
    std::string wkt2;      // WKT2:2019 on several lines, easting first; empty when PROJ makes none
    int epsgCode = 0;      // 0 when there is none for sure
    std::string epsgName;  // the register's name of that code
};

// Returns how the system is known elsewhere. A clause is an entry of the register when both give
// the same coordinates to a centimetre over the entry's area, axis order aside, and
// - the datum is that of the entry by name, or
// - both lead to WGS 84 by the same numbers, to a centimetre over the area, or
// - the datum's name is that of a family which the entry's belongs to: CH1903 and CH1903+.
// The first of these that any entry meets decides; among its entries, one whose axes are not the
// swapped variant of another's, then one on WGS 84, ETRS89 or NAD83, in this order, then the lowest
// code: the oldest, and the most used.
// Empty for what is not on the Earth, and for coordinates behind an affine transformation.
CrsIdentity Identify(const CoordinateSystem& system);

}  // namespace app
