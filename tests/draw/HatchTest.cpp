// The lines that hatches are made of.
#include "app/draw/Hatch.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr app::HatchLines kHorizontal{0.0, 10.0, 1.0};
constexpr app::HatchLines kRising{45.0, 10.0, 1.0};

TEST(SegmentsThrough, CoverTheBoxAtTheirSpacing) {
    const auto segments = app::SegmentsThrough({0, 0, 50, 50}, kHorizontal);

    ASSERT_GE(segments.size(), 5U);
    EXPECT_NEAR(segments[1].from.y - segments[0].from.y, 10.0, 1e-9);
    EXPECT_LE(segments.front().from.y, 10.0);
    EXPECT_GE(segments.back().from.y, 50.0);
    EXPECT_LE(segments[0].from.x, 0.0);
    EXPECT_GE(segments[0].to.x, 50.0);
}

TEST(SegmentsThrough, LieOnTheSameGridInEveryBox) {
    const auto left = app::SegmentsThrough({0, 0, 50, 50}, kHorizontal);
    const auto right = app::SegmentsThrough({50.3, 3.7, 93.1, 44.4}, kHorizontal);

    EXPECT_DOUBLE_EQ(std::fmod(left[1].from.y, 10.0), std::fmod(right[1].from.y, 10.0));
}

TEST(SegmentsThrough, RiseToTheRightOnThePageAt45Degrees) {
    const auto segments = app::SegmentsThrough({0, 0, 50, 50}, kRising);

    ASSERT_FALSE(segments.empty());
    EXPECT_NEAR(segments[0].to.x - segments[0].from.x, segments[0].from.y - segments[0].to.y, 1e-9);
    EXPECT_GT(segments[0].to.x, segments[0].from.x);
}

TEST(SegmentsThrough, AreFewForABoxOfNoSize) {
    EXPECT_LE(app::SegmentsThrough({5, 5, 5, 5}, kRising).size(), 4U);
}

}  // namespace
