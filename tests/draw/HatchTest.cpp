// The table of brush patterns and the lines they are made of.
#include "app/draw/Hatch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using Pattern = zeio::TrBrush::Pattern;

struct PatternRow {
    std::string name;
    Pattern pattern;
    app::AreaFill fill;
    std::vector<double> angles;  // of the lines, degrees
};
class HatchPatternOf : public testing::TestWithParam<PatternRow> {};

TEST_P(HatchPatternOf, HasThisFillAndTheseLines) {
    const app::HatchPattern& pattern = app::HatchPatternOf(GetParam().pattern);

    std::vector<double> angles;
    for (const app::HatchLines& lines : pattern.lines) {
        angles.push_back(lines.angleDegrees);
    }
    EXPECT_EQ(pattern.fill, GetParam().fill);
    EXPECT_EQ(angles, GetParam().angles);
}

INSTANTIATE_TEST_SUITE_P(
    , HatchPatternOf,
    testing::Values(
        PatternRow{"None", Pattern::None, app::AreaFill::None, {}},
        PatternRow{"Solid", Pattern::Solid, app::AreaFill::Solid, {}},
        PatternRow{"Pattern3", Pattern::Pattern3, app::AreaFill::Lines, {0}},
        PatternRow{"Pattern4", Pattern::Pattern4, app::AreaFill::Tint, {}},
        PatternRow{"Pattern5", Pattern::Pattern5, app::AreaFill::Tint, {}},
        PatternRow{"Pattern6", Pattern::Pattern6, app::AreaFill::Tint, {}},
        PatternRow{"Horizontal", Pattern::Horizontal, app::AreaFill::Lines, {0}},
        PatternRow{"Vertical", Pattern::Vertical, app::AreaFill::Lines, {90}},
        PatternRow{"BackwardDiagonal", Pattern::BackwardDiagonal, app::AreaFill::Lines, {45}},
        PatternRow{"ForwardDiagonal", Pattern::ForwardDiagonal, app::AreaFill::Lines, {-45}},
        PatternRow{"Cross", Pattern::Cross, app::AreaFill::Lines, {0, 90}},
        PatternRow{"DiagonalCross", Pattern::DiagonalCross, app::AreaFill::Lines, {45, -45}},
        PatternRow{"AnUnknownNumber", static_cast<Pattern>(77), app::AreaFill::Solid, {}}),
    [](const auto& row) { return row.param.name; });

constexpr app::HatchLines kHorizontal{0.0, 10.0, 1.0, false};
constexpr app::HatchLines kRising{45.0, 10.0, 1.0, false};

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
