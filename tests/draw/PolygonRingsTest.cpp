// How part sizes split the vertices of a polygon.
#include "app/draw/PolygonRings.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

struct RingsRow {
    std::string name;
    std::vector<std::int32_t> partSizes;
    std::vector<std::size_t> expected;
};
class RingsOf : public testing::TestWithParam<RingsRow> {};

TEST_P(RingsOf, FiveVertices) {
    zeio::TrPolygon polygon;
    polygon.vertices.resize(5);
    polygon.partSizes = GetParam().partSizes;

    std::vector<std::size_t> sizes;
    for (const auto ring : app::RingsOf(polygon)) {
        sizes.push_back(ring.size());
    }

    EXPECT_EQ(sizes, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(, RingsOf,
                         testing::Values(RingsRow{"WithoutSizesAreOneRing", {}, {5}},
                                         RingsRow{"SplitBySizes", {2, 3}, {2, 3}},
                                         RingsRow{"ThatNoPartCountsAreLeftOut", {2}, {2}},
                                         RingsRow{"EndASizeThatReachesPastThem",
                                                  {4, std::numeric_limits<std::int32_t>::max(), 2},
                                                  {4, 1}},
                                         RingsRow{"SkipSizesOfNothing", {0, -7, 5}, {5}}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
