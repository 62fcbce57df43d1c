// Clauses as definitions for PROJ.
#include "app/crs/ProjText.h"
#include "tests/crs/Systems.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct DefinitionRow {
    std::string name;
    std::string clause;
    std::string definition;
};
void PrintTo(const DefinitionRow& row, std::ostream* out) {
    *out << row.name;
}

class ADefinitionOf : public testing::TestWithParam<DefinitionRow> {};

TEST_P(ADefinitionOf, TheClauseHasThisText) {
    EXPECT_EQ(app::ReadClause(GetParam().clause).definition, GetParam().definition + " +type=crs");
}

// clang-format off
const DefinitionRow kDefinitions[] = {
    {"LongitudeLatitude", R"(Earth Projection 1, 104)", "+proj=longlat +datum=WGS84 +no_defs"},
    {"AKnownDatum", R"(Earth Projection 8, 104, "m", 9, 0, 0.9996, 500000, 0)", "+proj=tmerc +lon_0=9 +lat_0=0 +k_0=0.9996 +x_0=500000 +y_0=0 +datum=WGS84 +units=m +no_defs"},
    // +towgs84 follows the position-vector convention, clauses that of the coordinate frame.
    {"RotationsTurnedRound", R"(Earth Projection 1, 1001)", "+proj=longlat +ellps=krass +towgs84=24,-123,-94,0.02,-0.25,-0.13,1.1 +no_defs"},
    {"AFalseOriginInMetres", R"(Earth Projection 8, 104, "survey ft", 9, 0, 1, 984250, 0)", "+proj=tmerc +lon_0=9 +lat_0=0 +k_0=1 +x_0=300000 +y_0=0 +datum=WGS84 +units=us-ft +no_defs"},
    {"ATangentCone", R"(Earth Projection 3, 104, "m", 3, 46.8, 46.8, 46.8, 600000, 200000)", "+proj=lcc +lon_0=3 +lat_0=46.8 +lat_1=46.8 +x_0=600000 +y_0=200000 +datum=WGS84 +units=m +no_defs"},
    {"TheWebMapSphere", R"(Earth Projection 10, 157, "m", 0)", "+proj=merc +lon_0=0 +x_0=0 +y_0=0 +a=6378137 +b=6378137 +nadgrids=@null +units=m +no_defs"},
    {"EqualAreaCylinder", R"(Earth Projection 2, 104, "m", 5, 30)", "+proj=cea +lon_0=5 +lat_ts=30 +x_0=0 +y_0=0 +datum=WGS84 +units=m +no_defs"},
    {"RegionalMercator", R"(Earth Projection 26, 104, "m", 5, 30)", "+proj=merc +lon_0=5 +lat_ts=30 +x_0=0 +y_0=0 +datum=WGS84 +units=m +no_defs"},
    {"SwissOblique", R"(Earth Projection 25, 1003, "m", 7.5, 47, 600000, 200000)", "+proj=somerc +lon_0=7.5 +lat_0=47 +x_0=600000 +y_0=200000 +ellps=bessel +towgs84=660.077,13.551,369.344,-0.804816,-0.577692,-0.952236,5.66 +units=m +no_defs"},
    {"RectifiedAngle", R"(Earth Projection 35, 104, "m", 102, 4, 323, 323.1, 0.9998, 8, 9)", "+proj=omerc +no_uoff +lonc=102 +lat_0=4 +alpha=323 +gamma=323.1 +k_0=0.9998 +x_0=8 +y_0=9 +datum=WGS84 +units=m +no_defs"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, ADefinitionOf, testing::ValuesIn(kDefinitions),
                         [](const auto& row) { return row.param.name; });

std::string PipelineOf(const std::string& clause) {
    return app::PipelineToWgs84(*app::ReadClause(clause).clause);
}

TEST(APipeline, TakesTheRotationsAsTheyAre) {
    EXPECT_EQ(PipelineOf("Earth Projection 1, 1001"),
              "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=push +v_3 "
              "+step +proj=cart +ellps=krass +step +proj=helmert +x=24 +y=-123 +z=-94 +rx=-0.02 "
              "+ry=0.25 +rz=0.13 +s=1.1 +convention=coordinate_frame +step +inv +proj=cart "
              "+ellps=WGS84 +step +proj=pop +v_3 +step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

TEST(APipeline, UndoesTheAffineTransformationFirst) {
    EXPECT_EQ(PipelineOf("Earth Projection 10, 104, \"m\", 5 Affine Units \"m\", 1, 2, 3, 4, 5, 6"),
              "+proj=pipeline +step +inv +proj=affine +xoff=3 +yoff=6 +s11=1 +s12=2 +s21=4 +s22=5 "
              "+step +inv +proj=merc +lon_0=5 +x_0=0 +y_0=0 +ellps=WGS84 +units=m "
              "+step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

TEST(APipeline, TurnsTheProjectionsUnitIntoThatOfTheAffineTransformation) {
    EXPECT_EQ(
        PipelineOf("Earth Projection 10, 104, \"m\", 5 Affine Units \"km\", 1, 0, 3, 0, 1, 6"),
        "+proj=pipeline +step +inv +proj=affine +xoff=3 +yoff=6 +s11=0.001 +s12=0 +s21=0 "
        "+s22=0.001 +step +inv +proj=merc +lon_0=5 +x_0=0 +y_0=0 +ellps=WGS84 +units=m "
        "+step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

TEST(Miller, IsOnASphereOfTheMajorRadiusUnlikeInItsDefinition) {
    EXPECT_EQ(app::ReadClause("Earth Projection 11, 104, \"m\", 0").warnings,
              std::vector<std::string>{
                  "coordinates are taken on a sphere of the major radius; programs that read the "
                  "PROJ or WKT definition take one of equal area"});
}

}  // namespace
