// Systems as a user names them: PROJ's own definitions and its best operations without a network.
//
// The expected coordinates come from cs2cs of PROJ 9.1 with the grids of its Debian package, run by
// hand from longitude and latitude of WGS 84, as in
//   echo 61 25 | cs2cs -f %.4f EPSG:4326 EPSG:3067
// with easting and northing, or longitude and latitude, in this order.
#include "tests/crs/Systems.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct PlaceRow {
    std::string name;
    int code;
    Place onWgs84;
    Place inSystem;
};
void PrintTo(const PlaceRow& row, std::ostream* out) {
    *out << row.name;
}

class APlaceInANamedSystem : public testing::TestWithParam<PlaceRow> {
protected:
    static app::CoordinateSystem System() {
        return app::SystemOfDefinition("EPSG:" + std::to_string(GetParam().code));
    }
    // A millimetre in the unit of the system.
    static double Tolerance() { return System().isGeographic ? 1e-8 : 0.001; }
};

TEST_P(APlaceInANamedSystem, HasTheCoordinatesThatProjGivesIt) {
    const Place place = FromWgs84(System(), GetParam().onWgs84);

    EXPECT_NEAR(place.x, GetParam().inSystem.x, Tolerance());
    EXPECT_NEAR(place.y, GetParam().inSystem.y, Tolerance());
}

TEST_P(APlaceInANamedSystem, LeadsBackToTheSamePlace) {
    const Place place = OnWgs84(System(), FromWgs84(System(), GetParam().onWgs84));

    EXPECT_NEAR(place.x, GetParam().onWgs84.x, 1e-7);
    EXPECT_NEAR(place.y, GetParam().onWgs84.y, 1e-7);
}

// clang-format off
const PlaceRow kPlaces[] = {
    {"Finland", 3067, {25, 61}, {391839.9655, 6764438.6590}},
    {"FinlandAgain", 3067, {28.5, 66.5}, {566739.1324, 7376444.4945}},
    {"Estonia", 3301, {24.75, 59.43}, {542567.8133, 6588254.1991}},
    {"EstoniaAgain", 3301, {26.7, 58.38}, {657912.4692, 6474236.9267}},
    {"France", 2154, {2.35, 48.85}, {652301.5648, 6861302.7259}},
    {"FranceAgain", 2154, {5.37, 43.3}, {892394.7774, 6247424.6458}},
    {"Switzerland", 2056, {7.45, 46.95}, {2600865.3846, 1199879.6808}},
    {"SwitzerlandAgain", 2056, {8.54, 47.38}, {2683170.6813, 1248268.4555}},
    {"SwitzerlandOld", 21781, {7.45, 46.95}, {600865.3846, 199879.6808}},
    {"SwitzerlandOldAgain", 21781, {8.54, 47.38}, {683170.6813, 248268.4555}},
    {"FranceZone2", 27572, {2.35, 48.85}, {600990.8924, 2427961.5117}},
    {"FranceZone2Again", 27572, {3.06, 47.2}, {654812.9047, 2244721.0198}},
    {"Austria", 31287, {16.37, 48.21}, {625633.3838, 483376.1186}},
    {"AustriaAgain", 31287, {13.05, 47.8}, {378838.3676, 433440.9788}},
    {"Poland", 2180, {21.01, 52.23}, {637231.0903, 486786.3937}},
    {"PolandAgain", 2180, {19.94, 50.06}, {567262.4529, 244060.6145}},
    {"AustraliaZone55", 7855, {147.3, -42.9}, {524492.1310, 5250246.2884}},
    {"AustraliaZone55Again", 7855, {145.0, -37.8}, {323920.5507, 5814491.0188}},
    {"SeaIceNorth", 3413, {-45, 75}, {0.0000, -1633879.4975}},
    {"SeaIceNorthAgain", 3413, {100, 80}, {622858.2943, 889533.8315}},
    {"Antarctica", 3031, {166.67, -77.85}, {305467.1627, -1289201.5377}},
    {"AntarcticaAgain", 3031, {-60, -70}, {-1900487.7669, 1097247.1238}},
    {"Hungary", 23700, {19.04, 47.5}, {649439.1116, 239562.8811}},
    {"HungaryAgain", 23700, {21.63, 47.53}, {844424.6240, 246107.5560}},
    {"Britain", 27700, {-0.13, 51.51}, {529868.6899, 180665.3202}},
    {"BritainAgain", 27700, {-3.19, 55.95}, {325784.7480, 673635.7681}},
    {"GermanyZone3", 31467, {9.18, 48.78}, {3513304.1821, 5404737.9753}},
    {"GermanyZone3Again", 31467, {8.68, 50.11}, {3477184.6877, 5552691.4042}},
    {"Netherlands", 28992, {4.9, 52.37}, {121819.3652, 487013.7615}},
    {"NetherlandsAgain", 28992, {5.69, 50.85}, {176325.2221, 317840.1495}},
    {"Czechia", 5514, {14.42, 50.09}, {-742860.0835, -1042721.3635}},
    {"CzechiaAgain", 5514, {16.61, 49.2}, {-597958.3242, -1160228.0106}},
    {"EuropeEqualArea", 3035, {10, 52}, {4321000.0000, 3210000.0000}},
    {"EuropeEqualAreaAgain", 3035, {-3.7, 40.42}, {3159766.9306, 2030142.1132}},
    {"WebMap", 3857, {24.75, 59.43}, {2755157.3971, 8273912.5708}},
    {"WebMapAgain", 3857, {-70, -33}, {-7792364.3555, -3895303.9634}},
    {"Wgs84Utm33", 32633, {15, 60}, {500000.0000, 6651411.1904}},
    {"Wgs84Utm33Again", 32633, {13.4, 52.52}, {391440.0321, 5820079.6669}},
    {"EuropeUtm32", 25832, {9, 50}, {500000.0000, 5538630.7027}},
    {"EuropeUtm32Again", 25832, {10.75, 59.91}, {597868.3811, 6642681.5100}},
    {"EuropeDegrees", 4258, {10, 50}, {10.000000000, 50.000000000}},
    {"EuropeDegreesAgain", 4258, {2.35, 48.85}, {2.350000000, 48.850000000}},
    {"NorthAmericaDegrees", 4269, {-100, 40}, {-100.000000000, 40.000000000}},
    {"NorthAmericaDegreesAgain", 4269, {-75, 45}, {-75.000000000, 45.000000000}},
    {"NewZealand", 2193, {174.78, -41.29}, {1749045.8029, 5427521.3834}},
    {"NewZealandAgain", 2193, {172.64, -43.53}, {1570910.4458, 5180263.9268}},
    {"Belgium", 31370, {4.35, 50.85}, {148679.4474, 171066.8103}},
    {"BelgiumAgain", 31370, {3.22, 51.21}, {69726.2712, 211735.8523}},
    {"NorthAmericaUtm18", 26918, {-74, 40.7}, {584482.3523, 4505935.8693}},
    {"NorthAmericaUtm18Again", 26918, {-76, 43}, {418491.3522, 4761299.9251}},
    {"UnitedStatesAlbers", 5070, {-96, 38}, {0.0000, 1662824.7611}},
    {"UnitedStatesAlbersAgain", 5070, {-122.4, 37.8}, {-2273032.7875, 1958176.3913}},
    {"NewYorkFeet", 2263, {-73.98, 40.75}, {989791.4573, 212522.5192}},
    {"NewYorkFeetAgain", 2263, {-73.2, 40.8}, {1205738.8493, 231749.9686}},
    {"EuropeConformal", 3034, {10, 52}, {4000000.0000, 2800000.0000}},
    {"EuropeConformalAgain", 3034, {25, 60}, {4813845.1207, 3747440.1144}},
    {"Sweden", 3006, {18.07, 59.33}, {674647.8821, 6580824.5756}},
    {"SwedenAgain", 3006, {12, 57.7}, {321226.7923, 6399268.5027}},
    {"Portugal", 3763, {-9.14, 38.72}, {-87567.1229, -104793.5554}},
    {"PortugalAgain", 3763, {-8.61, 41.15}, {-40032.3304, 164645.9523}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, APlaceInANamedSystem, testing::ValuesIn(kPlaces),
                         [](const auto& row) { return row.param.name; });

TEST(ADefinition, IsKnownByItsCode) {
    const app::CoordinateSystem system = app::SystemOfDefinition("EPSG:2263");

    EXPECT_EQ(system.definition, "EPSG:2263");
    EXPECT_EQ(system.authority, "EPSG");
    EXPECT_EQ(system.code, 2263);
    EXPECT_EQ(system.name, "NAD83 / New York Long Island (ftUS)");
    EXPECT_EQ(app::UnitInWords(system), "survey ft");
    EXPECT_FALSE(system.isGeographic);
}

TEST(ADefinition, MayBeAUrnOfACode) {
    EXPECT_EQ(app::SystemOfDefinition("urn:ogc:def:crs:EPSG::3067").code, 3067);
}

TEST(ADefinition, MayBeOfAnotherAuthority) {
    const app::CoordinateSystem system = app::SystemOfDefinition("ESRI:102003");

    EXPECT_EQ(system.authority, "ESRI");
    EXPECT_EQ(system.code, 102003);
}

TEST(ADefinition, OfAProjStringNeedsNoWordThatItIsASystem) {
    const app::CoordinateSystem system = app::SystemOfDefinition("+proj=utm +zone=35 +datum=WGS84");

    EXPECT_EQ(system.definition, "+proj=utm +zone=35 +datum=WGS84 +type=crs");
    EXPECT_EQ(system.code, 0);
}

TEST(ADefinition, OfWgs84IsKnownAsSuch) {
    for (const char* const text : {"wgs84", "WGS84", "EPSG:4326"}) {
        EXPECT_TRUE(app::IsWgs84(app::SystemOfDefinition(text))) << text;
    }
}

TEST(ADefinition, WithHeightsLeavesThemOutAndSaysSo) {
    const app::CoordinateSystem flat = app::SystemOfDefinition("EPSG:4979");
    const app::CoordinateSystem compound = app::SystemOfDefinition("EPSG:7405");

    EXPECT_EQ(flat.code, 4326);
    EXPECT_EQ(flat.notes, std::vector<std::string>{"heights are left out"});
    EXPECT_EQ(compound.code, 27700);
    EXPECT_EQ(compound.notes, std::vector<std::string>{"heights are left out"});
}

struct ProblemRow {
    std::string name;
    std::string definition;
    std::string problem;
};
void PrintTo(const ProblemRow& row, std::ostream* out) {
    *out << row.name;
}

class ADefinitionThatIsNoSystem : public testing::TestWithParam<ProblemRow> {};

TEST_P(ADefinitionThatIsNoSystem, SaysSo) {
    const app::CoordinateSystem system = app::SystemOfDefinition(GetParam().definition);

    EXPECT_EQ(system.kind, app::SystemKind::Unknown);
    EXPECT_EQ(system.problem, GetParam().problem);
}

// clang-format off
const ProblemRow kProblems[] = {
    {"Geocentric", "EPSG:4978", "\"EPSG:4978\" is neither geographic nor projected (WGS 84)"},
    {"Vertical", "EPSG:5705", "\"EPSG:5705\" is neither geographic nor projected (Baltic 1977 height)"},
    {"UnknownCode", "EPSG:9", "\"EPSG:9\" is no coordinate system that PROJ knows"},
    {"PartOfAName", "foo", "\"foo\" is no coordinate system that PROJ knows"},
    {"Nothing", "", "\"\" is no coordinate system that PROJ knows"},
    {"Transformation", "+proj=helmert", "\"+proj=helmert\" is no coordinate system that PROJ knows"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, ADefinitionThatIsNoSystem, testing::ValuesIn(kProblems),
                         [](const auto& row) { return row.param.name; });

}  // namespace
