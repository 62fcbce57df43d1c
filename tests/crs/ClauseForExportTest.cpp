// Codes and definitions of other programs as systems for a MIF file.
//
// Expected coordinates come from cs2cs, run by hand from the geographic system to the projected
// one, as in: echo 48 2 | cs2cs -f %.4f EPSG:4275 +to EPSG:27572
#include "app/crs/ClauseForExport.h"
#include "tests/crs/Systems.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using gcs::ProjectionParameterID;

app::ClauseForExport ClauseOf(const std::string& definition) {
    return app::ClauseOf(app::SystemOfDefinition(definition));
}

struct CodeRow {
    std::string name;
    std::string definition;
    int method;
    std::vector<std::pair<int, double>> parameters;
    std::wstring datum;  // token; empty for a datum of its own
};
void PrintTo(const CodeRow& row, std::ostream* out) {
    *out << row.name;
}

class ACode : public testing::TestWithParam<CodeRow> {};

TEST_P(ACode, BecomesANumberedMethodWithParametersAndAKnownDatum) {
    const auto host = HostSystemOf(GetParam().definition);

    ASSERT_NE(host, nullptr);
    EXPECT_EQ(static_cast<int>(host->GetProjection().GetMethod()), GetParam().method);
    EXPECT_EQ(host->GetDatum().GetToken(), GetParam().datum);
    for (const auto& [id, value] : GetParam().parameters) {
        EXPECT_NEAR(host->GetProjection().GetParameter(static_cast<ProjectionParameterID>(id)),
                    value, std::fabs(value) * 1e-13)
            << "parameter " << id;
    }
}

TEST_P(ACode, PassesTheChecksOfTheWriter) {
    const auto host = HostSystemOf(GetParam().definition);

    ASSERT_NE(host, nullptr);
    const gcs::ProjectionDef& projection = host->GetProjection();
    EXPECT_EQ(projection.CheckParameters(), ProjectionParameterID::None);
    ASSERT_NE(projection.GetEllipsoid(), nullptr);
    EXPECT_EQ(*projection.GetEllipsoid(), host->GetDatum().GetEllipsoid());
}

// clang-format off
const CodeRow kCodes[] = {
    {"Geographic", "EPSG:4326", 1, {{3, 1}}, L"DATUM_WGS84"},
    {"GeographicWithHeight", "EPSG:4979", 1, {{3, 1}}, L"DATUM_WGS84"},
    {"GeographicInGrads", "EPSG:4807", 1, {{3, 1}}, L"DATUM_NTF_GREENWICH"},
    {"Estonia", "EPSG:3301", 16, {{3, 1}, {4, 500000}, {5, 6375000}, {6, 24}, {7, 24}, {9, 57.5175539305556}, {10, 59.3333333333333}, {11, 58}}, L"DATUM_GRS80EUREF89_BURSA"},
    {"Finland", "EPSG:3067", 25, {{4, 500000}, {5, 0}, {6, 27}, {9, 0}, {12, 0.9996}}, L"DATUM_GRS80EUREF89_BURSA"},
    {"Utm32", "EPSG:25832", 25, {{4, 500000}, {5, 0}, {6, 9}, {9, 0}, {12, 0.9996}}, L"DATUM_GRS80EUREF89_BURSA"},
    {"Britain", "EPSG:27700", 25, {{4, 400000}, {5, -100000}, {6, -2}, {9, 49}, {10, 49}, {12, 0.9996012717}}, L"DATUM_ORD_SURV_GB"},
    {"France", "EPSG:2154", 16, {{4, 700000}, {5, 6600000}, {6, 3}, {9, 46.5}, {10, 49}, {11, 44}}, L"DATUM_GRS80EUREF89_BURSA"},
    {"Belgium", "EPSG:31370", 16, {{4, 150000.013}, {5, 5400088.438}, {6, 4.36748666666667}, {9, 90}, {10, 51.1666672333333}, {11, 49.8333339}}, L"DATUM_BELGIUM"},
    {"WebMap", "EPSG:3857", 13, {{6, 0}, {9, 0}, {4, 0}, {5, 0}}, L"DATUM_EPSG_CRS4055_DAT6055_OP15973"},
    {"NewZealand", "EPSG:2193", 25, {{4, 1600000}, {5, 10000000}, {6, 173}, {12, 0.9996}}, L"DATUM_NZGD2000"},
    // How a clause of the grid begins.
    {"NewZealandMapGrid", "EPSG:27200", 29, {{4, 173}, {5, -41}}, L"DATUM_GEODETIC49"},
    {"Albers", "EPSG:5070", 3, {{6, -96}, {9, 23}, {10, 29.5}, {11, 45.5}, {14, 0}, {4, 0}, {5, 0}}, L"DATUM_NAD83"},
    // False easting in 14, false northing in 4.
    {"AlbersWithAFalseOrigin", "EPSG:3005", 3, {{6, -126}, {9, 45}, {10, 50}, {11, 58.5}, {14, 1000000}, {4, 0}, {5, 0}}, L"DATUM_NAD83"},
    {"AlbersWithAFalseNorthing", "+proj=aea +lat_1=20 +lat_2=40 +lat_0=30 +lon_0=5 +x_0=100 +y_0=200 +datum=NAD83", 3, {{14, 100}, {4, 200}, {5, 0}}, L"DATUM_NAD83"},
    {"SurveyFeet", "EPSG:2263", 16, {{3, 3.28083333333333}, {4, 984250}, {5, 0}, {6, -74}, {9, 40.1666666666667}, {10, 41.0333333333333}, {11, 40.6666666666667}}, L"DATUM_NAD83"},
    {"HotineOblique", "EPSG:26931", 12, {{6, -133.666666666667}, {7, -133.666666666667}, {9, 57}, {14, 323.130102361111}, {12, 0.9999}, {4, 5000000}, {5, -5000000}, {15, 1}, {16, 1}}, L"DATUM_NAD83"},
    {"PolarStereographic", "EPSG:32661", 20, {{6, 0}, {9, 90}, {10, 0}, {12, 0.994}, {4, 2000000}, {5, 2000000}}, L"DATUM_WGS84"},
    {"EqualAreaAzimuthal", "+proj=laea +lat_0=52 +lon_0=10 +datum=WGS84", 17, {{6, 10}, {9, 52}, {10, 52}}, L"DATUM_WGS84"},
    {"EquidistantAzimuthal", "+proj=aeqd +lat_0=52 +lon_0=10 +datum=WGS84", 4, {{6, 10}, {9, 52}, {10, 52}}, L"DATUM_WGS84"},
    {"EquidistantConic", "+proj=eqdc +lat_0=23 +lon_0=-96 +lat_1=20 +lat_2=60 +x_0=1 +y_0=2 +datum=WGS84", 10, {{4, 1}, {5, 2}, {6, -96}, {9, 23}, {10, 20}, {11, 60}}, L"DATUM_WGS84"},
    {"Cassini", "+proj=cass +lat_0=10 +lon_0=-61 +x_0=5 +y_0=6 +datum=WGS84", 6, {{4, 5}, {5, 6}, {6, -61}, {9, 10}}, L"DATUM_WGS84"},
    {"Polyconic", "EPSG:5880", 21, {{4, 5000000}, {5, 10000000}, {6, -54}, {9, 0}}, L"DATUM_GRS80EUREF89_BURSA"},
    {"Stereographic", "+proj=stere +lat_0=51 +lon_0=4 +k_0=0.9999 +x_0=1 +y_0=2 +datum=WGS84", 20, {{4, 1}, {5, 2}, {6, 4}, {9, 51}, {10, 0}, {12, 0.9999}}, L"DATUM_WGS84"},
    {"EquidistantCylindrical", "+proj=eqc +lat_ts=30 +lon_0=3 +x_0=1 +y_0=2 +datum=WGS84", 9, {{4, 1}, {5, 2}, {6, 3}, {10, 30}}, L"DATUM_WGS84"},
    {"Mercator", "EPSG:3395", 13, {{6, 0}}, L"DATUM_WGS84"},
    {"Miller", "+proj=mill +lon_0=3 +datum=WGS84", 18, {{6, 3}}, L"DATUM_WGS84"},
    {"Robinson", "+proj=robin +lon_0=3 +datum=WGS84", 22, {{6, 3}}, L"DATUM_WGS84"},
    {"Mollweide", "+proj=moll +lon_0=3 +datum=WGS84", 14, {{6, 3}}, L"DATUM_WGS84"},
    {"EckertIV", "+proj=eck4 +lon_0=3 +datum=WGS84", 7, {{6, 3}}, L"DATUM_WGS84"},
    {"EckertVI", "+proj=eck6 +lon_0=3 +datum=WGS84", 8, {{6, 3}}, L"DATUM_WGS84"},
    {"Sinusoidal", "+proj=sinu +lon_0=3 +datum=WGS84", 24, {{6, 3}}, L"DATUM_WGS84"},
    {"UnitThatIsANumber", "+proj=tmerc +lon_0=3 +x_0=500000 +datum=WGS84 +units=km", 25, {{3, 0.001}, {4, 500}}, L"DATUM_WGS84"},
    {"UrnOfACode", "urn:ogc:def:crs:EPSG::3067", 25, {{6, 27}}, L"DATUM_GRS80EUREF89_BURSA"},
    {"ShiftOfADatumOfItsOwn", "+proj=tmerc +lon_0=24 +ellps=bessel +towgs84=374,150,589", 25, {{6, 24}}, L""},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, ACode, testing::ValuesIn(kCodes),
                         [](const auto& row) { return row.param.name; });

struct RefusalRow {
    std::string name;
    std::string definition;
    std::string problem;
};
void PrintTo(const RefusalRow& row, std::ostream* out) {
    *out << row.name;
}

class ARefusal : public testing::TestWithParam<RefusalRow> {};

TEST_P(ARefusal, NamesWhatMifCantExpress) {
    const app::ClauseForExport found = ClauseOf(GetParam().definition);

    EXPECT_FALSE(found);
    EXPECT_EQ(found.problem, GetParam().problem);
    EXPECT_TRUE(found.warnings.empty());
}

// clang-format off
const RefusalRow kRefusals[] = {
    {"Krovak", "EPSG:5514", "MIF can't express the projection \"Krovak (North Orientated)\" (S-JTSK / Krovak East North)"},
    {"SouthOrientated", "EPSG:2053", "MIF can't express the projection \"Transverse Mercator (South Orientated)\" (Hartebeesthoek94 / Lo29)"},
    {"MercatorScaledUp", "+proj=merc +k=1.1 +datum=WGS84", "MIF can't express a scale factor of \"Mercator (variant A)\" above 1 (+proj=merc +k=1.1 +datum=WGS84)"},
    {"UnknownEllipsoid", "+proj=tmerc +a=6400000 +b=6390000 +towgs84=1,2,3", "MIF can't express the datum: MIF has no ellipsoid with the axes 6400000.000000 m and 6390000.000000 m (+proj=tmerc +a=6400000 +b=6390000 +towgs84=1,2,3)"},
    {"DatumWithoutAShift", "+proj=tmerc +ellps=bessel", "MIF can't express the datum: no transformation without a grid leads from \"unknown\" to WGS 84 (+proj=tmerc +ellps=bessel)"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, ARefusal, testing::ValuesIn(kRefusals),
                         [](const auto& row) { return row.param.name; });

TEST(ADatumForExport, OfNoTokenTakesTheShiftOfThePositionVectorTurnedRound) {
    const auto crs = ClauseOf("+proj=longlat +ellps=bessel +towgs84=1,2,3,4,5,6,7");

    ASSERT_TRUE(crs) << crs.problem;
    const gcs::DatumParameters& datum = crs.clause->datum.GetParameters();
    EXPECT_EQ(datum.kind, gcs::DatumMethod::SevenParameters);
    EXPECT_EQ(datum.dx, 1.0);
    EXPECT_EQ(datum.rx, -4.0);
    EXPECT_EQ(datum.ry, -5.0);
    EXPECT_EQ(datum.rz, -6.0);
    EXPECT_EQ(datum.scale, 7.0);
}

TEST(ADatumForExport, OfNoTokenHasTheShiftOfTheRegister) {
    const auto crs = ClauseOf("EPSG:2100");

    ASSERT_TRUE(crs) << crs.problem;
    EXPECT_EQ(crs.clause->datum.GetParameters().dx, -199.87);
    EXPECT_EQ(crs.warnings, std::vector<std::string>{
                                "the datum of \"GGRS87\" has no code in MIF; the clause has the "
                                "numbers of \"GGRS87 to WGS 84 (1)\""});
}

// The code of GRS 80 in a clause is 0, which reads back as no ellipsoid at all.
TEST(ADatumForExport, OfNoTokenIsOnWgs84InsteadOfGrs80) {
    const auto crs = ClauseOf("EPSG:2100");

    ASSERT_TRUE(crs) << crs.problem;
    EXPECT_EQ(crs.clause->datum.GetEllipsoid(), KnownDatum(L"DATUM_WGS84").GetEllipsoid());
}

TEST(ADatumForExport, ThatHasAKnownTokenWithTheSameNumbersSaysSo) {
    EXPECT_EQ(
        ClauseOf("EPSG:3301").warnings,
        std::vector<std::string>{"the datum of \"EST97\" has no code in MIF; \"GRS 80 / EUREF "
                                 "89 (ETRS89)\" has the same numbers"});
}

TEST(ADatumForExport, WithSeveralTokensSaysWhichIsTaken) {
    EXPECT_EQ(ClauseOf("EPSG:4267").warnings,
              std::vector<std::string>{
                  "MIF has several datums for \"NAD27\"; \"North American 1927 (continental US), "
                  "three-shift form\" is taken"});
}

TEST(ADatumForExport, KeepsAPrimeMeridianOfGeographicCoordinates) {
    const auto crs = ClauseOf("+proj=longlat +ellps=bessel +pm=10 +towgs84=1,2,3");

    ASSERT_TRUE(crs) << crs.problem;
    EXPECT_EQ(crs.clause->datum.GetParameters().primeMeridian, 10.0);
    EXPECT_EQ(crs.clause->datum.GetMethod(), gcs::DatumMethod::SevenParameters);
}

TEST(ADatumForExport, LeavesAPrimeMeridianToTheProjection) {
    const auto crs = ClauseOf("+proj=tmerc +lon_0=24 +ellps=bessel +pm=10 +towgs84=1,2,3");

    ASSERT_TRUE(crs) << crs.problem;
    EXPECT_EQ(crs.clause->datum.GetParameters().primeMeridian, 0.0);
    EXPECT_EQ((*crs.clause)[app::ProjectionParameter::OriginLongitude], 34.0);
}

TEST(ASystemForExport, ComesFromOldWkt) {
    const auto crs = ClauseOf(
        "PROJCS[\"NAD_1983_Contiguous_USA_Albers\",GEOGCS[\"GCS_North_American_1983\",DATUM[\"D_"
        "North_American_1983\",SPHEROID[\"GRS_1980\",6378137.0,298.257222101]],PRIMEM["
        "\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Albers\"],PARAMETER["
        "\"False_Easting\",7.0],PARAMETER[\"False_Northing\",8.0],PARAMETER[\"Central_Meridian\",-"
        "96.0],PARAMETER[\"Standard_Parallel_1\",29.5],PARAMETER[\"Standard_Parallel_2\",45.5],"
        "PARAMETER[\"Latitude_Of_Origin\",23.0],UNIT[\"Meter\",1.0]]");

    ASSERT_TRUE(crs) << crs.problem;
    EXPECT_EQ((*crs.clause)[app::ProjectionParameter::FalseEasting], 7.0);
    EXPECT_EQ((*crs.clause)[app::ProjectionParameter::FalseNorthing], 8.0);
    EXPECT_EQ(crs.clause->datum.GetToken(), L"DATUM_NAD83");
}

struct PointRow {
    std::string name;
    std::string definition;
    double longitude;  // from Greenwich, degrees of the datum
    double latitude;
    double x;
    double y;
};
void PrintTo(const PointRow& row, std::ostream* out) {
    *out << row.name;
}

class ARewrittenProjection : public testing::TestWithParam<PointRow> {};

TEST_P(ARewrittenProjection, HasTheSameCoordinates) {
    app::ClauseForExport crs = ClauseOf(GetParam().definition);
    ASSERT_TRUE(crs) << crs.problem;
    // Without the shift of the datum, which may be another than PROJ's.
    gcs::DatumParameters parameters = crs.clause->datum.GetParameters();
    parameters.kind = gcs::DatumMethod::None;
    crs.clause->datum.SetParameters(&parameters);

    const Place place =
        FromWgs84(app::SystemOfClause(*crs.clause), {GetParam().longitude, GetParam().latitude});

    EXPECT_NEAR(place.x, GetParam().x, 0.001);
    EXPECT_NEAR(place.y, GetParam().y, 0.001);
}

INSTANTIATE_TEST_SUITE_P(, ARewrittenProjection,
                         testing::Values(PointRow{"ConeWithAScaleFactor", "EPSG:27572", 2, 48,
                                                  574830.5681, 2333461.3503},
                                         PointRow{"PolarProjectionWithATrueParallel", "EPSG:3413",
                                                  -60, 70, -566277.3449, -2113375.8225},
                                         PointRow{"SouthPolarProjection", "EPSG:3031", -60, -80,
                                                  -943257.0779, 544589.7278},
                                         PointRow{"ObliqueMercatorAtItsCentre", "EPSG:2056", 8.25,
                                                  47.125, 2661484.8706, 1219503.2533}),
                         [](const auto& row) { return row.param.name; });

TEST(AConeThatIsScaledUp, IsEnlargedByAnAffineTransformationAroundItsOrigin) {
    const app::ClauseForExport crs =
        ClauseOf("+proj=lcc +lat_1=40 +lat_0=40 +k_0=1.5 +x_0=100 +y_0=200 +datum=WGS84");

    ASSERT_TRUE(crs) << crs.problem;
    const app::AffineTransformation expected{1.5, 0.0, -50.0, 0.0, 1.5, -100.0, 1.0};
    EXPECT_EQ(crs.clause->affine, expected);
    EXPECT_EQ(crs.warnings, std::vector<std::string>{"a part of the system becomes an affine "
                                                     "transformation, which some programs ignore"});
}

TEST(ADatumOnAnotherEllipsoid, HasItsOwnNumbers) {
    const app::ClauseForExport crs = ClauseOf("EPSG:29849");

    ASSERT_TRUE(crs) << crs.problem;
    EXPECT_EQ(crs.clause->datum.GetToken(), L"");
    EXPECT_EQ(crs.clause->datum.GetEllipsoid().GetMajorRadius(), 6377298.556);
}

}  // namespace
