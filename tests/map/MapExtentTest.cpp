// What of a map can be drawn.
#include "app/map/MapExtent.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(IsDrawable, RefusesWhatIsNoNumberOrBeyondAllLimits) {
    EXPECT_TRUE(app::IsDrawable(-180.0, 90.0));
    EXPECT_FALSE(app::IsDrawable(std::numeric_limits<double>::quiet_NaN(), 0.0));
    EXPECT_FALSE(app::IsDrawable(0.0, kInfinity));
    EXPECT_FALSE(app::IsDrawable(1.7e308, 0.0));
}

TEST(TheBoxOfALine, LeavesOutPointsThatCannotBeDrawn) {
    const app::Feature line = support::LineThrough({{1, 2}, {kInfinity, 5}, {3, 4}});

    EXPECT_EQ(app::DrawableBox(line.geometry), (shr::Box2d{1, 2, 3, 4}));
}

TEST(TheBoxOfALine, IsEmptyWithoutAPointThatCanBeDrawn) {
    const app::Feature line = support::LineThrough({{kInfinity, 2}, {kInfinity, 5}});

    EXPECT_TRUE(app::DrawableBox(line.geometry).IsEmpty());
}

TEST(TheCornersOfABox, ArePrintedWithEightDigits) {
    EXPECT_EQ(app::CornersOf({24.5, -59.123456789, 1e7, 60.0}), "24.5,-59.123457,10000000,60");
}

}  // namespace
