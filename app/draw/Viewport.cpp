#include "app/draw/Viewport.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace app {

namespace {

constexpr int kLongerSide = 1000;
constexpr double kLargestAspect = 4.0;
constexpr double kLargestCoordinate = 1e300;
constexpr double kFarAway = 1e12;  // pixels

// Sizes below this part of a coordinate are noise of its last digits.
constexpr double kSmallestRelativeSize = 1e-12;

double WithinPage(double pixels) {
    return std::isnan(pixels) ? kFarAway : std::clamp(pixels, -kFarAway, kFarAway);
}

// The other side of a page with one side given; ratio is other side : given side.
int OtherSide(int side, double margin, double ratio) {
    const double inner = std::max(side - 2.0 * margin, 1.0);
    const double other = inner * ratio + 2.0 * margin;
    const double limited = std::clamp(other, side / kLargestAspect, side * kLargestAspect);
    return static_cast<int>(
        std::clamp(std::round(limited), 1.0, static_cast<double>(kLargestPageSide)));
}

}  // namespace

bool IsDrawable(double x, double y) {
    return std::abs(x) <= kLargestCoordinate && std::abs(y) <= kLargestCoordinate;
}

shr::Box2d WithSize(const shr::Box2d& box) {
    const double size = std::max(box.maxX - box.minX, box.maxY - box.minY);
    const double largest =
        std::max({std::abs(box.minX), std::abs(box.maxX), std::abs(box.minY), std::abs(box.maxY)});
    if (size > largest * kSmallestRelativeSize) {
        return box;
    }
    const double pad = std::max(0.5, largest * kSmallestRelativeSize * 10.0);
    return {box.minX - pad, box.minY - pad, box.maxX + pad, box.maxY + pad};
}

double LongitudeStretch(const shr::Box2d& degrees) {
    constexpr double kNearPole = 85.0;
    const double middle =
        std::clamp(degrees.minY / 2.0 + degrees.maxY / 2.0, -kNearPole, kNearPole);
    return std::cos(middle * std::numbers::pi / 180.0);
}

PageSize ChoosePageSize(const shr::Box2d& world, double stretchX, const PageRequest& request) {
    if (request.width > 0 && request.height > 0) {
        return {request.width, request.height};
    }
    const shr::Box2d box = WithSize(world);
    const double width = (box.maxX - box.minX) * stretchX;
    const double height = box.maxY - box.minY;
    const double heightPerWidth = width > 0.0 ? height / width : kLargestAspect;
    const double widthPerHeight = height > 0.0 ? width / height : kLargestAspect;
    if (request.width > 0) {
        return {request.width, OtherSide(request.width, request.margin, heightPerWidth)};
    }
    if (request.height > 0) {
        return {OtherSide(request.height, request.margin, widthPerHeight), request.height};
    }
    if (width >= height) {
        return {kLongerSide, OtherSide(kLongerSide, request.margin, heightPerWidth)};
    }
    return {OtherSide(kLongerSide, request.margin, widthPerHeight), kLongerSide};
}

Viewport::Viewport(const shr::Box2d& world, double stretchX, PageSize page, double margin)
    : page_(page) {
    const shr::Box2d box = WithSize(world);
    centre_ = {box.minX / 2.0 + box.maxX / 2.0, box.minY / 2.0 + box.maxY / 2.0};

    const double usedMargin = std::clamp(margin, 0.0, std::min(page.width, page.height) / 4.0);
    const double width = (box.maxX - box.minX) * stretchX;
    const double height = box.maxY - box.minY;
    const double innerWidth = page.width - 2.0 * usedMargin;
    const double innerHeight = page.height - 2.0 * usedMargin;
    // A side without length fits at any scale; both can't be without, WithSize saw to that.
    const double scaleByWidth = innerWidth / width;
    const double scaleByHeight = innerHeight / height;
    scaleY_ = std::min(scaleByWidth, scaleByHeight);
    scaleX_ = scaleY_ * stretchX;
}

PagePoint Viewport::ToPage(const shr::Vec2d& point) const {
    return {WithinPage(page_.width / 2.0 + (point.x - centre_.x) * scaleX_),
            WithinPage(page_.height / 2.0 - (point.y - centre_.y) * scaleY_)};
}

}  // namespace app
