// Where a text lies: the corners that its height and angle follow from.
#pragma once

#include "app/feature/Feature.h"

namespace app {

// Replaces the points of a Text by these, in the coordinates of its layer, so that a transformation
// of points moves, turns and scales the text as well:
//   0 the lower left corner, 1 the lower right one, 2 the upper left one, and
//   3 the end of the line to what the text names, when it has one.
// A text without a box has one as wide as it is high; its width says nothing then.
void SetTextFrame(Geometry& text);

// The box around a text that has its frame, and around what it names. The width of a text without
// a box is guessed.
shr::Box2d TextExtent(const Geometry& text);

}  // namespace app
