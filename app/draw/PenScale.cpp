#include "app/draw/PenScale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace app {

namespace {

// A pen of 2 pixels has this part of the diagonal, and each pixel more doubles it.
constexpr double kPartOfTwoPixels = 1.0 / 320.0;
constexpr double kThinnest = 2.0;
constexpr double kThickest = 7.0;

// 0 for a box that the module takes for none.
double DiagonalOf(const shr::Box2d& box) {
    const double width = std::abs(box.maxX - box.minX);
    const double height = std::abs(box.maxY - box.minY);
    return width + height < static_cast<double>(std::numeric_limits<float>::epsilon())
               ? 0.0
               : std::hypot(width, height);
}

}  // namespace

void PenScale::BeginLayer() {
    bounds_.reset();
    seen_ = ExtentCollector();
}

void PenScale::SetBounds(const shr::Box2d& bounds) {
    bounds_ = bounds;
}

void PenScale::Add(const zeio::TrBase& object) {
    if (!bounds_ || DiagonalOf(*bounds_) == 0.0) {
        seen_.Add(object);
    }
}

double PenScale::Diagonal() const {
    const double declared = bounds_ ? DiagonalOf(*bounds_) : 0.0;
    if (declared > 0.0) {
        return declared;
    }
    return seen_.Extent() ? DiagonalOf(*seen_.Extent()) : 0.0;
}

int PenScale::Pixels(const zeio::TrPen& pen) const {
    const double diagonal = Diagonal();
    if (!(pen.width > 0.0) || !std::isfinite(pen.width) || !(diagonal > 0.0)) {
        return 1;
    }
    // The extent of the objects is not to the last digit the module's own; the steps are wide
    // apart.
    const double pixels = kThinnest + std::log2(pen.width / diagonal / kPartOfTwoPixels);
    return static_cast<int>(std::lround(std::clamp(pixels, kThinnest, kThickest)));
}

}  // namespace app
