// The datum of a system that PROJ knows, as one that a MIF clause can carry.
#pragma once

#include "app/crs/detail/ProjHandles.h"
#include "host/gcs/DatumDef.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace app::detail {

// Shifts in metres, rotations in arc-seconds (position-vector convention, as PROJ gives them),
// scale in parts per million.
using PositionVectorShift = std::array<double, 7>;

struct ChosenDatum {
    gcs::DatumDef datum;

    // The prime meridian that the datum doesn't carry, degrees east of Greenwich: it has to be
    // added to the longitudes of a projection.
    double leftOverMeridian = 0.0;

    std::vector<std::string> warnings;
    std::string problem;  // why there is none
};

// Takes the known datum that has the code of the geographic system (frame), else one with the same
// numbers, else makes a datum of its own from the shift. The shift is the given one (of a system
// that is bound to WGS 84), else that of the best operation to WGS 84 that needs no grid.
//
// A datum of its own can only be on one of the known ellipsoids. GRS 80 is replaced by WGS 84,
// which differs by 0.1 mm: the code of GRS 80 is 0, and that reads back as another ellipsoid.
ChosenDatum ChooseDatum(PJ_CONTEXT* context, const PJ* frame,
                        const std::optional<PositionVectorShift>& shift, bool isProjected);

}  // namespace app::detail
