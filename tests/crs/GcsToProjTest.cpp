// Definitions for PROJ, and how a system is known in the EPSG register.
#include "app/crs/GcsToProj.h"
#include "app/crs/CrsIdentity.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

gcs::GCSDef Utm(const wchar_t* token, double centralLongitude) {
    return System(
        Projection(
            25, {{3, 1.0}, {6, centralLongitude}, {9, 0.0}, {12, 0.9996}, {4, 500000.0}, {5, 0.0}}),
        KnownDatum(token));
}

TEST(ADefinition, NamesTheDatumOfWgs84) {
    EXPECT_EQ(app::ToProj(Utm(L"DATUM_WGS84", 9.0)).crs,
              "+proj=tmerc +lon_0=9 +lat_0=0 +k_0=0.9996 +x_0=500000 +y_0=0 +datum=WGS84 +units=m "
              "+no_defs +type=crs");
}

TEST(ADefinition, TurnsTheRotationsOfTheShiftRound) {
    EXPECT_EQ(app::ToProj(System(LongitudeLatitude(), KnownDatum(L"DATUM_PULKOVO_1942"))).crs,
              "+proj=longlat +ellps=krass +towgs84=24,-123,-94,0.02,-0.25,-0.13,1.1 +no_defs "
              "+type=crs");
}

TEST(ADefinition, HasAPipelineThatTakesTheRotationsAsTheyAre) {
    EXPECT_EQ(app::ToProj(System(LongitudeLatitude(), KnownDatum(L"DATUM_PULKOVO_1942"))).toWgs84,
              "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step +proj=push +v_3 "
              "+step +proj=cart +ellps=krass +step +proj=helmert +x=24 +y=-123 +z=-94 +rx=-0.02 "
              "+ry=0.25 +rz=0.13 +s=1.1 +convention=coordinate_frame +step +inv +proj=cart "
              "+ellps=WGS84 +step +proj=pop +v_3 +step +proj=unitconvert +xy_in=rad +xy_out=deg");
}

TEST(ADefinition, GivesTheFalseOriginInMetres) {
    const auto feet = Projection(
        25, {{3, 3.28083333333333}, {6, 9.0}, {9, 0.0}, {12, 1.0}, {4, 984250.0}, {5, 0.0}});

    EXPECT_EQ(app::ToProj(System(feet, KnownDatum(L"DATUM_WGS84"))).crs,
              "+proj=tmerc +lon_0=9 +lat_0=0 +k_0=1 +x_0=300000 +y_0=0 +datum=WGS84 +units=us-ft "
              "+no_defs +type=crs");
}

TEST(ADefinition, TakesTheDisplacedFalseOriginOfAlbers) {
    const auto albers = Projection(3, {{3, 1.0},
                                       {6, -96.0},
                                       {9, 23.0},
                                       {10, 29.5},
                                       {11, 45.5},
                                       {14, 3000.0},
                                       {4, 4000.0},
                                       {5, 0.0}});

    EXPECT_EQ(app::ToProj(System(albers, KnownDatum(L"DATUM_WGS84"))).crs,
              "+proj=aea +lon_0=-96 +lat_0=23 +lat_1=29.5 +lat_2=45.5 +x_0=3000 +y_0=4000 "
              "+datum=WGS84 +units=m +no_defs +type=crs");
}

TEST(ADefinition, WarnsOfASeventhNumberOfAlbers) {
    const auto albers = Projection(
        3, {{6, -96.0}, {9, 23.0}, {10, 29.5}, {11, 45.5}, {14, 0.0}, {4, 1.0}, {5, 2.0}});

    EXPECT_EQ(app::ToProj(System(albers, KnownDatum(L"DATUM_WGS84"))).warnings,
              std::vector<std::string>{"the seventh number of the Albers projection is ignored"});
}

TEST(ADefinition, WarnsOfTheRadiusOfMiller) {
    EXPECT_EQ(app::ToProj(System(Projection(18, {{6, 0.0}}), KnownDatum(L"DATUM_WGS84"))).warnings,
              std::vector<std::string>{
                  "coordinates are taken on a sphere of the major radius; programs that read the "
                  "PROJ or WKT definition take one of equal area"});
}

TEST(ADefinition, MakesEqualParallelsAtTheOriginATangentCone) {
    const auto cone = Projection(
        16, {{3, 1.0}, {6, 3.0}, {9, 46.8}, {10, 46.8}, {11, 46.8}, {4, 600000.0}, {5, 200000.0}});

    EXPECT_EQ(app::ToProj(System(cone, KnownDatum(L"DATUM_WGS84"))).crs,
              "+proj=lcc +lon_0=3 +lat_0=46.8 +lat_1=46.8 +x_0=600000 +y_0=200000 +datum=WGS84 "
              "+units=m +no_defs +type=crs");
}

TEST(ADefinition, KeepsTheLatitudesOfTheWebMapSphere) {
    const auto web = System(Projection(13, {{3, 1.0}, {6, 0.0}}),
                            KnownDatum(L"DATUM_EPSG_CRS4055_DAT6055_OP15973"));

    EXPECT_EQ(app::ToProj(web).crs, "+proj=merc +lon_0=0 +x_0=0 +y_0=0 +a=6378137 +b=6378137 "
                                    "+nadgrids=@null +units=m +no_defs +type=crs");
}

TEST(ADefinition, OfADatumWithoutAProjectionIsGeographic) {
    gcs::GCSDef system;
    system.SetDatum(KnownDatum(L"DATUM_WGS84"));

    const app::ProjDefinition definition = app::ToProj(system);

    EXPECT_TRUE(definition.isGeographic);
    EXPECT_EQ(definition.crs, "+proj=longlat +datum=WGS84 +no_defs +type=crs");
}

struct CodeRow {
    std::string name;
    gcs::GCSDef system;
    int code;
};
void PrintTo(const CodeRow& row, std::ostream* out) {
    *out << row.name;
}

class ASystemOfTheEarth : public testing::TestWithParam<CodeRow> {};

TEST_P(ASystemOfTheEarth, IsKnownByItsCodeInTheRegister) {
    const app::CrsIdentity identity = app::Identify(GetParam().system);

    EXPECT_EQ(identity.epsgCode, GetParam().code);
    EXPECT_EQ(identity.epsgName.empty(), GetParam().code == 0);
    EXPECT_NE(identity.wkt2, "");
}

gcs::DatumDef OwnDatum() {
    gcs::DatumParameters parameters = KnownDatum(L"DATUM_ED50").GetParameters();
    gcs::DatumDef datum;
    datum.SetParameters(&parameters);
    return datum;
}

const gcs::ProjectionDef kNewZealand =
    Projection(25, {{3, 1.0}, {6, 173.0}, {9, 0.0}, {12, 0.9996}, {4, 1600000.0}, {5, 1e7}});
const gcs::ProjectionDef kBritain = Projection(
    25, {{3, 1.0}, {6, -2.0}, {9, 49.0}, {12, 0.9996012717}, {4, 400000.0}, {5, -100000.0}});

INSTANTIATE_TEST_SUITE_P(
    , ASystemOfTheEarth,
    testing::Values(
        CodeRow{"Wgs84", System(LongitudeLatitude(), KnownDatum(L"DATUM_WGS84")), 4326},
        CodeRow{"Ed50", System(LongitudeLatitude(), KnownDatum(L"DATUM_ED50")), 4230},
        CodeRow{"Utm32", Utm(L"DATUM_WGS84", 9.0), 32632},
        CodeRow{"EuropeanUtm32", Utm(L"DATUM_GRS80EUREF89_BURSA", 9.0), 25832},
        CodeRow{"BritishGrid", System(kBritain, KnownDatum(L"DATUM_ORD_SURV_GB")), 27700},
        CodeRow{"WithNorthingFirst", System(kNewZealand, KnownDatum(L"DATUM_NZGD2000")), 2193},
        CodeRow{"MapGrid",
                System(Projection(29, {{3, 1.0}, {4, 173.0}, {5, -41.0}}),
                       KnownDatum(L"DATUM_GEODETIC49")),
                27200},
        CodeRow{"WebMap",
                System(Projection(13, {{3, 1.0}, {6, 0.0}}),
                       KnownDatum(L"DATUM_EPSG_CRS4055_DAT6055_OP15973")),
                3857},
        CodeRow{"WithGradsInTheRegister",
                System(LongitudeLatitude(), KnownDatum(L"DATUM_NTF_GREENWICH")), 0},
        CodeRow{"OfADatumOfItsOwn", System(LongitudeLatitude(), OwnDatum()), 0},
        CodeRow{"WithACentreOfItsOwn", Utm(L"DATUM_WGS84", 9.5), 0}),
    [](const auto& row) { return row.param.name; });

TEST(Wkt, NamesTheSystemInWords) {
    const std::string wkt = app::Identify(Utm(L"DATUM_ED50", 9.0)).wkt2;

    EXPECT_EQ(wkt.rfind("PROJCRS[\"European 1950 (ED 50) / Transverse Mercator\",", 0), 0U) << wkt;
}

TEST(Wkt, BindsADatumOfItsOwnToWgs84) {
    const std::string wkt = app::Identify(System(LongitudeLatitude(), OwnDatum())).wkt2;

    EXPECT_EQ(wkt.rfind("BOUNDCRS[", 0), 0U) << wkt;
}

TEST(Wkt, IsEmptyForWhatHasNoDefinition) {
    EXPECT_EQ(app::Identify(System(Projection(28, {}), gcs::DatumDef())).wkt2, "");
    EXPECT_EQ(app::Identify(gcs::PlaneDef(1.0)).wkt2, "");
}

TEST(AName, IsThatOfDatumAndMethod) {
    EXPECT_EQ(app::NameInWords(Utm(L"DATUM_WGS84", 9.0)),
              "World Geodetic System 1984 (WGS 84) / Transverse Mercator");
    EXPECT_EQ(app::NameInWords(System(LongitudeLatitude(), OwnDatum())),
              "Custom datum on Hayford / Longitude/Latitude");
    EXPECT_EQ(app::NameInWords(System(Projection(99, {}), gcs::DatumDef())),
              "Unknown datum / Unknown projection");
    EXPECT_EQ(app::NameInWords(gcs::PlaneDef(1.0)), "Nonearth");
}

TEST(AUnitInWords, IsThatOfTheCoordinates) {
    EXPECT_EQ(app::UnitInWords(System(LongitudeLatitude(), gcs::DatumDef())), "degree");
    EXPECT_EQ(app::UnitInWords(Utm(L"DATUM_WGS84", 9.0)), "m");
    EXPECT_EQ(app::UnitInWords(gcs::PlaneDef(3.28083333333333)), "survey ft");
    EXPECT_EQ(app::UnitInWords(gcs::PlaneDef(0.3048)), "1/0.3048 m");
    EXPECT_EQ(app::UnitInWords(gcs::PlaneDef(0.0)), "m");
}

}  // namespace
