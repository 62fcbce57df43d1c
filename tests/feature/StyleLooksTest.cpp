// The tables of pens and brushes: what their numbers look like.
#include "app/feature/StyleLooks.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

struct WidthRow {
    std::string name;
    app::Pen pen;
    double pixels;
};
class PenWidth : public testing::TestWithParam<WidthRow> {};

TEST_P(PenWidth, IsThisManyPixels) {
    EXPECT_DOUBLE_EQ(app::PixelsOf(GetParam().pen), GetParam().pixels);
}

INSTANTIATE_TEST_SUITE_P(
    , PenWidth,
    testing::Values(
        WidthRow{"OnePixel", {.width = 1}, 1.0}, WidthRow{"SevenPixels", {.width = 7}, 7.0},
        WidthRow{"TenPixels", {.width = 10}, 10.0}, WidthRow{"NinePoints", {.width = 100}, 12.0},
        WidthRow{"ATenthOfAPointIsStillSeen", {.width = 11}, 0.5},
        WidthRow{"NoWidth", {.width = 0}, 0.0}, WidthRow{"ANegativeWidth", {.width = -3}, 0.0},
        WidthRow{"ThePatternOfNothing", {.width = 5, .pattern = 1}, 0.0},
        WidthRow{"TheSmallestNumber", {.width = std::numeric_limits<int>::min()}, 0.0}),
    [](const auto& row) { return row.param.name; });

TEST(Dashes, AreNoneForASolidLineAndForOrnaments) {
    EXPECT_TRUE(app::DashesOf(2).empty());
    EXPECT_TRUE(app::DashesOf(1).empty());
    EXPECT_TRUE(app::DashesOf(63).empty());
    EXPECT_TRUE(app::DashesOf(-5).empty());
}

TEST(Dashes, ArePairsOfDashAndGap) {
    for (int pattern = 3; pattern <= 25; ++pattern) {
        const std::span<const double> dashes = app::DashesOf(pattern);

        EXPECT_GE(dashes.size(), 2U) << pattern;
        EXPECT_EQ(dashes.size() % 2, 0U) << pattern;
        for (const double length : dashes) {
            EXPECT_GT(length, 0.0) << pattern;
        }
    }
}

struct BrushRow {
    std::string name;
    int pattern;
    app::AreaFill fill;
    std::vector<double> angles;  // of the lines, degrees
};
class BrushPattern : public testing::TestWithParam<BrushRow> {};

TEST_P(BrushPattern, HasThisFillAndTheseLines) {
    const app::BrushLook look = app::LookOf(GetParam().pattern);

    std::vector<double> angles;
    for (const app::HatchLines& lines : look.lines) {
        angles.push_back(lines.angleDegrees);
    }
    EXPECT_EQ(look.fill, GetParam().fill);
    EXPECT_EQ(angles, GetParam().angles);
}

INSTANTIATE_TEST_SUITE_P(
    , BrushPattern,
    testing::Values(BrushRow{"Nothing", 1, app::AreaFill::None, {}},
                    BrushRow{"Solid", 2, app::AreaFill::Solid, {}},
                    BrushRow{"Horizontal", 3, app::AreaFill::Lines, {0}},
                    BrushRow{"Vertical", 4, app::AreaFill::Lines, {90}},
                    BrushRow{"Falling", 5, app::AreaFill::Lines, {-45}},
                    BrushRow{"Rising", 6, app::AreaFill::Lines, {45}},
                    BrushRow{"Cross", 7, app::AreaFill::Lines, {0, 90}},
                    BrushRow{"DiagonalCross", 8, app::AreaFill::Lines, {45, -45}},
                    BrushRow{"ABitmap", 44, app::AreaFill::Tint, {}},
                    BrushRow{"ANumberThatIsNoPattern", -7, app::AreaFill::Solid, {}}),
    [](const auto& row) { return row.param.name; });

}  // namespace
