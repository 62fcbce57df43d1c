// A system of the EPSG register, a PROJ definition or WKT as a system for a MIF file.
#pragma once

#include "host/gcs/CSDef.h"

#include <memory>
#include <string>
#include <vector>

namespace app {

struct CrsForExport {
    std::unique_ptr<gcs::GCSDef> system;  // null with a problem
    std::string name;                     // PROJ's name of the definition
    std::vector<std::string> warnings;    // what the clause says in another way
    std::string problem;                  // what MIF can't express, in a sentence without full stop

    explicit operator bool() const { return system != nullptr; }
};

// Takes "EPSG:3301" (any authority that PROJ has), a PROJ string with or without "+type=crs", or
// WKT 1 or 2. The result is what a COORDSYS clause can hold and what the same clause reads back as
// where the clause allows it:
// - the unit is units per metre, false easting and northing are in that unit;
// - an Albers projection has its false origin in parameters 14 and 4, as its clauses have it;
// - azimuthal equidistant and equal-area projections have the latitude in 9 and 10;
// - a New Zealand Map Grid has 173 and -41 in 4 and 5, which is how its clauses begin;
// - one-parallel cones with a scale factor become cones with two parallels, polar stereographic
//   projections with a parallel of true scale get the scale factor at the pole, and oblique
//   Mercator projections with their origin at the centre get the natural origin;
// - a prime meridian other than the datum's goes into the longitudes.
// Coordinates go easting first, whatever axis order the system has.
CrsForExport GcsFromCrs(const std::string& definition);

}  // namespace app
