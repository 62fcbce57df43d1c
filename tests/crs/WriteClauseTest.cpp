// Clauses as text, and back.
#include "app/crs/WriteClause.h"
#include "tests/crs/Systems.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct TextRow {
    std::string name;
    std::string definition;
    std::string text;
    int fromVersion;
};
void PrintTo(const TextRow& row, std::ostream* out) {
    *out << row.name;
}

class ANamedSystemInAFile : public testing::TestWithParam<TextRow> {
protected:
    static app::Clause Clause() { return ClauseFor(GetParam().definition); }
};

TEST_P(ANamedSystemInAFile, HasThisClause) {
    EXPECT_EQ(app::WriteClause(Clause()).text, GetParam().text);
}

TEST_P(ANamedSystemInAFile, NeedsThisVersion) {
    EXPECT_EQ(app::WriteClause(Clause()).fromVersion, GetParam().fromVersion);
}

TEST_P(ANamedSystemInAFile, IsReadAsItWasWritten) {
    const app::CoordinateSystem read = app::ReadClause(GetParam().text);

    ASSERT_TRUE(read.IsOnEarth()) << read.problem;
    EXPECT_EQ(app::WriteClause(*read.clause).text, GetParam().text);
    EXPECT_TRUE(read.warnings.empty());
}

// clang-format off
const TextRow kTexts[] = {
    {"Wgs84", "EPSG:4326", R"(CoordSys Earth Projection 1, 104)", 300},
    {"Estonia", "EPSG:3301", R"(CoordSys Earth Projection 3, 33, "m", 24, 57.51755393055556, 59.333333333333336, 58, 500000, 6375000)", 300},
    {"Britain", "EPSG:27700", R"(CoordSys Earth Projection 8, 79, "m", -2, 49, 0.9996012717, 400000, -100000)", 300},
    {"WebMap", "EPSG:3857", R"(CoordSys Earth Projection 10, 157, "m", 0)", 950},
    {"Albers", "EPSG:3005", R"(CoordSys Earth Projection 9, 74, "m", -126, 45, 50, 58.5, 1000000, 0)", 300},
    {"MapGrid", "EPSG:27200", R"(CoordSys Earth Projection 18, 31, "m", 173, -41, 2510000, 6023150)", 300},
    {"SurveyFeet", "EPSG:2263", R"(CoordSys Earth Projection 3, 74, "survey ft", -74, 40.166666666666664, 41.03333333333333, 40.666666666666664, 984250, 0)", 300},
    {"Feet", "EPSG:2222", R"(CoordSys Earth Projection 8, 74, "ft", -110.16666666666667, 31, 0.9999, 700000, 0)", 300},
    {"AUnitWithoutAName", "+proj=utm +zone=33 +datum=WGS84 +to_meter=2", R"(CoordSys Earth Projection 8, 104, "0.5", 15, 0, 0.9996, 250000, 0)", 300},
    {"PolarEqualArea", "EPSG:3571", R"(CoordSys Earth Projection 4, 104, "m", 180, 90, 90)", 300},
    {"EqualArea", "+proj=laea +lat_0=52 +lon_0=10 +datum=WGS84", R"(CoordSys Earth Projection 29, 104, "m", 10, 52, 90)", 650},
    {"EqualAreaWithAFalseOrigin", "EPSG:3035", R"(CoordSys Earth Projection 29, 33, "m", 10, 52, 90 Affine Units "m", 1, 0, 4321000, 0, 1, 3210000)", 650},
    {"EquidistantWithAFalseOrigin", "+proj=aeqd +lat_0=90 +lon_0=10 +x_0=5 +y_0=6 +datum=WGS84 +units=km", R"(CoordSys Earth Projection 5, 104, "km", 10, 90, 90 Affine Units "km", 1, 0, 0.005, 0, 1, 0.006)", 650},
    {"DoubleStereographic", "EPSG:28992", R"(CoordSys Earth Projection 31, 109, "m", 5.3876388888888895, 52.15616055555555, 0.9999079, 155000, 463000)", 1050},
    {"RectifiedAngle", "EPSG:3375", R"(CoordSys Earth Projection 35, 33, "m", 102.25, 4, 323.02579646666663, 323.13010236111114, 0.99984, 804671, 0)", 1050},
    {"ADatumOfItsOwn", "EPSG:2100", R"(CoordSys Earth Projection 8, 999, 28, -199.87, 74.79, 246.62, "m", 24, 0, 0.9996, 500000, 0)", 450},
    {"ADatumWithRotations", "EPSG:31287", R"(CoordSys Earth Projection 3, 9999, 10, 577.326, 90.129, 463.919, -5.137, -1.474, -5.297, 2.4232, 0, "m", 13.333333333333334, 47.5, 49, 46, 400000, 400000)", 450},
    {"AMeridianOfItsOwn", "+proj=longlat +ellps=bessel +pm=10 +towgs84=1,2,3", R"(CoordSys Earth Projection 1, 9999, 10, 1, 2, 3, 0, 0, 0, 0, 10)", 450},
    {"AFamilyOfNorthAmerica", "EPSG:6350", R"(CoordSys Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 0, 0)", 300},
    {"AFamilyOfEurope", "EPSG:2154", R"(CoordSys Earth Projection 3, 33, "m", 3, 46.5, 49, 44, 700000, 6600000)", 300},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, ANamedSystemInAFile, testing::ValuesIn(kTexts),
                         [](const auto& row) { return row.param.name; });

TEST(APlaneInAFile, HasItsUnit) {
    EXPECT_EQ(app::WritePlaneClause(0.3048).text, "CoordSys NonEarth Units \"ft\"");
}

TEST(AnUnknownDatum, IsWrittenAsWgs84) {
    EXPECT_EQ(app::WriteClause(*app::ReadClause("Earth Projection 1, 777").clause).text,
              "CoordSys Earth Projection 1, 104");
}

}  // namespace
