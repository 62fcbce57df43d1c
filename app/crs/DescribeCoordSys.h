// A coordinate system as a person reads it.
#pragma once

#include "host/gcs/CSDef.h"

#include <string>
#include <vector>

namespace app {

struct CoordSysDescription {
    std::string name;  // in words
    std::string unit;  // of the coordinates
    std::string proj;  // PROJ definition; empty when there is none
    std::string wkt2;  // empty when there is none
    int epsgCode = 0;  // 0 when there is none for sure
    std::string epsgName;
    std::vector<std::string> notes;  // warnings, or why there is no definition
};

// Null stands for a file that names no system.
CoordSysDescription DescribeCoordSys(const gcs::CSDef* system);

// The description on several lines "Label: text", each ended by a line feed; labels without a text
// are left out, WKT stands on lines of its own.
std::string TextOf(const CoordSysDescription& description);

}  // namespace app
