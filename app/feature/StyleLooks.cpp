#include "app/feature/StyleLooks.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

constexpr int kNoLine = 1;
constexpr double kThinnestPen = 0.5;

struct DashRow {
    int pattern;
    std::size_t count;
    std::array<double, 6> lengths;
};
// 3 a dot, 5 a dash, 14 a dash with a dot, 20 one with two are as the module has them; the others
// are of the same kind, longer or wider apart.
constexpr std::array<DashRow, 23> kDashes{{
    {3, 2, {1, 1}},
    {4, 2, {2, 1}},
    {5, 2, {3, 1}},
    {6, 2, {6, 1}},
    {7, 2, {10, 2}},
    {8, 2, {20, 4}},
    {9, 2, {4, 3}},
    {10, 2, {1, 4}},
    {11, 2, {4, 6}},
    {12, 2, {6, 4}},
    {13, 2, {10, 10}},
    {14, 4, {3, 1, 1, 1}},
    {15, 4, {6, 1, 1, 1}},
    {16, 4, {10, 1, 2, 1}},
    {17, 4, {20, 6, 4, 6}},
    {18, 6, {20, 3, 3, 3, 3, 3}},
    {19, 6, {20, 2, 2, 2, 2, 2}},
    {20, 6, {3, 1, 1, 1, 1, 1}},
    {21, 6, {10, 2, 1, 2, 1, 2}},
    {22, 6, {10, 3, 1, 3, 1, 3}},
    {23, 4, {4, 1, 1, 1}},
    {24, 6, {4, 1, 1, 1, 1, 1}},
    {25, 6, {4, 1, 1, 1, 2, 1}},
}};

constexpr double kSpacing = 8.0;
constexpr double kLineWidth = 1.0;
constexpr double kHalfTint = 0.5;

constexpr HatchLines kHorizontal{0.0, kSpacing, kLineWidth};
constexpr HatchLines kVertical{90.0, kSpacing, kLineWidth};
constexpr HatchLines kRising{45.0, kSpacing, kLineWidth};
constexpr HatchLines kFalling{-45.0, kSpacing, kLineWidth};
constexpr std::array kCross{kHorizontal, kVertical};
constexpr std::array kDiagonalCross{kRising, kFalling};

}  // namespace

double PixelsOf(const Pen& pen) {
    if (pen.pattern == kNoLine || pen.width <= 0) {
        return 0.0;
    }
    if (pen.width <= kMostPixels) {
        return pen.width;
    }
    return std::max(PixelsOfPoints((pen.width - kMostPixels) / 10.0), kThinnestPen);
}

std::span<const double> DashesOf(int penPattern) {
    const auto* const row = std::ranges::find(kDashes, penPattern, &DashRow::pattern);
    return row == kDashes.end() ? std::span<const double>()
                                : std::span<const double>(row->lengths).first(row->count);
}

BrushLook LookOf(int brushPattern) {
    const auto lines = [](std::span<const HatchLines> hatch) {
        return BrushLook{AreaFill::Lines, 1.0, hatch};
    };
    switch (brushPattern) {
    case 1:
        return {AreaFill::None, 0.0};
    case 3:
        return lines({&kHorizontal, 1});
    case 4:
        return lines({&kVertical, 1});
    case 5:
        return lines({&kFalling, 1});
    case 6:
        return lines({&kRising, 1});
    case 7:
        return lines(kCross);
    case 8:
        return lines(kDiagonalCross);
    default:
        return brushPattern > 8 ? BrushLook{AreaFill::Tint, kHalfTint} : BrushLook{};
    }
}

}  // namespace app
