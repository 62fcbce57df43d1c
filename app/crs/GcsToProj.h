// Coordinate systems of the host as definitions for PROJ.
//
// Coordinates come easting (longitude) first in every definition, whatever axis order the EPSG
// register has for the system. The datum shift is always the one that the datum's own parameters
// give, so that results depend neither on grids that are installed nor on a network.
#pragma once

#include "host/gcs/CSDef.h"

#include <string>
#include <vector>

namespace app {

struct ProjDefinition {
    // The system for other programs: "+proj=tmerc ... +type=crs". Rotations of the shift have the
    // opposite sign of the datum's, since +towgs84 follows the position-vector convention.
    std::string crs;

    // The same without the shift, to be put on a datum that has its own.
    std::string crsWithoutShift;

    // A pipeline from the file's coordinates to longitude and latitude of WGS 84 in degrees.
    std::string toWgs84;

    // What a user should know about the result: an assumed datum, a number that was ignored.
    std::vector<std::string> warnings;

    // Why there is no definition; empty when there is one.
    std::string problem;

    bool isGeographic = false;  // coordinates are degrees, not lengths

    explicit operator bool() const { return problem.empty(); }
};

// A system without a known datum is taken as WGS 84, with a warning. A plane system, and one whose
// projection is faulty or has no counterpart in PROJ, has a problem and no definition.
//
// Some parameters hold what real MIF files put there by the layout of the clause:
// - Albers (3): false easting in the azimuth (14), false northing in the false easting (4). The
//   false northing (5) is what followed the clause, and is ignored.
// - New Zealand Map Grid (29): 173 and -41 in 4 and 5. Both are ignored; the grid has constants.
// - Azimuthal equidistant (4) and equal-area (17): the latitude of origin in 10.
//
// Projections that PROJ has on a sphere alone take the major radius. Miller (18) is the one where
// PROJ does otherwise when it reads crs as a system, so toWgs84 and crs differ, with a warning.
ProjDefinition ToProj(const gcs::CSDef& system);

// "World Geodetic System 1984 (WGS 84) / Transverse Mercator"; "Nonearth" for a plane.
std::string NameInWords(const gcs::CSDef& system);

// The unit of the coordinates: "degree", "m", "survey ft", or "1/3.5 m" (units per metre).
std::string UnitInWords(const gcs::CSDef& system);

}  // namespace app
