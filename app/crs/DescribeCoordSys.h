// A coordinate system as a person reads it.
#pragma once

#include "app/crs/CrsIdentity.h"

#include <functional>
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
    std::vector<std::string> notes;  // notes, warnings, and why there is no definition
};

// Tells how a system is known elsewhere: Identify, or what comes closest.
using CrsIdentifier = std::function<CrsIdentity(const CoordinateSystem& system)>;

// Null means a file that names no system. Only a system of the Earth is identified.
CoordSysDescription DescribeCoordSys(const CoordinateSystem* system, const CrsIdentifier& identify);

// The description on several lines "Label: text", each ended by a line feed; labels without a text
// are left out, WKT gets lines of its own.
std::string TextOf(const CoordSysDescription& description);

}  // namespace app
