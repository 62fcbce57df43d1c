// The systems that most files are in, with their codes in the EPSG register: longitude and latitude
// on the known datums, and the zones of UTM on WGS 84. Loading PROJ and opening its register takes
// ten times as long as all else that qolf info does, and these need neither.
#pragma once

#include "host/gcs/CSDef.h"

#include <optional>
#include <string>

namespace app {

struct RegisteredSystem {
    int epsgCode = 0;
    std::string epsgName;  // as in the register
};

// What Identify answers for the system, without its WKT. Nothing for a system that only the
// register can tell.
std::optional<RegisteredSystem> FindFrequentSystem(const gcs::CSDef& system);

}  // namespace app
