// The systems whose codes are known without the register, against the register.
#include "app/crs/FrequentSystems.h"
#include "app/crs/CrsIdentity.h"
#include "tests/crs/Systems.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string TextOf(int code, const std::string& name) {
    return code != 0 ? std::to_string(code) + " " + name : "none";
}

std::string InRegister(const app::CoordinateSystem& system) {
    const app::CrsIdentity identity = app::Identify(system);
    return TextOf(identity.epsgCode, identity.epsgName);
}

std::string WithoutRegister(const app::CoordinateSystem& system) {
    const auto found = app::FindFrequentSystem(*system.clause);
    return found ? TextOf(found->epsgCode, found->epsgName) : "none";
}

app::CoordinateSystem Zone(const std::string& datum, double centralLongitude,
                           const std::string& falseNorthing) {
    return app::ReadClause("Earth Projection 8, " + datum + ", \"m\", " +
                           std::to_string(centralLongitude) + ", 0, 0.9996, 500000, " +
                           falseNorthing);
}

std::vector<gcs::DatumDef> KnownDatums() {
    std::vector<gcs::DatumDef> datums;
    gcs::DatumDef datum;
    for (int index = 2; gcs::GCSKnownDatumsList.Enum(index, datum); ++index) {
        datums.push_back(datum);
    }
    return datums;
}

TEST(LongitudeAndLatitude, OnEachKnownDatumHaveTheNameOfTheRegister) {
    const std::vector<gcs::DatumDef> datums = KnownDatums();

    ASSERT_GT(datums.size(), 150U);
    for (const gcs::DatumDef& datum : datums) {
        const gcs::GCSDef host = System(LongitudeLatitude(), datum);
        const app::CoordinateSystem system = app::FromHost(&host);
        EXPECT_EQ(WithoutRegister(system), InRegister(system));
    }
}

struct ZonesRow {
    std::string name;
    std::string datum;
    int firstZone;
    int lastZone;
    std::string falseNorthing;
};
void PrintTo(const ZonesRow& row, std::ostream* out) {
    *out << row.name;
}

class EachZone : public testing::TestWithParam<ZonesRow> {};

TEST_P(EachZone, HasTheNameOfTheRegister) {
    for (int zone = GetParam().firstZone; zone <= GetParam().lastZone; ++zone) {
        const app::CoordinateSystem system =
            Zone(GetParam().datum, 6.0 * zone - 183.0, GetParam().falseNorthing);
        EXPECT_NE(WithoutRegister(system), "none") << zone;
        EXPECT_EQ(WithoutRegister(system), InRegister(system)) << zone;
    }
}

INSTANTIATE_TEST_SUITE_P(OnWgs84, EachZone,
                         testing::Values(ZonesRow{"North", "104", 1, 60, "0"},
                                         ZonesRow{"South", "104", 1, 60, "10000000"}),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(OnOthers, EachZone,
                         testing::Values(ZonesRow{"Etrs89", "115", 28, 37, "0"},
                                         ZonesRow{"Nad83", "74", 1, 23, "0"},
                                         ZonesRow{"Gda94", "116", 49, 56, "10000000"}),
                         [](const auto& row) { return row.param.name; });

struct CountryRow {
    std::string name;
    std::string clause;
    std::string system;
};
void PrintTo(const CountryRow& row, std::ostream* out) {
    *out << row.name;
}

class TheSystemOfACountry : public testing::TestWithParam<CountryRow> {};

TEST_P(TheSystemOfACountry, IsKnownWithoutTheRegister) {
    EXPECT_EQ(WithoutRegister(app::ReadClause(GetParam().clause)), GetParam().system);
}

TEST_P(TheSystemOfACountry, HasTheNameOfTheRegister) {
    EXPECT_EQ(InRegister(app::ReadClause(GetParam().clause)), GetParam().system);
}

// clang-format off
const CountryRow kCountries[] = {
    {"Finland", R"(Earth Projection 8, 115, "m", 27, 0, 0.9996, 500000, 0)", "3067 ETRS89 / TM35FIN(E,N)"},
    {"France", R"(Earth Projection 3, 33, "m", 3, 46.5, 44, 49, 700000, 6600000)", "2154 RGF93 v1 / Lambert-93"},
    {"FranceWithTheParallelsSwapped", R"(Earth Projection 3, 33, "m", 3, 46.5, 49, 44, 700000, 6600000)", "2154 RGF93 v1 / Lambert-93"},
    {"Estonia", R"(Earth Projection 3, 115, "m", 24, 57.5175539305556, 59.3333333333333, 58, 500000, 6375000)", "3301 Estonian Coordinate System of 1997"},
    {"Poland", R"(Earth Projection 8, 33, "m", 19, 0, 0.9993, 500000, -5300000)", "2180 ETRF2000-PL / CS92"},
    {"Britain", R"(Earth Projection 8, 79, "m", -2, 49, 0.9996012717, 400000, -100000)", "27700 OSGB36 / British National Grid"},
    {"Belgium", R"(Earth Projection 3, 110, "m", 4.3674866667, 90, 49.8333339, 51.1666672333, 150000.013, 5400088.438)", "31370 BD72 / Belgian Lambert 72"},
    {"GermanyZone2", R"(Earth Projection 8, 1000, "m", 6, 0, 1, 2500000, 0)", "31466 DHDN / 3-degree Gauss-Kruger zone 2"},
    {"GermanyZone3", R"(Earth Projection 8, 1000, "m", 9, 0, 1, 3500000, 0)", "31467 DHDN / 3-degree Gauss-Kruger zone 3"},
    {"GermanyZone4", R"(Earth Projection 8, 1000, "m", 12, 0, 1, 4500000, 0)", "31468 DHDN / 3-degree Gauss-Kruger zone 4"},
    {"FranceZone2", R"(Earth Projection 3, 1002, "m", 0, 46.8, 45.898918964419, 47.696014502038, 600000, 2200000)", "27572 NTF (Paris) / Lambert zone II"},
    {"Netherlands", R"(Earth Projection 31, 109, "m", 5.38763888889, 52.15616055556, 0.9999079, 155000, 463000)", "28992 Amersfoort / RD New"},
    {"NewZealand", R"(Earth Projection 8, 117, "m", 173, 0, 0.9996, 1600000, 10000000)", "2193 NZGD2000 / New Zealand Transverse Mercator 2000"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, TheSystemOfACountry, testing::ValuesIn(kCountries),
                         [](const auto& row) { return row.param.name; });

TEST(AZoneOnAnotherDatum, IsLeftToTheRegister) {
    EXPECT_EQ(WithoutRegister(Zone("28", 9.0, "0")), "none");
}

TEST(AZoneWithACentreOfItsOwn, IsLeftToTheRegister) {
    EXPECT_EQ(WithoutRegister(Zone("104", 9.5, "0")), "none");
    EXPECT_EQ(WithoutRegister(Zone("104", 183.0, "0")), "none");
    EXPECT_EQ(WithoutRegister(Zone("104", 9.0, "1")), "none");
}

TEST(AZoneBehindAnAffineTransformation, IsNoFrequentSystem) {
    EXPECT_EQ(
        WithoutRegister(app::ReadClause("Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500000, 0 "
                                        "Affine Units \"m\", 1, 0, 5, 0, 1, 5")),
        "none");
}

}  // namespace
