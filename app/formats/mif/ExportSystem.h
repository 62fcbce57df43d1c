// Coordinate systems in the form that the export filter writes.
#pragma once

#include "host/gcs/CSDef.h"

#include <memory>

namespace app {

// Returns the system with the latitude of an azimuthal projection in both of its places, as the
// filter needs it: the clause that names it at any latitude sets one of them only.
std::unique_ptr<gcs::CSDef> ForExport(const gcs::CSDef& system);

}  // namespace app
