// Systems of the host as clauses, and back.
#include "app/crs/HostSystem.h"
#include "tests/crs/Systems.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using enum app::ProjectionParameter;

app::CoordinateSystem FromHost(const gcs::ProjectionDef& projection) {
    const gcs::GCSDef system = System(projection, KnownDatum(L"DATUM_WGS84"));
    return app::FromHost(&system);
}

const gcs::ProjectionDef kAlbers = Projection(
    3,
    {{3, 1.0}, {6, -96.0}, {9, 23.0}, {10, 29.5}, {11, 45.5}, {14, 3000.0}, {4, 4000.0}, {5, 0.0}});

TEST(ASystemOfTheHost, HasTheFalseOriginOfAlbersOnePlaceFurther) {
    const app::CoordinateSystem system = FromHost(kAlbers);

    EXPECT_EQ((*system.clause)[FalseEasting], 3000.0);
    EXPECT_EQ((*system.clause)[FalseNorthing], 4000.0);
    EXPECT_TRUE(system.warnings.empty());
}

TEST(ASystemOfTheHost, WarnsOfASeventhNumberOfAlbers) {
    gcs::ProjectionDef albers = kAlbers;
    albers.SetParameter(gcs::ProjectionParameterID::FalseNorthing, 2.0);

    EXPECT_EQ(FromHost(albers).warnings,
              std::vector<std::string>{"the seventh number of the Albers projection is ignored"});
}

TEST(ASystemOfTheHost, HasTheConstantsOfTheMapGrid) {
    const app::CoordinateSystem system =
        FromHost(Projection(29, {{3, 1.0}, {4, 173.0}, {5, -41.0}}));

    EXPECT_EQ((*system.clause)[FalseEasting], 2510000.0);
}

TEST(ASystemOfTheHost, HasTheLatitudeOfAzimuthalProjectionsInTheParallel) {
    const app::CoordinateSystem system =
        FromHost(Projection(17, {{3, 1.0}, {6, 10.0}, {10, 52.0}}));

    EXPECT_EQ((*system.clause)[OriginLatitude], 52.0);
}

TEST(ASystemOfTheHost, WithADatumAloneIsGeographic) {
    gcs::GCSDef host;
    host.SetDatum(KnownDatum(L"DATUM_WGS84"));

    EXPECT_TRUE(app::FromHost(&host).isGeographic);
}

TEST(ASystemOfTheHost, ThatIsAPlaneHasItsUnit) {
    const gcs::PlaneDef feet(3.28083333333333);
    const gcs::PlaneDef unknown(0.0);

    EXPECT_EQ(app::UnitInWords(app::FromHost(&feet)), "survey ft");
    EXPECT_EQ(app::UnitInWords(app::FromHost(&unknown)), "m");
}

class AClauseForTheHost : public testing::TestWithParam<std::string> {};

TEST_P(AClauseForTheHost, ComesBackAsItWas) {
    const app::CoordinateSystem system = app::ReadClause(GetParam());
    const auto host = app::ToHost(*system.clause);
    ASSERT_NE(host, nullptr);

    EXPECT_TRUE(app::IsSameSystem(app::FromHost(host.get()), system));
    EXPECT_EQ(host->GetProjection().CheckParameters(), gcs::ProjectionParameterID::None);
}

INSTANTIATE_TEST_SUITE_P(
    , AClauseForTheHost,
    testing::Values("Earth Projection 1, 28",
                    R"(Earth Projection 3, 1002, "m", 0, 46.8, 45.9, 47.7, 600000, 2200000)",
                    R"(Earth Projection 29, 33, "m", 10, 52, 90)",
                    R"(Earth Projection 28, 33, "m", 10, 52, 90)",
                    R"(Earth Projection 6, 62, "m", -96, 23, 20, 60, 1, 2)",
                    R"(Earth Projection 7, 74, "m", -133.6, 57, 323.1, 0.9999, 5000000, -5000000)",
                    R"(Earth Projection 8, 79, "survey ft", -2, 49, 0.9996, 400000, -100000)",
                    R"(Earth Projection 9, 74, "m", -96, 23, 29.5, 45.5, 3000, 4000)",
                    R"(Earth Projection 12, 104, "m", 3)",
                    R"(Earth Projection 18, 31, "m", 173, -41, 2510000, 6023150)",
                    R"(Earth Projection 20, 104, "m", 0, 90, 0.994, 2000000, 2000000)",
                    R"(Earth Projection 33, 104, "0.001", 0, 30, 1, 2)",
                    R"(Earth Projection 1, 9999, 3, 24, -123, -94, -0.02, 0.25, 0.13, 1.1, 10.5)"),
    [](const auto& row) { return "Row" + std::to_string(row.index); });

TEST(AClauseThatTheModuleCantWrite, IsNullForTheHost) {
    for (const char* const text :
         {R"(Earth Projection 31, 109, "m", 5.4, 52.2, 0.9999, 155000, 463000)",
          R"(Earth Projection 10, 104, "m", 0 Affine Units "m", 1, 0, 5, 0, 1, 5)"}) {
        EXPECT_EQ(app::ToHost(*app::ReadClause(text).clause), nullptr) << text;
    }
}

TEST(AName, IsThatOfDatumAndMethod) {
    EXPECT_EQ(app::ReadClause(R"(Earth Projection 8, 104, "m", 9, 0, 1, 0, 0)").name,
              "World Geodetic System 1984 (WGS 84) / Transverse Mercator");
    EXPECT_EQ(app::ReadClause("Earth Projection 1, 999, 4, 1, 2, 3").name,
              "Custom datum on Hayford / Longitude/Latitude");
    EXPECT_EQ(app::ReadClause("NonEarth Units \"m\"").name, "Nonearth");
}

}  // namespace
