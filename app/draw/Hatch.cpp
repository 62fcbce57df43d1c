#include "app/draw/Hatch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace app {

namespace {

using Pattern = zeio::TrBrush::Pattern;

constexpr double kSpacing = 8.0;
constexpr double kDotSpacing = 5.0;
constexpr double kLineWidth = 1.0;
constexpr double kDotWidth = 1.6;

constexpr HatchLines kDots[] = {{0.0, kDotSpacing, kDotWidth, true}};
constexpr HatchLines kHorizontal[] = {{0.0, kSpacing, kLineWidth, false}};
constexpr HatchLines kVertical[] = {{90.0, kSpacing, kLineWidth, false}};
constexpr HatchLines kRising[] = {{45.0, kSpacing, kLineWidth, false}};
constexpr HatchLines kFalling[] = {{-45.0, kSpacing, kLineWidth, false}};
constexpr HatchLines kCross[] = {{0.0, kSpacing, kLineWidth, false},
                                 {90.0, kSpacing, kLineWidth, false}};
constexpr HatchLines kDiagonalCross[] = {{45.0, kSpacing, kLineWidth, false},
                                         {-45.0, kSpacing, kLineWidth, false}};

// clang-format off
const HatchPattern kPatterns[] = {
    {Pattern::None,             AreaFill::None,  0.0,  {}},
    {Pattern::Solid,            AreaFill::Solid, 1.0,  {}},
    {Pattern::Pattern3,         AreaFill::Lines, 1.0,  kDots},
    {Pattern::Pattern4,         AreaFill::Tint,  0.25, {}},
    {Pattern::Pattern5,         AreaFill::Tint,  0.5,  {}},
    {Pattern::Pattern6,         AreaFill::Tint,  0.75, {}},
    {Pattern::Horizontal,       AreaFill::Lines, 1.0,  kHorizontal},
    {Pattern::Vertical,         AreaFill::Lines, 1.0,  kVertical},
    {Pattern::BackwardDiagonal, AreaFill::Lines, 1.0,  kRising},
    {Pattern::ForwardDiagonal,  AreaFill::Lines, 1.0,  kFalling},
    {Pattern::Cross,            AreaFill::Lines, 1.0,  kCross},
    {Pattern::DiagonalCross,    AreaFill::Lines, 1.0,  kDiagonalCross},
};
// clang-format on

// Lines that run along the pixels are drawn through the pixels' middle, which keeps them sharp.
constexpr double kPixelMiddle = 0.5;

}  // namespace

const HatchPattern& HatchPatternOf(Pattern pattern) {
    for (const HatchPattern& row : kPatterns) {
        if (row.pattern == pattern) {
            return row;
        }
    }
    return HatchPatternOf(Pattern::Solid);
}

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
    // Dots start at a multiple of their spacing, for the same reason as the lines themselves.
    start = (std::floor(start / lines.spacing) - 1.0) * lines.spacing;
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
