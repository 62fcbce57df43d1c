// The closed shapes as rings of points, in the coordinates of their layer.
#pragma once

#include "host/zeio/TrObjects.h"

#include <array>
#include <vector>

namespace app {

// The four corners, or the outline with rounded corners, counter-clockwise. A radius beyond half
// a side counts as half of it; one that is not above 0 in both directions leaves the corners.
std::vector<shr::Vec2d> OutlineOf(const zeio::TrRectangle& rectangle);

std::vector<shr::Vec2d> OutlineOf(const zeio::TrEllipse& ellipse);

// The corners of a text's box where the text's transformation puts them. A text without a box has
// one without width and as high as the font, at its position.
struct TextFrame {
    shr::Vec2d bottomLeft;
    shr::Vec2d bottomRight;
    shr::Vec2d topLeft;
    shr::Vec2d topRight;
    bool hasBox = false;
};
TextFrame FrameOf(const zeio::TrText& text, double fontHeight);

}  // namespace app
