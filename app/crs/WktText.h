// WKT in the dialect that most programs read.
#pragma once

#include <string>

namespace app {

// A system as WKT 1 on one line, given as anything that PROJ takes ("EPSG:3301", WKT 2). WKT 2
// where WKT 1 can't express the system; empty when PROJ knows no such system.
std::string WktTextOf(const std::string& definition);

}  // namespace app
