// Clauses as definitions for PROJ.
//
// Coordinates come easting (longitude) first in every definition, whatever axis order the EPSG
// register has for the system. The datum shift is always the one that the datum's own numbers give,
// so that results depend neither on grids that are installed nor on a network.
#pragma once

#include "app/crs/Clause.h"

#include <string>

namespace app {

// All of them want a clause without a problem (ProblemOf).

// Returns the system for other programs, without the clause's affine transformation:
// "+proj=tmerc ... +type=crs". Rotations of the shift have the opposite sign of the datum's, since
// +towgs84 follows the position-vector convention.
std::string ProjCrs(const Clause& clause);

// Returns the same without the shift, to be put on a datum that has its own.
std::string ProjCrsWithoutShift(const Clause& clause);

// Returns the steps of a pipeline from the file's coordinates to longitude and latitude on the
// clause's own datum, from Greenwich in radians; the affine transformation is undone first.
std::string StepsToGeographic(const Clause& clause);

// Returns the steps from there to longitude and latitude of WGS 84 in radians; empty when the datum
// has no shift.
std::string StepsToWgs84(const Clause& clause);

// A pipeline from the file's coordinates to longitude and latitude in degrees: of WGS 84, or of the
// clause's own datum.
std::string PipelineToWgs84(const Clause& clause);
std::string PipelineToGeographic(const Clause& clause);

// Returns the central meridian, degrees from the datum's prime meridian: the longitude of origin,
// but for the Belgian cone, which turns its coordinates by a small angle.
double CentralMeridian(const Clause& clause);

// Returns how definitions for other programs place the coordinates elsewhere than the pipelines;
// empty for most projections. Those that PROJ has on a sphere alone take the major radius; Miller's
// is the one where PROJ does otherwise when it reads a definition as a system.
std::string DifferenceOfProjCrs(const Clause& clause);

}  // namespace app
