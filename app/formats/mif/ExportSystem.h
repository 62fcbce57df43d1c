// Coordinate systems in the form that the export filter writes.
#pragma once

#include "app/feature/LayerFacts.h"
#include "host/gcs/CSDef.h"

#include <memory>

namespace app {

// Returns the layer's system as the filter takes it; null when the layer has none that a file
// names. The layer's system must have a clause or be a plane. Throws Failure for a clause that the
// filter can't write.
std::unique_ptr<gcs::CSDef> HostSystemForExport(const LayerFacts& layer);

}  // namespace app
