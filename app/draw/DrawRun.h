// Draws a picture of one or more MIF files, one over the other.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/draw/Canvas.h"
#include "app/draw/MapPainter.h"

#include <optional>
#include <string>
#include <vector>

namespace app {

struct DrawOptions {
    std::vector<std::string> inputs;  // from the bottom layer to the top one
    std::string output;
    PictureFormat format = PictureFormat::Svg;
    PageRequest page;
    std::optional<shr::Box2d> bbox;  // in the picture's coordinate system; none: all there is
    shr::Color4b background{255, 255, 255};
    std::string crs;  // a definition for GcsFromCrs; empty: the first layer's system
    StyleSource styleSource = StyleSource::Objects;
    IfExists ifExists = IfExists::Refuse;
    bool asIs = false;
    std::string encoding;
    std::string modulePath;
};

// The exit code. Reads every input twice, unless bbox is given: for the extent, then to draw.
// Throws Failure.
int RunDraw(const DrawOptions& options, Reporter& reporter);

}  // namespace app
