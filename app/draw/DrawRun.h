// Draws a picture of one or more files, one over the other.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/draw/Canvas.h"
#include "app/draw/Furniture.h"
#include "app/draw/MapFrame.h"
#include "app/draw/MapReader.h"
#include "app/feature/DrawnStyle.h"

#include <optional>
#include <string>

namespace app {

struct DrawOptions {
    MapInput map;
    std::string output;  // a path, or "-"
    PictureFormat format = PictureFormat::Svg;
    PageRequest page;
    std::optional<shr::Box2d> bbox;  // in the picture's coordinate system; absent: all there is
    shr::Color4b background{255, 255, 255};
    StyleSource styleSource = StyleSource::Objects;
    FurnitureWishes furniture;
    IfExists ifExists = IfExists::Refuse;
};

// Returns the exit code. Reads every input once. Throws Failure.
int RunDraw(const DrawOptions& options, Reporter& reporter);

}  // namespace app
