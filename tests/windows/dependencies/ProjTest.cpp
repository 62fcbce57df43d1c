// PROJ finds its database and its grids, and gives the same numbers on every system.
#include <proj.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using Context = std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)>;
using Transformation = std::unique_ptr<PJ, decltype(&proj_destroy)>;

struct PointRow {
    std::string name;
    const char* from;
    const char* to;
    PJ_COORD point;     // degrees of longitude and latitude, or metres east and north
    PJ_COORD expected;  // metres east and north
};
constexpr double kMillimetre = 1e-3;

class PointOf : public testing::TestWithParam<PointRow> {
protected:
    PointOf() : context_(proj_context_create(), proj_context_destroy) {
#ifdef QOLF_PROJ_DATA
        const char* const folder = QOLF_PROJ_DATA;
        proj_context_set_search_paths(context_.get(), 1, &folder);
#endif
    }
    Transformation Between(const char* from, const char* to) const {
        const Transformation asDefined(proj_create_crs_to_crs(context_.get(), from, to, nullptr),
                                       proj_destroy);
        return {proj_normalize_for_visualization(context_.get(), asDefined.get()), proj_destroy};
    }

private:
    Context context_;
};

TEST_P(PointOf, OneSystemIsThisOneOfTheOther) {
    const PointRow& row = GetParam();
    const Transformation transformation = Between(row.from, row.to);
    ASSERT_NE(transformation, nullptr);

    const PJ_COORD result = proj_trans(transformation.get(), PJ_FWD, row.point);

    EXPECT_NEAR(result.xy.x, row.expected.xy.x, kMillimetre);
    EXPECT_NEAR(result.xy.y, row.expected.xy.y, kMillimetre);
}

INSTANTIATE_TEST_SUITE_P(, PointOf,
                         testing::Values(PointRow{"InDegrees",
                                                  "EPSG:4326",
                                                  "EPSG:3301",
                                                  {{24.7536, 59.437, 0, 0}},
                                                  {{542763.369117, 6589036.275375, 0, 0}}},
                                         PointRow{"ThatAGridOfFranceShifts",
                                                  "EPSG:27572",
                                                  "EPSG:2154",
                                                  {{600000, 2428000, 0, 0}},
                                                  {{651313.026109, 6861349.809754, 0, 0}}},
                                         PointRow{"ThatAGridOfNewZealandShifts",
                                                  "EPSG:27200",
                                                  "EPSG:2193",
                                                  {{2658747.57, 5989321.26, 0, 0}},
                                                  {{1748725.704198, 5427609.143928, 0, 0}}}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
