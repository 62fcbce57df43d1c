// The style properties that maps of the web have: marker-color, marker-size, marker-symbol, stroke,
// stroke-width, stroke-opacity, fill, fill-opacity.
#pragma once

#include "app/feature/Feature.h"

#include <nlohmann/json_fwd.hpp>

#include <string_view>

namespace app {

// Whether a property is one of them.
bool IsStyleProperty(std::string_view name);

// Sets the styles of the feature's geometry and members: the symbol of points, the pen of lines and
// areas, the brush of areas, each when a property says something of it. What is not said of it is
// as web maps draw it: grey, two pixels wide; and solid. Properties that can't be understood are
// passed over.
void SetStyles(const nlohmann::ordered_json& properties, Feature& feature);

// The value of marker-size: "small" below 10 points, "medium" below 15, else "large".
std::string_view MarkerSizeOf(const Symbol& symbol);

// The value of marker-symbol: "square", "diamond", "circle", "star", "triangle" or "cross", those
// of hollow shapes with "-stroked" behind. "circle" for all other symbols.
std::string_view MarkerSymbolOf(const Symbol& symbol);

}  // namespace app
