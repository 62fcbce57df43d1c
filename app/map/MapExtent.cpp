#include "app/map/MapExtent.h"

#include "app/map/TextFrame.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace app {

namespace {

constexpr double kLargestCoordinate = 1e300;
constexpr int kShownDigits = 8;

}  // namespace

bool IsDrawable(double x, double y) {
    return std::abs(x) <= kLargestCoordinate && std::abs(y) <= kLargestCoordinate;
}

shr::Box2d DrawableBox(const Geometry& geometry) {
    const shr::Box2d box =
        geometry.kind == GeometryKind::Text ? TextExtent(geometry) : BoxOf(geometry);
    if (IsDrawable(box.minX, box.minY) && IsDrawable(box.maxX, box.maxY)) {
        return box;
    }
    std::vector<shr::Vec2d> drawable;
    std::ranges::copy_if(geometry.points, std::back_inserter(drawable),
                         [](const shr::Vec2d& point) { return IsDrawable(point.x, point.y); });
    return BoxOf(std::span<const shr::Vec2d>(drawable));
}

std::string CornersOf(const shr::Box2d& box) {
    std::string text;
    for (const double number : {box.minX, box.minY, box.maxX, box.maxY}) {
        std::array<char, 32> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                       std::chars_format::general, kShownDigits);
        text += text.empty() ? "" : ",";
        text.append(digits.data(), end.ptr);
    }
    return text;
}

}  // namespace app
