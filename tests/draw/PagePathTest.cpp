// Thinning and cutting of paths.
#include "app/draw/PagePath.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using app::PageBox;
using app::PagePath;
using app::PagePoint;

constexpr PageBox kBox{0, 0, 10, 10};

PagePath Thinned(PagePath path) {
    app::Thin(path);
    return path;
}

double AreaOf(const PagePath& ring) {
    double doubled = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PagePoint& from = ring[i];
        const PagePoint& to = ring[(i + 1) % ring.size()];
        doubled += from.x * to.y - to.x * from.y;
    }
    return std::abs(doubled) / 2.0;
}

TEST(Thin, LeavesOutPointsWithinAQuarterOfAPixel) {
    EXPECT_EQ(Thinned({{0, 0}, {0.2, 0.2}, {1, 0}, {1.2, 0.2}, {2, 0}}),
              (PagePath{{0, 0}, {1, 0}, {2, 0}}));
}

TEST(Thin, KeepsTheLastPoint) {
    EXPECT_EQ(Thinned({{0, 0}, {1, 0}, {1.05, 0}}), (PagePath{{0, 0}, {1, 0}, {1.05, 0}}));
}

TEST(Thin, DoesNotDriftAlongManySmallSteps) {
    PagePath steps;
    for (int i = 0; i <= 1000; ++i) {
        steps.push_back({i * 0.01, 0.0});
    }

    const PagePath thinned = Thinned(steps);

    EXPECT_GE(thinned.size(), 38U);
    EXPECT_LE(thinned.size(), 42U);
    EXPECT_DOUBLE_EQ(thinned.back().x, 10.0);
}

TEST(Thin, LeavesTwoPointsOfAPathThatIsOne) {
    EXPECT_EQ(Thinned({{3, 3}, {3, 3}, {3, 3}}), (PagePath{{3, 3}, {3, 3}}));
}

TEST(Thin, KeepsPathsOfTwoPointsAndLess) {
    EXPECT_EQ(Thinned({{0, 0}, {0.1, 0.1}}), (PagePath{{0, 0}, {0.1, 0.1}}));
    EXPECT_TRUE(Thinned({}).empty());
}

TEST(ThinFrom, LeavesWhatComesBeforeAlone) {
    PagePath path{{0, 0}, {0, 0}, {0, 0}, {5, 5}, {5, 5}, {6, 6}};

    app::ThinFrom(path, 3, PagePoint{0.5, 0.5});

    EXPECT_EQ(path, (PagePath{{0, 0}, {0, 0}, {0, 0}, {5, 5}, {6, 6}}));
}

TEST(CutLine, LeavesALineInsideAsItIs) {
    EXPECT_EQ(app::CutLine({{1, 1}, {9, 9}}, kBox), (std::vector<PagePath>{{{1, 1}, {9, 9}}}));
}

TEST(CutLine, CutsBothEnds) {
    EXPECT_EQ(app::CutLine({{-5, 5}, {15, 5}}, kBox), (std::vector<PagePath>{{{0, 5}, {10, 5}}}));
}

TEST(CutLine, BreaksWhereTheLineLeavesTheBox) {
    EXPECT_EQ(app::CutLine({{5, 5}, {15, 5}, {15, 8}, {5, 8}}, kBox),
              (std::vector<PagePath>{{{5, 5}, {10, 5}}, {{10, 8}, {5, 8}}}));
}

TEST(CutLine, DropsALineThatPassesACorner) {
    EXPECT_TRUE(app::CutLine({{-5, 8}, {8, 25}}, kBox).empty());
}

TEST(CutLine, DropsALineOutside) {
    EXPECT_TRUE(app::CutLine({{20, 1}, {30, 9}}, kBox).empty());
}

TEST(CutLine, CutsSegmentsFromOneEndOfTheWorldToTheOther) {
    const auto parts = app::CutLine({{-1e12, -1e12}, {1e12, 1e12}}, kBox);

    ASSERT_EQ(parts.size(), 1U);
    EXPECT_NEAR(parts[0].front().y, 0.0, 1e-3);
    EXPECT_NEAR(parts[0].back().y, 10.0, 1e-3);
}

TEST(CutRing, LeavesARingInsideAsItIs) {
    const PagePath ring{{1, 1}, {9, 1}, {9, 9}};

    EXPECT_EQ(app::CutRing(ring, kBox), ring);
}

TEST(CutRing, BecomesTheBoxInsideARingAroundIt) {
    EXPECT_DOUBLE_EQ(AreaOf(app::CutRing({{-5, -5}, {15, -5}, {15, 15}, {-5, 15}}, kBox)), 100.0);
}

TEST(CutRing, KeepsThePartInside) {
    EXPECT_DOUBLE_EQ(AreaOf(app::CutRing({{5, 5}, {15, 5}, {15, 15}, {5, 15}}, kBox)), 25.0);
}

TEST(CutRing, IsEmptyForARingOutside) {
    EXPECT_TRUE(app::CutRing({{20, 20}, {30, 20}, {30, 30}}, kBox).empty());
}

TEST(CutRing, TakesAnEmptyRing) {
    EXPECT_TRUE(app::CutRing({}, kBox).empty());
}

TEST(GuardBox, ReachesAPenBeyondThePage) {
    const PageBox guard = app::GuardBoxOf({100, 50}, 30.0);

    EXPECT_LE(guard.left, -30.0);
    EXPECT_GE(guard.bottom, 80.0);
}

}  // namespace
