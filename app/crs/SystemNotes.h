// What is to be said of a layer's system before its coordinates are used.
#pragma once

#include "app/base/Reporter.h"
#include "app/crs/CoordinateSystem.h"

#include <string>

namespace app {

// Gives the reporter each note and each warning of the system, with `prefix` in front ("a.mif: ").
void SayNotes(const CoordinateSystem& system, const std::string& prefix, Reporter& reporter);

}  // namespace app
