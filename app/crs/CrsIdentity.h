// How a coordinate system is known in the EPSG register and in WKT. Needs PROJ.
#pragma once

#include "host/gcs/CSDef.h"

#include <string>

namespace app {

struct CrsIdentity {
    std::string wkt2;      // WKT2:2019 on several lines; empty when PROJ makes none
    int epsgCode = 0;      // 0 when there is none for sure
    std::string epsgName;  // the register's name of that code
};

// How the system is known elsewhere. PROJ compares it with the EPSG register, on the register's
// own datum when the known datum has one with the same ellipsoid; the code counts as sure when
// PROJ's confidence is 90 of 100 or more (equal definition, other name), or when the register has
// exactly one equal definition. Empty for what ToProj has no definition of.
CrsIdentity Identify(const gcs::CSDef& system);

}  // namespace app
