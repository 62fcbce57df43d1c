// The outline of a symbol font's character: a page is read where that font may be missing.
#pragma once

#include "app/feature/DrawnStyle.h"

#include <vector>

namespace app {

// The rings of the character's ink around its middle, filled by the non-zero rule; y points down,
// and a length of 1 is half of the font's size. Empty when the font has nothing to draw.
std::vector<std::vector<shr::Vec2d>> GlyphOutline(const Marker& marker);

}  // namespace app
