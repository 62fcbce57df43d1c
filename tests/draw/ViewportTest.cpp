// The page's size, and where the world lies on it.
#include "app/draw/Viewport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using app::PagePoint;
using app::PageSize;
using app::Viewport;

struct PageRow {
    std::string name;
    shr::Box2d world;
    double stretchX;
    app::PageRequest request;
    PageSize expected;
};
class ChoosePageSize : public testing::TestWithParam<PageRow> {};

TEST_P(ChoosePageSize, FitsTheWorld) {
    const PageRow& row = GetParam();

    EXPECT_EQ(app::ChoosePageSize(row.world, row.stretchX, row.request), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    , ChoosePageSize,
    testing::Values(
        PageRow{"ALandscapeIsAThousandWide", {0, 0, 200, 100}, 1.0, {}, {1000, 500}},
        PageRow{"APortraitIsAThousandHigh", {0, 0, 100, 200}, 1.0, {}, {500, 1000}},
        PageRow{"TheHeightFollowsAGivenWidth", {0, 0, 200, 100}, 1.0, {.width = 400}, {400, 200}},
        PageRow{"TheWidthFollowsAGivenHeight", {0, 0, 200, 100}, 1.0, {.height = 400}, {800, 400}},
        PageRow{"BothGivenStayAsTheyAre", {0, 0, 1, 1}, 1.0, {.width = 30, .height = 70}, {30, 70}},
        PageRow{"TheMarginIsNoPartOfTheRatio",
                {0, 0, 200, 100},
                1.0,
                {.width = 420, .margin = 10},
                {420, 220}},
        PageRow{"DegreesOfLongitudeAreNarrower", {0, 0, 200, 100}, 0.5, {}, {1000, 1000}},
        PageRow{"AHighLineIsFourTimesAsHighAsWide", {5, 0, 5, 100}, 1.0, {}, {250, 1000}},
        PageRow{"AWideLineIsFourTimesAsWideAsHigh", {0, 5, 100, 5}, 1.0, {}, {1000, 250}},
        PageRow{"APointIsASquare", {5, 5, 5, 5}, 1.0, {}, {1000, 1000}}),
    [](const auto& row) { return row.param.name; });

TEST(Viewport, PutsTheWorldsLowerLeftCornerAtThePagesLowerLeft) {
    const Viewport viewport({10, 20, 110, 70}, 1.0, {200, 100}, 0.0);

    EXPECT_EQ(viewport.ToPage({10, 20}), (PagePoint{0, 100}));
    EXPECT_EQ(viewport.ToPage({110, 70}), (PagePoint{200, 0}));
}

TEST(Viewport, KeepsTheMarginFree) {
    const Viewport viewport({0, 0, 80, 80}, 1.0, {100, 100}, 10.0);

    EXPECT_EQ(viewport.ToPage({0, 0}), (PagePoint{10, 90}));
    EXPECT_EQ(viewport.ToPage({80, 80}), (PagePoint{90, 10}));
}

TEST(Viewport, CentresAWorldThatIsNarrowerThanThePage) {
    const Viewport viewport({0, 0, 10, 100}, 1.0, {100, 100}, 0.0);

    EXPECT_EQ(viewport.ToPage({0, 0}), (PagePoint{45, 100}));
}

TEST(Viewport, StretchesXAlone) {
    const Viewport viewport({0, 0, 100, 50}, 0.5, {100, 100}, 0.0);

    EXPECT_EQ(viewport.ToPage({100, 50}), (PagePoint{100, 0}));
    EXPECT_EQ(viewport.ToPage({0, 25}), (PagePoint{0, 50}));
}

TEST(Viewport, PutsASinglePointInTheMiddle) {
    const Viewport viewport({7, 7, 7, 7}, 1.0, {100, 60}, 5.0);

    EXPECT_EQ(viewport.ToPage({7, 7}), (PagePoint{50, 30}));
    EXPECT_TRUE(std::isfinite(viewport.PixelsPerUnit()));
}

TEST(Viewport, PutsASinglePointOfAHugeCoordinateInTheMiddle) {
    const Viewport viewport({1e30, -1e30, 1e30, -1e30}, 1.0, {100, 100}, 0.0);

    EXPECT_EQ(viewport.ToPage({1e30, -1e30}), (PagePoint{50, 50}));
}

TEST(Viewport, FitsALineWithoutHeight) {
    const Viewport viewport({0, 5, 100, 5}, 1.0, {100, 40}, 0.0);

    EXPECT_EQ(viewport.ToPage({100, 5}), (PagePoint{100, 20}));
}

TEST(Viewport, KeepsWhatIsFarAwayFinite) {
    const Viewport viewport({0, 0, 1e-200, 1e-200}, 1.0, {100, 100}, 0.0);

    const PagePoint point = viewport.ToPage({1e300, -1e300});

    EXPECT_EQ(point, (PagePoint{1e12, 1e12}));
}

TEST(Viewport, FitsAWorldOfTheLargestCoordinates) {
    const Viewport viewport({-1e300, -1e300, 1e300, 1e300}, 1.0, {100, 100}, 0.0);

    EXPECT_NEAR(viewport.ToPage({1e300, 1e300}).x, 100.0, 1e-9);
    EXPECT_NEAR(viewport.ToPage({0, 0}).y, 50.0, 1e-9);
}

TEST(Viewport, LimitsTheMarginToAQuarterOfThePage) {
    const Viewport viewport({0, 0, 10, 10}, 1.0, {100, 100}, 1000.0);

    EXPECT_EQ(viewport.ToPage({0, 0}), (PagePoint{25, 75}));
}

TEST(IsDrawable, RefusesWhatIsNoNumberOrBeyondAllLimits) {
    EXPECT_TRUE(app::IsDrawable(-180.0, 90.0));
    EXPECT_FALSE(app::IsDrawable(std::numeric_limits<double>::quiet_NaN(), 0.0));
    EXPECT_FALSE(app::IsDrawable(0.0, std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(app::IsDrawable(1.7e308, 0.0));
}

TEST(LongitudeStretch, IsTheCosineOfTheMiddleLatitude) {
    EXPECT_NEAR(app::LongitudeStretch({0, 50, 10, 70}), 0.5, 1e-12);
    EXPECT_DOUBLE_EQ(app::LongitudeStretch({-180, -90, 180, 90}), 1.0);
}

TEST(LongitudeStretch, StaysAboveZeroAtThePoleAndBeyond) {
    EXPECT_GT(app::LongitudeStretch({0, 90, 0, 90}), 0.05);
    EXPECT_GT(app::LongitudeStretch({0, 1e6, 0, 2e6}), 0.05);
}

}  // namespace
