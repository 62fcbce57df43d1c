#include "app/draw/Hatch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace app {

namespace {

// Lines that run along the pixels are drawn through the pixels' middle, which keeps them sharp.
constexpr double kPixelMiddle = 0.5;

}  // namespace

std::vector<HatchSegment> SegmentsThrough(const PageBox& box, const HatchLines& lines) {
    // The page's y points down, so an angle that is counter-clockwise to the eye is negative here.
    const double angle = -lines.angleDegrees * std::numbers::pi / 180.0;
    const PagePoint along{std::cos(angle), std::sin(angle)};
    const PagePoint across{-along.y, along.x};

    double nearest = std::numeric_limits<double>::infinity();
    double farthest = -nearest;
    double start = nearest;
    double end = -nearest;
    for (const PagePoint& corner :
         {PagePoint{box.left, box.top}, PagePoint{box.right, box.top},
          PagePoint{box.left, box.bottom}, PagePoint{box.right, box.bottom}}) {
        const double distance = corner.x * across.x + corner.y * across.y;
        const double position = corner.x * along.x + corner.y * along.y;
        nearest = std::min(nearest, distance);
        farthest = std::max(farthest, distance);
        start = std::min(start, position);
        end = std::max(end, position);
    }
    start -= lines.spacing;
    end += lines.spacing;

    std::vector<HatchSegment> segments;
    const double first = std::floor(nearest / lines.spacing);
    for (double number = first; number * lines.spacing <= farthest + lines.spacing; number += 1.0) {
        const double distance = number * lines.spacing + kPixelMiddle;
        segments.push_back(
            {{along.x * start + across.x * distance, along.y * start + across.y * distance},
             {along.x * end + across.x * distance, along.y * end + across.y * distance}});
    }
    return segments;
}

}  // namespace app
