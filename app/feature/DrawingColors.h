// Colours: what a layer is drawn in when its file says nothing, and colours as users write them.
#pragma once

#include "host/shr/Color4b.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace app {

// Lines and outlines, areas, point symbols and texts of one layer.
struct LayerColors {
    shr::Color4b line;
    shr::Color4b area;
    shr::Color4b symbol;
    shr::Color4b text;
};

// The colours of a layer by its number, from 0; after the last the first follows again. Areas let
// the layers below shine through.
const LayerColors& ColorsOfLayer(std::size_t layer);

// "#rgb", "#rrggbb", "#rrggbbaa", or one of the sixteen basic names of the web, "orange", "none"
// and "transparent" in any case. Nothing for anything else.
std::optional<shr::Color4b> ParseColor(std::string_view text);

}  // namespace app
