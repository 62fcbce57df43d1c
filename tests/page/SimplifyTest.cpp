#include "app/page/Simplify.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using Points = std::vector<shr::Vec2d>;

Points SimplifiedLine(Points points, double tolerance) {
    app::Feature line = support::LineThrough(std::move(points));
    app::Simplify(line.geometry, tolerance);
    return line.geometry.points;
}

TEST(ASimplifiedLine, LosesWhatLiesWithinTheTolerance) {
    EXPECT_EQ(SimplifiedLine({{0, 0}, {5, 0.9}, {10, 0}}, 1.0), (Points{{0, 0}, {10, 0}}));
}

TEST(ASimplifiedLine, KeepsWhatLiesBeyondTheTolerance) {
    const Points bent{{0, 0}, {5, 1.1}, {10, 0}};

    EXPECT_EQ(SimplifiedLine(bent, 1.0), bent);
}

TEST(ASimplifiedLine, StaysAsItIsAtNoTolerance) {
    const Points straight{{0, 0}, {5, 0}, {10, 0}};

    EXPECT_EQ(SimplifiedLine(straight, 0.0), straight);
}

TEST(ASimplifiedLine, KeepsTheWayOutAndBack) {
    const Points outAndBack{{0, 0}, {10, 0}, {0, 0}};

    EXPECT_EQ(SimplifiedLine(outAndBack, 1.0), outAndBack);
}

TEST(ASimplifiedLine, LosesVerticesThatAreNoNumbers) {
    EXPECT_EQ(SimplifiedLine({{0, 0}, {std::numeric_limits<double>::infinity(), 3}, {10, 0}}, 1.0),
              (Points{{0, 0}, {10, 0}}));
}

TEST(ASimplifiedLine, TakesALineThatWindsMoreDeeplyThanAStackWould) {
    Points spiral;
    for (int i = 0; i < 5000; ++i) {
        spiral.push_back({std::cos(i * 0.1) * i, std::sin(i * 0.1) * i});
    }

    EXPECT_GT(SimplifiedLine(spiral, 0.5).size(), 1000U);
}

TEST(ASimplifiedRing, KeepsThreeVerticesAtAnyTolerance) {
    app::Feature square = support::RegionOf({support::Square(0, 0, 1)});

    app::Simplify(square.geometry, 1000.0);

    EXPECT_EQ(square.geometry.points.size(), 3U);
    EXPECT_EQ(square.geometry.partSizes, std::vector<std::size_t>{3});
}

TEST(ASimplifiedRing, LosesAVertexOfAStraightSide) {
    app::Feature square = support::RegionOf({{{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}});

    app::Simplify(square.geometry, 0.1);

    EXPECT_EQ(square.geometry.points, (Points{{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
}

TEST(SimplifiedRings, AreJudgedOneByOne) {
    app::Feature area = support::RegionOf(
        {{{0, 0}, {50, 0}, {100, 0}, {100, 100}, {0, 100}}, support::Square(20, 20, 10)});

    app::Simplify(area.geometry, 0.1);

    EXPECT_EQ(area.geometry.partSizes, (std::vector<std::size_t>{4, 4}));
    EXPECT_EQ(area.geometry.points[4], (shr::Vec2d{20, 20}));
}

TEST(SimplifiedPoints, AreAllThere) {
    app::Feature points = support::PointsAt({{0, 0}, {0.1, 0}, {0.2, 0}});

    app::Simplify(points.geometry, 10.0);

    EXPECT_EQ(points.geometry.points.size(), 3U);
}

}  // namespace
