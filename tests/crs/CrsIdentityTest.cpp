// How systems are known in the EPSG register.
#include "app/crs/CrsIdentity.h"
#include "tests/crs/Systems.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct ClauseRow {
    std::string name;
    std::string clause;
    int code;
};
void PrintTo(const ClauseRow& row, std::ostream* out) {
    *out << row.name;
}

class AClauseInTheRegister : public testing::TestWithParam<ClauseRow> {};

TEST_P(AClauseInTheRegister, HasThisCode) {
    const app::CrsIdentity identity = app::Identify(app::ReadClause(GetParam().clause));

    EXPECT_EQ(identity.epsgCode, GetParam().code) << identity.epsgName;
    EXPECT_EQ(identity.epsgName.empty(), GetParam().code == 0);
    EXPECT_NE(identity.wkt2, "");
}

// clang-format off
const ClauseRow kClauses[] = {
    {"Wgs84", R"(Earth Projection 1, 104)", 4326},
    {"Ed50", R"(Earth Projection 1, 28)", 4230},
    {"Utm32", R"(Earth Projection 8, 104, "m", 9, 0, 0.9996, 500000, 0)", 32632},
    {"EuropeanUtm32", R"(Earth Projection 8, 33, "m", 9, 0, 0.9996, 500000, 0)", 25832},
    {"Ed50Utm32", R"(Earth Projection 8, 28, "m", 9, 0, 0.9996, 500000, 0)", 23032},
    // On the ellipsoid alone it is the zone of WGS 84, which is 0.1 mm away.
    {"ZoneOfNoEuropeanSystem", R"(Earth Projection 8, 33, "m", -93, 0, 0.9996, 500000, 0)", 32615},
    {"BritishGrid", R"(Earth Projection 8, 79, "m", -2, 49, 0.9996012717, 400000, -100000)", 27700},
    {"BritishGridInKilometres", R"(Earth Projection 8, 79, "km", -2, 49, 0.9996012717, 400, -100)", 0},
    {"WithNorthingFirst", R"(Earth Projection 8, 117, "m", 173, 0, 0.9996, 1600000, 10000000)", 2193},
    {"MapGrid", R"(Earth Projection 18, 31, "m", 173, -41, 2510000, 6023150)", 27200},
    {"WebMap", R"(Earth Projection 10, 157, "m", 0)", 3857},
    {"Finland", R"(Earth Projection 8, 115, "m", 27, 0, 0.9996, 500000, 0)", 3067},
    {"France", R"(Earth Projection 3, 33, "m", 3, 46.5, 44, 49, 700000, 6600000)", 2154},
    {"FranceZone2FromParis", R"(Earth Projection 3, 1002, "m", 0, 46.8, 45.898918964419, 47.696014502038, 600000, 2200000)", 27572},
    {"FranceZone2FromGreenwich", R"(Earth Projection 3, 107, "m", 2.33722917, 46.8, 45.898918964419, 47.696014502038, 600000, 2200000)", 27572},
    {"FranceOnWgs84", R"(Earth Projection 3, 104, "m", 3, 46.5, 44, 49, 700000, 6600000)", 2154},
    {"Estonia", R"(Earth Projection 3, 115, "m", 24, 57.5175539305556, 59.3333333333333, 58, 500000, 6375000)", 3301},
    {"EstoniaToFourDigits", R"(Earth Projection 3, 115, "m", 24, 57.5176, 59.3333, 58, 500000, 6375000)", 0},
    {"SwitzerlandOld", R"(Earth Projection 25, 1003, "m", 7.43958333333333, 46.9524055555556, 600000, 200000)", 21781},
    {"SwitzerlandByItsFamily", R"(Earth Projection 25, 1003, "m", 7.43958333333333, 46.9524055555556, 2600000, 1200000)", 2056},
    {"SwitzerlandByItsNumbers", R"(Earth Projection 25, 999, 10, 674.374, 15.056, 405.346, "m", 7.43958333333333, 46.9524055555556, 2600000, 1200000)", 2056},
    {"SwitzerlandAsAnotherProjection", R"(Earth Projection 7, 999, 10, 674.374, 15.056, 405.346, "m", 7.439583333333333, 46.95240555555556, 90, 1, -7419820.590750868, 1199999.9999999994)", 2056},
    {"LongitudeLatitudeOnGrs80", "Earth Projection 1, 999, 0, 0, 0, 0", 4258},
    {"SwissLongitudeLatitude", R"(Earth Projection 1, 999, 10, 674.374, 15.056, 405.346)", 4149},
    {"Netherlands", R"(Earth Projection 31, 109, "m", 5.38763888888889, 52.1561605555556, 0.9999079, 155000, 463000)", 28992},
    {"Belgium", R"(Earth Projection 3, 110, "m", 4.3674866667, 90, 49.8333339, 51.1666672333, 150000.013, 5400088.438)", 31370},
    // 43 mm from 31370; PROJ misplaces 31300, which it would be.
    {"BelgiumByItsOwnProjection", R"(Earth Projection 19, 110, "m", 4.3569397222, 90, 49.8333333333, 51.1666666667, 150000.01256, 5400088.4378)", 0},
    {"GermanyNotItsSwappedVariant", R"(Earth Projection 8, 1000, "m", 9, 0, 1, 3500000, 0)", 31467},
    {"Finland1970", R"(Earth Projection 24, 1016, "m", 27, 0, 1, 3500000, 0)", 2393},
    {"Malaysia", R"(Earth Projection 35, 33, "m", 102.25, 4, 323.025796466667, 323.130102361111, 0.99984, 804671, 0)", 3375},
    {"AlaskaPanhandle", R"(Earth Projection 7, 74, "m", -133.6666666667, 57, 323.1301023611, 0.9999, 5000000, -5000000)", 26931},
    {"NewYorkInFeet", R"(Earth Projection 3, 74, "survey ft", -74, 40.1666666667, 40.6666666667, 41.0333333333, 984250, 0)", 2263},
    {"NorthPole", R"(Earth Projection 20, 104, "m", 0, 90, 0.994, 2000000, 2000000)", 5041},
    {"EuropeByEqualArea", R"(Earth Projection 29, 115, "m", 10, 52, 90)", 0},
    {"NewBrunswickByItsFamily", R"(Earth Projection 31, 74, "m", -66.5, 46.5, 0.999912, 2500000, 7500000)", 2953},
    {"OfADatumOfItsOwn", R"(Earth Projection 1, 999, 4, 1, 2, 3)", 0},
    {"WithACentreOfItsOwn", R"(Earth Projection 8, 104, "m", 9.5, 0, 0.9996, 500000, 0)", 0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, AClauseInTheRegister, testing::ValuesIn(kClauses),
                         [](const auto& row) { return row.param.name; });

TEST(ANamedSystem, KeepsItsCodeAmongEqualOnes) {
    for (const int code : {25835, 3067, 31467, 5677, 2154, 9793}) {
        EXPECT_EQ(app::Identify(app::SystemOfDefinition("EPSG:" + std::to_string(code))).epsgCode,
                  code);
    }
}

TEST(ADefinitionWithoutACode, IsKnownWhenItIsOfTheRegisterWordForWord) {
    const std::string wkt = app::WktTextOf("EPSG:32635");
    const std::string bare = wkt.substr(0, wkt.rfind(",AUTHORITY")) + "]";

    EXPECT_EQ(app::SystemOfDefinition(bare).code, 0);
    EXPECT_EQ(app::Identify(app::SystemOfDefinition(bare)).epsgCode, 32635);
}

TEST(CoordinatesBehindAnAffineTransformation, AreNoneOfTheRegister) {
    EXPECT_EQ(app::Identify(app::ReadClause(R"(Earth Projection 10, 104, "m", 0 )"
                                            R"(Affine Units "m", 1, 0, 5, 0, 1, 5)"))
                  .epsgCode,
              0);
}

TEST(Wkt, NamesTheSystemInWords) {
    const std::string wkt =
        app::Identify(app::ReadClause(R"(Earth Projection 8, 28, "m", 9, 0, 0.9996, 500000, 0)"))
            .wkt2;

    EXPECT_EQ(wkt.rfind("PROJCRS[\"European 1950 (ED 50) / Transverse Mercator\",", 0), 0U) << wkt;
}

TEST(Wkt, BindsADatumOfItsOwnToWgs84) {
    const std::string wkt =
        app::Identify(app::ReadClause("Earth Projection 1, 999, 4, 1, 2, 3")).wkt2;

    EXPECT_EQ(wkt.rfind("BOUNDCRS[", 0), 0U) << wkt;
}

TEST(Wkt, IsEmptyForWhatHasNoPlaceOnTheEarth) {
    EXPECT_EQ(app::Identify(app::UnknownSystem("why")).wkt2, "");
    EXPECT_EQ(app::Identify(app::PlaneSystem(1.0)).wkt2, "");
}

}  // namespace
