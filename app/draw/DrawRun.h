// Draws a picture of one or more files, one over the other.
#pragma once

#include "app/base/Reporter.h"
#include "app/draw/Canvas.h"
#include "app/draw/Furniture.h"
#include "app/draw/MapFrame.h"
#include "app/map/MapArguments.h"

namespace app {

struct DrawOptions : MapRequest {
    PictureFormat format = PictureFormat::Svg;
    PageRequest page;
    FurnitureWishes furniture;
};

// Returns the exit code. Reads every input once. Throws Failure.
int RunDraw(const DrawOptions& options, Reporter& reporter);

}  // namespace app
