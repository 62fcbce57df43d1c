// The page's size, and where the map lies on it.
#include "app/draw/MapFrame.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using app::MapFrame;
using app::PagePoint;
using app::PageSize;
using app::Viewport;

MapFrame FrameOf(const shr::Box2d& world, double reach = 0.0) {
    MapFrame frame;
    frame.Include(world, reach);
    return frame;
}

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

    EXPECT_EQ(FrameOf(row.world).ChoosePageSize(row.request, row.stretchX), row.expected);
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

TEST(MapFrame, PutsTheWorldsLowerLeftCornerAtThePagesLowerLeft) {
    const Viewport viewport = FrameOf({10, 20, 110, 70}).FitInto({200, 100}, 0.0, 1.0);

    EXPECT_EQ(viewport.ToPage({10, 20}), (PagePoint{0, 100}));
    EXPECT_EQ(viewport.ToPage({110, 70}), (PagePoint{200, 0}));
}

TEST(MapFrame, KeepsTheMarginFree) {
    const Viewport viewport = FrameOf({0, 0, 80, 80}).FitInto({100, 100}, 10.0, 1.0);

    EXPECT_EQ(viewport.ToPage({0, 0}), (PagePoint{10, 90}));
    EXPECT_EQ(viewport.ToPage({80, 80}), (PagePoint{90, 10}));
}

TEST(MapFrame, LeavesRoomForWhatReachesBeyondTheMargin) {
    const Viewport viewport = FrameOf({0, 0, 60, 60}, 20.0).FitInto({100, 100}, 10.0, 1.0);

    EXPECT_EQ(viewport.ToPage({0, 0}), (PagePoint{20, 80}));
    EXPECT_EQ(viewport.ToPage({60, 60}), (PagePoint{80, 20}));
}

TEST(MapFrame, LetsALargeSymbolInTheMiddleReachOverOthersForFree) {
    MapFrame frame = FrameOf({0, 0, 100, 100});
    frame.Include({50, 50, 50, 50}, 20.0);

    EXPECT_EQ(frame.FitInto({100, 100}, 0.0, 1.0).ToPage({0, 0}), (PagePoint{0, 100}));
}

TEST(MapFrame, LeavesRoomOnTheSideOfALargeSymbolAlone) {
    MapFrame frame = FrameOf({0, 0, 80, 10});
    frame.Include({80, 5, 80, 5}, 20.0);

    const Viewport viewport = frame.FitInto({100, 100}, 0.0, 1.0);

    EXPECT_NEAR(viewport.ToPage({0, 0}).x, 0.0, 1e-9);
    EXPECT_NEAR(viewport.ToPage({80, 0}).x, 80.0, 1e-9);
}

TEST(MapFrame, CentresAWorldThatIsNarrowerThanThePage) {
    const Viewport viewport = FrameOf({0, 0, 10, 100}).FitInto({100, 100}, 0.0, 1.0);

    EXPECT_EQ(viewport.ToPage({0, 0}), (PagePoint{45, 100}));
}

TEST(MapFrame, StretchesXAlone) {
    const Viewport viewport = FrameOf({0, 0, 100, 50}).FitInto({100, 100}, 0.0, 0.5);

    EXPECT_EQ(viewport.ToPage({100, 50}), (PagePoint{100, 0}));
    EXPECT_EQ(viewport.ToPage({0, 25}), (PagePoint{0, 50}));
}

TEST(MapFrame, PutsASinglePointInTheMiddle) {
    const Viewport viewport = FrameOf({7, 7, 7, 7}).FitInto({100, 60}, 5.0, 1.0);

    EXPECT_EQ(viewport.ToPage({7, 7}), (PagePoint{50, 30}));
    EXPECT_TRUE(std::isfinite(viewport.PixelsPerUnit()));
}

TEST(MapFrame, PutsASinglePointOfAHugeCoordinateInTheMiddle) {
    const Viewport viewport = FrameOf({1e30, -1e30, 1e30, -1e30}).FitInto({100, 100}, 0.0, 1.0);

    EXPECT_EQ(viewport.ToPage({1e30, -1e30}), (PagePoint{50, 50}));
}

TEST(MapFrame, FitsALineWithoutHeight) {
    const Viewport viewport = FrameOf({0, 5, 100, 5}).FitInto({100, 40}, 0.0, 1.0);

    EXPECT_NEAR(viewport.ToPage({100, 5}).x, 100.0, 1e-9);
    EXPECT_NEAR(viewport.ToPage({100, 5}).y, 20.0, 1e-9);
}

TEST(MapFrame, KeepsWhatIsFarAwayFinite) {
    const Viewport viewport = FrameOf({0, 0, 1e-180, 1e-180}).FitInto({100, 100}, 0.0, 1.0);

    EXPECT_EQ(viewport.ToPage({1e300, -1e300}), (PagePoint{1e12, 1e12}));
}

TEST(MapFrame, FitsAWorldOfTheLargestCoordinates) {
    const Viewport viewport = FrameOf({-1e300, -1e300, 1e300, 1e300}).FitInto({100, 100}, 0.0, 1.0);

    EXPECT_NEAR(viewport.ToPage({1e300, 1e300}).x, 100.0, 1e-9);
    EXPECT_NEAR(viewport.ToPage({0, 0}).y, 50.0, 1e-9);
}

TEST(MapFrame, LimitsTheMarginToAQuarterOfThePage) {
    const Viewport viewport = FrameOf({0, 0, 10, 10}).FitInto({100, 100}, 1000.0, 1.0);

    EXPECT_EQ(viewport.ToPage({0, 0}), (PagePoint{25, 75}));
}

TEST(MapFrame, PassesOverBoxesThatCannotBeDrawn) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    MapFrame frame;
    frame.Include({0, 0, kInfinity, 1}, 0.0);
    frame.Include({1, 0, 0, 1}, 0.0);
    EXPECT_EQ(frame.Extent(), std::nullopt);

    frame.Include({1, 2, 3, 4}, 5.0);
    frame.Include({-1, 3, 0, 3}, 0.0);

    EXPECT_EQ(frame.Extent(), (shr::Box2d{-1, 2, 3, 4}));
}

TEST(LargestPage, IsAsLargeAsAnyPageOfTheRequest) {
    EXPECT_EQ(app::LargestPage({}), (PageSize{1000, 1000}));
    EXPECT_EQ(app::LargestPage({.width = 30, .height = 70}), (PageSize{30, 70}));
    EXPECT_EQ(app::LargestPage({.width = 400}), (PageSize{400, 1600}));
}

}  // namespace
