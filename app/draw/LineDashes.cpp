#include "app/draw/LineDashes.h"

#include "app/draw/Viewport.h"

#include <algorithm>
#include <cmath>

namespace app {

double PenWidthOnPage(const zeio::TrPen& pen, double widest) {
    if (!std::isfinite(pen.width) || pen.width <= 0.0) {
        return kHairline;
    }
    return std::clamp(pen.width * kPixelsPerInch, kThinnestPen, widest);
}

std::vector<double> DashesOnPage(const zeio::TrPen& pen, double widthPixels) {
    constexpr std::size_t kMostDashes = 64;
    constexpr double kFinestPattern = 0.5;  // pixels, of the whole pattern
    constexpr double kLongestDash = 1e6;    // pixels
    if (pen.style != zeio::TrPen::Style::CustomDash || pen.dashes.size() > kMostDashes) {
        return {};
    }
    // The lengths are multiples of the width; under the thinnest pens the pattern would drown.
    const double unit = std::max(widthPixels, kHairline);
    std::vector<double> lengths;
    double sum = 0.0;
    for (const float dash : pen.dashes) {
        if (!std::isfinite(dash) || dash < 0.0F) {
            return {};
        }
        lengths.push_back(std::min(static_cast<double>(dash) * unit, kLongestDash));
        sum += lengths.back();
    }
    if (sum < kFinestPattern) {
        return {};
    }
    return lengths;
}

}  // namespace app
