// Systems that a person or a file names: a register code, a PROJ string, WKT. Needs PROJ.
#pragma once

#include "app/base/Reporter.h"
#include "app/crs/CoordinateSystem.h"

#include <string>
#include <vector>

namespace app {

// Takes "EPSG:3301" (any authority that PROJ has), "wgs84", a PROJ string with or without
// "+type=crs", WKT 1 or 2, or PROJJSON. Of a system with heights, the horizontal part is taken,
// with a note. A text that is no horizontal system of the Earth gives an unknown system with its
// problem.
CoordinateSystem SystemOfDefinition(const std::string& definition);

// Returns the system that an option names: "--crs" and its value. Notes go to the reporter. Throws
// UsageError, with the option's name, for what is no system.
SystemPtr SystemOfOption(const std::string& option, const std::string& definition,
                         Reporter& reporter);

// Returns the names of all systems in the EPSG register that SystemOfDefinition takes and that are
// not out of date: "EPSG:2000" and so on.
std::vector<std::string> RegisteredSystems();

// Returns WKT on one line in the dialect that most programs read, WKT 1, for anything that PROJ
// takes as a system; WKT 2 where WKT 1 can't express it; empty when PROJ knows no such system.
std::string WktTextOf(const std::string& definition);

}  // namespace app
