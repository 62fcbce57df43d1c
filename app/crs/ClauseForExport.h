// Systems that were named in other terms, as clauses for a MIF file. Needs PROJ.
#pragma once

#include "app/crs/CoordinateSystem.h"

#include <optional>
#include <string>
#include <vector>

namespace app {

struct ClauseForExport {
    std::optional<Clause> clause;       // absent with a problem
    std::vector<std::string> warnings;  // what the clause says in another way, or others don't read
    std::string problem;                // what MIF can't express, in a sentence without full stop

    explicit operator bool() const { return clause.has_value(); }
};

// Returns the clause of an Earth system: the one that it came from, else one that places the same
// coordinates at the same places of the same datum:
// - one-parallel cones with a scale factor become cones with two parallels, polar stereographic
//   projections with a parallel of true scale get the scale factor at the pole, oblique Mercator
//   projections with their origin at the centre get the natural origin, Mercator projections with a
//   scale factor or a parallel become regional ones;
// - a false origin that the projection has no place for becomes an affine transformation;
// - a prime meridian other than the datum's goes into the longitudes;
// - a datum of the NAD83 family is NAD83, others without a code have their own numbers.
// Coordinates go easting first, whatever axis order the system has.
ClauseForExport ClauseOf(const CoordinateSystem& system);

// Returns the EPSG codes of the methods whose conversions can be expressed by a clause with this
// projection, or with one that does the same.
std::vector<int> EpsgMethodsOf(const Projection& projection);

}  // namespace app
