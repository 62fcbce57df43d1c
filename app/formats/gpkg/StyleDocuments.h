// The styles of a layer as other programs read them: QML, the form of QGIS, and SLD.
#pragma once

#include "app/formats/gpkg/LayerStyles.h"

#include <cstddef>
#include <string>

namespace app {

// The columns that the styles refer to.
struct StyledColumns {
    std::string style;  // the style's number
    std::string text;   // of texts: what they say, and in degrees and units of the layer how;
    std::string angle;  // empty without texts
    std::string height;
};

// Both show each feature as a picture of the map does (app/feature/DrawnStyle.h); `layer` is the
// layer's number in the package, from 0, for the colours of what has no style of its own. Widths
// and sizes are in points. SLD has no hatches: there they are a tint.
std::string QmlOf(const LayerStyles& styles, const StyledColumns& columns, std::size_t layer);
std::string SldOf(const LayerStyles& styles, const StyledColumns& columns, std::size_t layer,
                  const std::string& layerName);

}  // namespace app
