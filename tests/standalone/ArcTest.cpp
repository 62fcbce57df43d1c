#include "host/geom/Arc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr shr::Box2d kBox{-4, -2, 4, 2};

// The arc's points, from an exact-size block; empty when there is no arc.
std::vector<shr::Vec2d> Arc(const shr::Box2d& box, const shr::Vec2d& start, const shr::Vec2d& end,
                            int count = 300) {
    const std::unique_ptr<shr::Vec2d[]> points(new shr::Vec2d[static_cast<std::size_t>(count)]);
    if (!geom::ArcToCurve(box, start, end, count, points.get(), nullptr)) {
        return {};
    }
    return {points.get(), points.get() + count};
}

// How far a point is from the ellipse in kBox, as a difference in the ellipse's equation.
double EquationError(const shr::Vec2d& point) {
    return std::fabs(std::hypot(point.x / 4, point.y / 2) - 1.0);
}

double LargestEquationError(const std::vector<shr::Vec2d>& points) {
    double largest = 0;
    for (const shr::Vec2d& point : points) {
        largest = std::max(largest, EquationError(point));
    }
    return largest;
}

// Twice the area that the points sweep round the origin: above 0 when counter-clockwise.
double SweptArea(const std::vector<shr::Vec2d>& points) {
    double area = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        area += points[i - 1].x * points[i].y - points[i].x * points[i - 1].y;
    }
    return area;
}

TEST(ArcToCurve, StartsAndEndsExactlyInTheGivenDirections) {
    const std::vector<shr::Vec2d> points = Arc(kBox, {1, 0}, {0, 100});

    ASSERT_EQ(points.size(), 300U);
    EXPECT_EQ(points.front(), (shr::Vec2d{4, 0}));
    EXPECT_EQ(points.back(), (shr::Vec2d{0, 2}));
}

TEST(ArcToCurve, CountsOnlyTheDirectionOfItsEnds) {
    const std::vector<shr::Vec2d> points = Arc(kBox, {1, 1}, {-3, 3});

    ASSERT_FALSE(points.empty());
    EXPECT_NEAR(points.front().x, points.front().y, 1e-14);
    EXPECT_NEAR(points.back().x, -points.back().y, 1e-14);
    EXPECT_LT(EquationError(points.front()), 1e-15);
}

TEST(ArcToCurve, StaysOnTheEllipse) {
    EXPECT_LT(LargestEquationError(Arc(kBox, {1, 2}, {-3, -1})), 1e-14);
}

struct SweepRow {
    std::string name;
    shr::Vec2d start;
    shr::Vec2d end;
    double share;  // of the whole ellipse's area
};
class Sweep : public testing::TestWithParam<SweepRow> {};

TEST_P(Sweep, GoesCounterClockwise) {
    const double wholeArea = 2 * std::numbers::pi * 4 * 2;

    const double area = SweptArea(Arc(kBox, GetParam().start, GetParam().end));

    EXPECT_NEAR(area / wholeArea, GetParam().share, 1e-3);
}
INSTANTIATE_TEST_SUITE_P(, Sweep,
                         testing::Values(SweepRow{"AQuarter", {1, 0}, {0, 1}, 0.25},
                                         SweepRow{"AcrossTheLeft", {0, 1}, {0, -1}, 0.5},
                                         SweepRow{"AcrossTheRight", {0, -1}, {0, 1}, 0.5},
                                         SweepRow{"ThreeQuarters", {0, 1}, {1, 0}, 0.75},
                                         SweepRow{"TheWhole", {1, 3}, {1, 3}, 1.0},
                                         SweepRow{
                                             "TheWholeByAnotherLength", {1, 3}, {0.1, 0.3}, 1.0}),
                         [](const auto& row) { return row.param.name; });

TEST(ArcToCurve, OfTheWholeEllipseEndsWhereItStarts) {
    const std::vector<shr::Vec2d> points = Arc(kBox, {2, 1}, {2, 1});

    ASSERT_FALSE(points.empty());
    EXPECT_EQ(points.front(), points.back());
}

TEST(ArcToCurve, WithTwoPointsHasOnlyItsEnds) {
    EXPECT_EQ(Arc(kBox, {1, 0}, {-1, 0}, 2), (std::vector<shr::Vec2d>{{4, 0}, {-4, 0}}));
}

TEST(ArcToCurve, TakesABoxWithItsCornersExchanged) {
    EXPECT_EQ(Arc({4, 2, -4, -2}, {1, 0}, {0, 1}), Arc(kBox, {1, 0}, {0, 1}));
}

TEST(ArcToCurve, GivesTheBoxOfItsPoints) {
    std::vector<shr::Vec2d> points(300);
    shr::Box2d bounds;

    ASSERT_TRUE(geom::ArcToCurve(kBox, {1, 0}, {-1, 0}, 300, points.data(), &bounds));

    EXPECT_EQ(bounds.minX, -4);
    EXPECT_EQ(bounds.maxX, 4);
    EXPECT_EQ(bounds.minY, 0);
    EXPECT_NEAR(bounds.maxY, 2, 1e-4);
}

TEST(ArcToCurve, TakesTheLargestBox) {
    const double largest = std::numeric_limits<double>::max();

    const std::vector<shr::Vec2d> points =
        Arc({-largest, -largest, largest, largest}, {1, 0}, {0, 1});

    ASSERT_FALSE(points.empty());
    EXPECT_EQ(points.front().x, largest);
}

struct NoDirectionRow {
    std::string name;
    shr::Vec2d point;
};
class AnArcFromAPointWithoutADirection : public testing::TestWithParam<NoDirectionRow> {};

TEST_P(AnArcFromAPointWithoutADirection, StartsAtAngleZero) {
    EXPECT_EQ(Arc(kBox, GetParam().point, {0, 1}), Arc(kBox, {1, 0}, {0, 1}));
}

TEST_P(AnArcFromAPointWithoutADirection, EndsAtAngleZeroWhenItIsTheEnd) {
    EXPECT_EQ(Arc(kBox, {0, 1}, GetParam().point), Arc(kBox, {0, 1}, {1, 0}));
}
INSTANTIATE_TEST_SUITE_P(, AnArcFromAPointWithoutADirection,
                         testing::Values(NoDirectionRow{"TheCentre", {0, 0}},
                                         NoDirectionRow{"Infinity", {kInfinity, 0}},
                                         NoDirectionRow{"NoNumber", {0, std::nan("")}}),
                         [](const auto& row) { return row.param.name; });

struct FlatRow {
    std::string name;
    shr::Box2d box;
    shr::Vec2d first;
    shr::Vec2d middle;
    shr::Vec2d last;
};
class AFlatArc : public testing::TestWithParam<FlatRow> {};

TEST_P(AFlatArc, IsACirclesArcPressedOntoTheLine) {
    const std::vector<shr::Vec2d> points = Arc(GetParam().box, {2, 1}, {0, 1}, 3);

    ASSERT_EQ(points.size(), 3U);
    EXPECT_NEAR(points[0].x, GetParam().first.x, 1e-15);
    EXPECT_NEAR(points[0].y, GetParam().first.y, 1e-15);
    EXPECT_NEAR(points[1].x, GetParam().middle.x, 1e-15);
    EXPECT_NEAR(points[1].y, GetParam().middle.y, 1e-15);
    EXPECT_NEAR(points[2].x, GetParam().last.x, 1e-15);
    EXPECT_NEAR(points[2].y, GetParam().last.y, 1e-15);
}
// From angle 0 to angle 180 of a circle round (1, 1).
INSTANTIATE_TEST_SUITE_P(
    , AFlatArc,
    testing::Values(FlatRow{"WithoutWidth", {1, 0, 1, 2}, {1, 1}, {1, 2}, {1, 1}},
                    FlatRow{"WithoutHeight", {0, 1, 2, 1}, {2, 1}, {1, 1}, {0, 1}},
                    FlatRow{"WithoutEither", {1, 1, 1, 1}, {1, 1}, {1, 1}, {1, 1}}),
    [](const auto& row) { return row.param.name; });

struct RefusedRow {
    std::string name;
    shr::Box2d box;
    shr::Vec2d start;
    shr::Vec2d end;
    int count;
};
class ArcWithout : public testing::TestWithParam<RefusedRow> {};

TEST_P(ArcWithout, IsRefusedAndLeavesThePoints) {
    shr::Vec2d points[3] = {{7, 7}, {7, 7}, {7, 7}};

    EXPECT_FALSE(geom::ArcToCurve(GetParam().box, GetParam().start, GetParam().end,
                                  GetParam().count, points, nullptr));

    EXPECT_EQ(points[0], (shr::Vec2d{7, 7}));
    EXPECT_EQ(points[2], (shr::Vec2d{7, 7}));
}
INSTANTIATE_TEST_SUITE_P(
    , ArcWithout,
    testing::Values(RefusedRow{"AFiniteBox", {-kInfinity, -2, 4, 2}, {1, 0}, {0, 1}, 3},
                    RefusedRow{"ANumberForItsBox", {-4, -2, 4, std::nan("")}, {1, 0}, {0, 1}, 3},
                    RefusedRow{"TwoPoints", kBox, {1, 0}, {0, 1}, 1}),
    [](const auto& row) { return row.param.name; });

}  // namespace
