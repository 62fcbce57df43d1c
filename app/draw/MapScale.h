// How long a pixel of a map is on the ground.
#pragma once

#include "app/draw/Viewport.h"
#include "app/map/LayerSystems.h"

#include <optional>

namespace app {

// Metres along the middle of the page; absent when the unit of the coordinates is not known, or the
// place is not on the Earth. `system` is the map's, null when it has none.
std::optional<double> MetresPerPixel(const CoordinateSystem* system, const Viewport& viewport);

}  // namespace app
