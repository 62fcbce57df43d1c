// Which vertices a page leaves out first.
#include "app/page/VertexWeights.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using Points = std::vector<shr::Vec2d>;

constexpr float kInfinite = std::numeric_limits<float>::infinity();

Points KeptOf(const Points& points, const std::vector<float>& weights, float tolerance) {
    Points kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (weights[i] >= tolerance) {
            kept.push_back(points[i]);
        }
    }
    return kept;
}

TEST(TheEndsOfALine, WeighInfinitelyMuch) {
    const std::vector<float> weights = app::WeightsOfLine(Points{{0, 0}, {5, 1}, {10, 0}});

    EXPECT_EQ(weights.front(), kInfinite);
    EXPECT_EQ(weights.back(), kInfinite);
}

TEST(AVertexOfALine, WeighsTheRootOfItsTriangle) {
    EXPECT_FLOAT_EQ(app::WeightsOfLine(Points{{0, 0}, {5, 5}, {10, 0}})[1], 5.0F);
}

TEST(AVertexOfALine, WeighsNothingOnAStraightWay) {
    EXPECT_EQ(app::WeightsOfLine(Points{{0, 0}, {5, 0}, {10, 0}})[1], 0.0F);
}

TEST(AVertexOfALine, WeighsNoLessThanOneThatGoesBeforeIt) {
    // When the first bend is gone the second one's triangle is smaller than the first one's was.
    const Points points{{0, 0}, {1, 3}, {2, 0}, {3, 3.2}, {4, 0}};
    const std::vector<float> weights = app::WeightsOfLine(points);

    std::vector<float> inner(weights.begin() + 1, weights.end() - 1);
    EXPECT_GE(*std::ranges::min_element(inner), std::sqrt(3.0F) - 0.01F);
}

TEST(ALineOfTwoPoints, KeepsBoth) {
    EXPECT_EQ(app::WeightsOfLine(Points{{0, 0}, {1, 1}}),
              (std::vector<float>{kInfinite, kInfinite}));
}

TEST(ARing, KeepsThreeVerticesAtAnyTolerance) {
    const Points square{{0, 0}, {1, 0}, {1, 1}, {0, 1}};

    EXPECT_EQ(KeptOf(square, app::WeightsOfRing(square), 1e30F).size(), 3U);
}

TEST(ARing, LosesAVertexOfAStraightSide) {
    const Points ring{{0, 0}, {5, 0}, {10, 0}, {10, 10}, {0, 10}};

    EXPECT_EQ(KeptOf(ring, app::WeightsOfRing(ring), 0.1F),
              (Points{{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
}

TEST(TwoRingsWithACommonBorder, KeepTheSameVerticesAlongIt) {
    const Points border{{0, 0}, {1, 0.4}, {2, -0.3}, {3, 0.5}, {4, 0.1}, {5, 0}};
    Points above(border.rbegin(), border.rend());
    above.insert(above.end(), {{-10, 10}, {15, 10}});
    Points below = border;
    below.insert(below.end(), {{15, -10}, {-10, -10}});
    const auto alongBorder = [&](const Points& ring) {
        Points kept = KeptOf(ring, app::WeightsOfRing(ring), 0.6F);
        std::erase_if(kept, [](const shr::Vec2d& point) { return std::abs(point.y) > 5.0; });
        std::ranges::sort(kept, {}, &shr::Vec2d::x);
        return kept;
    };

    EXPECT_EQ(alongBorder(above), alongBorder(below));
    EXPECT_LT(alongBorder(above).size(), border.size());
}

TEST(ALongSpiral, IsWeighedInAMoment) {
    Points spiral;
    for (int i = 0; i < 200000; ++i) {
        spiral.push_back({std::cos(i * 0.1) * i, std::sin(i * 0.1) * i});
    }

    EXPECT_EQ(app::WeightsOfLine(spiral).size(), spiral.size());
}

}  // namespace
