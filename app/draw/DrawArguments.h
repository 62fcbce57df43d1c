// qolf draw: the command line of pictures.
#pragma once

#include "app/draw/DrawRun.h"
#include "app/map/MapArguments.h"

#include <optional>

namespace app {

// The options as given on the command line.
struct DrawArguments : MapArguments {
    std::optional<int> width;  // absent: what suits the map
    std::optional<int> height;
    double margin = 12.0;
};

// Throws UsageError, which names the option, what it must be and what was found.
DrawOptions CheckedDrawOptions(const DrawArguments& arguments);

}  // namespace app
