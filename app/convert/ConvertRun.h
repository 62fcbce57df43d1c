// Converts among MIF/MID pairs, GeoJSON and GeoPackages.
#pragma once

#include "app/base/Reporter.h"
#include "app/convert/ConvertOptions.h"

namespace app {

// Answers the exit code. Throws Failure and UsageError.
int RunConvert(const ConvertOptions& options, Reporter& reporter);

}  // namespace app
