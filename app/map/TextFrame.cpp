#include "app/map/TextFrame.h"

#include "app/feature/LabelText.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace app {

namespace {

// A usual letter's width in heights of the text.
constexpr double kLetterWidth = 0.6;

// The frame's corners in x and y, from the first to the others.
struct Sides {
    shr::Vec2d along;
    shr::Vec2d up;
};

Sides SidesOf(const Geometry& text) {
    const shr::Vec2d& from = text.points[0];
    return {{text.points[1].x - from.x, text.points[1].y - from.y},
            {text.points[2].x - from.x, text.points[2].y - from.y}};
}

// Where the text begins and ends along its base, in widths of its frame.
std::pair<double, double> SpanOf(const TextPlacement& text) {
    if (text.box) {
        return {0.0, 1.0};
    }
    std::size_t letters = 0;
    const std::vector<std::string> lines = LinesOf(text.text);
    for (const std::string& line : lines) {
        letters = std::max(letters, line.size());  // bytes: rather too many
    }
    const double width =
        kLetterWidth * static_cast<double>(letters) / static_cast<double>(lines.size());
    switch (text.justify) {
    case Justify::Center:
        return {-width / 2.0, width / 2.0};
    case Justify::Right:
        return {-width, 0.0};
    case Justify::Left:
        break;
    }
    return {0.0, width};
}

}  // namespace

void SetTextFrame(Geometry& text) {
    TextPlacement& placement = text.placement;
    const double known = std::isfinite(placement.height) && placement.height > 0.0
                             ? placement.height
                             : 1.0;  // of a text whose height is no number
    double width = known;
    double height = known;
    if (placement.box) {
        width = std::abs(placement.box->maxX - placement.box->minX);
        height = std::abs(placement.box->maxY - placement.box->minY);
        if (!(height > 0.0)) {
            placement.box.reset();
            width = known;
            height = known;
        }
    }
    const double degrees = std::isfinite(placement.angleDegrees) ? placement.angleDegrees : 0.0;
    const double angle = degrees * std::numbers::pi / 180.0;
    const shr::Vec2d along{std::cos(angle), std::sin(angle)};
    const shr::Vec2d from = text.points.empty() ? shr::Vec2d{} : text.points.front();
    text.points = {from,
                   {from.x + along.x * width, from.y + along.y * width},
                   {from.x - along.y * height, from.y + along.x * height}};
    if (placement.labelLine) {
        text.points.push_back(placement.labelLine->end);
    }
}

shr::Box2d TextExtent(const Geometry& text) {
    if (text.points.size() < 3) {
        return BoxOf(text.points);
    }
    const Sides sides = SidesOf(text);
    const auto [begin, end] = SpanOf(text.placement);
    std::vector<shr::Vec2d> corners(text.points.begin() + 3, text.points.end());
    for (const double along : {begin, end}) {
        const shr::Vec2d low{text.points[0].x + sides.along.x * along,
                             text.points[0].y + sides.along.y * along};
        corners.push_back(low);
        corners.push_back({low.x + sides.up.x, low.y + sides.up.y});
    }
    return BoxOf(corners);
}

}  // namespace app
