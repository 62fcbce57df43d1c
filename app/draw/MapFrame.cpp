#include "app/draw/MapFrame.h"

#include "app/map/MapExtent.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace app {

namespace {

constexpr int kLongerSide = 1000;
constexpr double kLargestAspect = 4.0;
constexpr double kLargestReach = 512.0;  // pixels
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Sizes below this part of a coordinate are noise of its last digits; below the other one a scale
// would be beyond all numbers.
constexpr double kSmallestRelativeSize = 1e-12;
constexpr double kSmallestSize = 1e-200;

void Extend(shr::Box2d& box, const shr::Box2d& other) {
    box = {std::min(box.minX, other.minX), std::min(box.minY, other.minY),
           std::max(box.maxX, other.maxX), std::max(box.maxY, other.maxY)};
}

// 0, or what a box without a size that numbers can tell from a point is widened by on each side.
double Padding(const shr::Box2d& box) {
    const double size = std::max(box.maxX - box.minX, box.maxY - box.minY);
    const double largest =
        std::max({std::abs(box.minX), std::abs(box.maxX), std::abs(box.minY), std::abs(box.maxY)});
    return size > std::max(largest * kSmallestRelativeSize, kSmallestSize)
               ? 0.0
               : std::max(0.5, largest * kSmallestRelativeSize * 10.0);
}

int Rounded(double pixels) {
    return static_cast<int>(
        std::clamp(std::round(pixels), 1.0, static_cast<double>(kLargestPageSide)));
}

}  // namespace

// The map along one axis of the page.
struct MapFrame::Side {
    // From the middle of the extent, in units as long as those of y; `reach` in pixels.
    struct Range {
        double low;
        double high;
        double reach;
    };
    std::vector<Range> ranges;

    // The scale at which the map is so long; infinite for a map without length.
    double ScaleFor(double pixels) const {
        double scale = kInfinity;
        for (const Range& left : ranges) {
            for (const Range& right : ranges) {
                const double units = right.high - left.low;
                if (units > 0.0) {
                    scale = std::min(scale, (pixels - left.reach - right.reach) / units);
                }
            }
        }
        return scale;
    }

    Span At(double scale) const {
        Span span{kInfinity, -kInfinity};
        for (const Range& range : ranges) {
            span.low = std::min(span.low, range.low * scale - range.reach);
            span.high = std::max(span.high, range.high * scale + range.reach);
        }
        return span;
    }

    // The length at the scale at which the other side is so long.
    double LengthBeside(const Side& other, double pixels) const {
        const double scale = other.ScaleFor(pixels);
        return std::isinf(scale) ? kInfinity : At(scale).Length();
    }
};

void MapFrame::Include(const shr::Box2d& box, double reach) {
    if (!IsDrawable(box.minX, box.minY) || !IsDrawable(box.maxX, box.maxY) || box.IsEmpty()) {
        return;
    }
    const int pixels = static_cast<int>(std::ceil(std::clamp(reach, 0.0, kLargestReach)));
    const auto [at, isNew] = boxes_.try_emplace(pixels, box);
    if (!isNew) {
        Extend(at->second, box);
    }
    if (!extent_) {
        extent_ = box;
    }
    Extend(*extent_, box);
}

// A margin or reach that would leave nothing of the page for the map is cut down to a quarter of
// the page's side, `limit`.
MapFrame::Side MapFrame::SideOf(bool isX, double stretch, double margin, double limit) const {
    const double pad = Padding(*extent_);
    const double middle =
        isX ? extent_->minX / 2.0 + extent_->maxX / 2.0 : extent_->minY / 2.0 + extent_->maxY / 2.0;
    const double factor = isX ? stretch : 1.0;
    Side side;
    for (const auto& [reach, box] : boxes_) {
        const double low = (isX ? box.minX : box.minY) - pad;
        const double high = (isX ? box.maxX : box.maxY) + pad;
        side.ranges.push_back({(low - middle) * factor, (high - middle) * factor,
                               std::min(std::max(margin, static_cast<double>(reach)), limit)});
    }
    return side;
}

PageSize MapFrame::ChoosePageSize(const PageRequest& request, double stretchX) const {
    if (request.width > 0 && request.height > 0) {
        return {request.width, request.height};
    }
    const int given = std::max({request.width, request.height, 0});
    const int longer = given > 0 ? given : kLongerSide;
    const Side across = SideOf(true, stretchX, request.margin, longer / 4.0);
    const Side upwards = SideOf(false, stretchX, request.margin, longer / 4.0);
    const auto limited = [longer](double length) {
        return Rounded(std::clamp(length, longer / kLargestAspect, longer * kLargestAspect));
    };
    const double height = upwards.LengthBeside(across, longer);
    if (request.width > 0 || (request.height == 0 && height <= longer)) {
        return {longer, limited(height)};
    }
    return {limited(across.LengthBeside(upwards, longer)), longer};
}

Viewport MapFrame::FitInto(PageSize page, double margin, double stretchX) const {
    const double limit = std::min(page.width, page.height) / 4.0;
    const Side across = SideOf(true, stretchX, margin, limit);
    const Side upwards = SideOf(false, stretchX, margin, limit);
    // A side without length fits at any scale; both can't be without, the padding sees to that.
    const double scale = std::min(across.ScaleFor(page.width), upwards.ScaleFor(page.height));
    const Span x = across.At(scale);
    const Span y = upwards.At(scale);
    const shr::Vec2d centre{extent_->minX / 2.0 + extent_->maxX / 2.0,
                            extent_->minY / 2.0 + extent_->maxY / 2.0};
    return {page,
            centre,
            {page.width / 2.0 - (x.low + x.high) / 2.0, page.height / 2.0 + (y.low + y.high) / 2.0},
            scale * stretchX,
            scale};
}

PageSize LargestPage(const PageRequest& request) {
    const auto beside = [](int side) { return Rounded(side * kLargestAspect); };
    if (request.width == 0 && request.height == 0) {
        return {kLongerSide, kLongerSide};
    }
    return {request.width > 0 ? request.width : beside(request.height),
            request.height > 0 ? request.height : beside(request.width)};
}

}  // namespace app
