// Checks the layers of GeoJSON and GeoPackages.
#pragma once

#include "app/mif/Finding.h"
#include "app/mif/FindingCounter.h"

#include <cstdint>
#include <filesystem>

namespace app {

struct Format;

// Passes the findings on to the sink, of each code at most `maxPerCode`, and all of them for 0. A
// file that can't be read is a finding, too.
FindingCounts CheckLayers(const std::filesystem::path& file, const Format& format,
                          std::uint64_t maxPerCode, FindingSink& sink);

}  // namespace app
