// One point a projection method, for each of the 24 ways in which a clause is laid out.
//
// The expected coordinates come from PROJ's programs, run by hand with definitions that were
// written for it, as in
//   echo 2.35 48.85 | cs2cs -f %.5f +proj=longlat +datum=WGS84 +to +proj=lcc +lat_1=44 +lat_2=49
//     +lat_0=46.5 +lon_0=3 +x_0=700000 +y_0=6600000 +ellps=WGS84 +towgs84=0,0,0
// and, for Miller, where cs2cs takes another radius,
//   echo 10 50 | proj -f %.5f +proj=mill +lon_0=3 +ellps=WGS84
#include "tests/crs/Systems.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct PointRow {
    std::string name;  // code of the clause and method
    int method;
    std::vector<std::pair<int, double>> parameters;  // as reading the clause sets them
    double longitude;
    double latitude;
    double x;
    double y;
};
void PrintTo(const PointRow& row, std::ostream* out) {
    *out << row.name;
}

app::CoordinateSystem SystemOf(const PointRow& row) {
    gcs::ProjectionDef projection = Projection(row.method, {{3, 1.0}});
    for (const auto& [id, value] : row.parameters) {
        projection.SetParameter(static_cast<gcs::ProjectionParameterID>(id), value);
    }
    if (row.method == 12) {
        projection.SetParameter(gcs::ProjectionParameterID::DefinedByAzimuth, true);
        projection.SetParameter(gcs::ProjectionParameterID::RectifiedOrigin, true);
    }
    const gcs::GCSDef system = System(projection, KnownDatum(L"DATUM_WGS84"));
    return app::FromHost(&system);
}

class AKnownPoint : public testing::TestWithParam<PointRow> {};

constexpr double kMillimetre = 0.001;
constexpr double kMillimetreInDegrees = 8e-9;

TEST_P(AKnownPoint, LiesWhereTheClauseSays) {
    const Place place = OnWgs84(SystemOf(GetParam()), {GetParam().x, GetParam().y});

    EXPECT_NEAR(place.x, GetParam().longitude, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, GetParam().latitude, kMillimetreInDegrees);
}

TEST_P(AKnownPoint, HasTheCoordinatesOfTheClause) {
    const Place place =
        FromWgs84(SystemOf(GetParam()), {GetParam().longitude, GetParam().latitude});

    EXPECT_NEAR(place.x, GetParam().x, kMillimetre);
    EXPECT_NEAR(place.y, GetParam().y, kMillimetre);
}

// clang-format off
const PointRow kPoints[] = {
    {"Code1LongitudeLatitude", 1, {}, 10, 50, 10, 50},
    {"Code3LambertConformal", 16, {{6, 3}, {7, 3}, {9, 46.5}, {10, 44}, {11, 49}, {4, 700000}, {5, 6600000}}, 2.35, 48.85, 652301.56483, 6861302.72590},
    {"Code4EqualAreaPolar", 17, {{6, 0}, {7, 0}, {9, 90}, {10, 90}}, 20, 75, 571259.14906, -1569521.61269},
    {"Code5EquidistantPolar", 4, {{6, 0}, {7, 0}, {10, 90}}, 20, 75, 572893.36521, -1574011.58467},
    {"Code6EquidistantConic", 10, {{6, -96}, {7, -96}, {9, 23}, {10, 20}, {11, 60}, {4, 1000}, {5, 2000}}, -90, 40, 482235.39158, 1902874.18391},
    {"Code7HotineOblique", 12, {{6, -133.66666666666667}, {7, -133.66666666666667}, {9, 57}, {10, 57}, {14, 323.1301023611111}, {12, 0.9999}, {4, 5000000}, {5, -5000000}}, -134.4, 58.3, 775672.46204, 720098.32960},
    {"Code8TransverseMercator", 25, {{6, 9}, {7, 9}, {9, 0}, {10, 0}, {12, 0.9996}, {4, 500000}, {5, 0}}, 10, 50, 571666.44750, 5539109.81530},
    {"Code8GaussKrueger", 26, {{6, 12}, {7, 12}, {9, -45}, {10, -45}, {12, 1}, {4, 300}, {5, 400}}, 10, -50, -143086.47848, -557420.09775},
    // A clause of this projection has no azimuth: its false easting is in that place, and so on.
    {"Code9Albers", 3, {{6, -96}, {7, -96}, {9, 23}, {10, 29.5}, {11, 45.5}, {14, 3000}, {4, 4000}, {5, 0}}, -90, 40, 510398.53690, 1907000.40169},
    {"Code10Mercator", 13, {{6, 3}, {7, 3}}, 10, 50, 779236.43555, 6413524.59416},
    {"Code11Miller", 18, {{6, 3}, {7, 3}}, 10, 50, 779236.43555, 6082427.84938},
    // Off the multiples of 5 degrees, where the inverse in PROJ is rough (0.1 m).
    {"Code12Robinson", 22, {{6, 3}, {7, 3}}, 10, 52, 565631.61979, 5532923.31507},
    {"Code13Mollweide", 14, {{6, 3}, {7, 3}}, 10, 50, 532443.23035, 5873471.95621},
    {"Code14EckertIV", 7, {{6, 3}, {7, 3}}, 10, 50, 558167.33151, 6071482.40599},
    {"Code15EckertVI", 8, {{6, 3}, {7, 3}}, 10, 50, 504100.81598, 6104019.10400},
    {"Code16Sinusoidal", 24, {{6, 3}, {7, 3}}, 10, 50, 501870.27531, 5540847.04169},
    // 173 and -41 are the numbers of such a clause; the grid has constants. On the ellipsoid of
    // WGS 84, as PROJ's grid with the shift of none.
    {"Code18NewZealandMapGrid", 29, {{4, 173}, {5, -41}}, 172, -42, 2427158.38169, 5911593.54332},
    {"Code20Stereographic", 20, {{6, 0}, {7, 0}, {9, 90}, {10, 0}, {12, 0.994}, {4, 2000000}, {5, 2000000}}, 20, 75, 2572729.89726, 426437.53983},
    {"Code20StereographicOblique", 20, {{6, 4}, {7, 4}, {9, 51}, {10, 0}, {12, 0.9999}, {4, 155000}, {5, 463000}}, 5, 52, 223678.87053, 574720.56551},
    {"Code27Polyconic", 21, {{6, -54}, {7, -54}, {9, -10}, {10, -10}, {4, 5000000}, {5, 10000000}}, -50, -15, 5430178.54596, 9442978.69475},
    {"Code28EquidistantAnyLatitude", 4, {{6, 10}, {7, 10}, {10, 50}}, 12, 52, 137366.99972, 224351.22747},
    {"Code29EqualAreaAnyLatitude", 17, {{6, 10}, {7, 10}, {10, 52}}, 12, 48, 149309.44216, -442822.11277},
    {"Code30CassiniSoldner", 6, {{6, -61.333333333333336}, {7, -61.333333333333336}, {9, 10.441666666666667}, {10, 10.441666666666667}, {4, 86501.46}, {5, 65379.01}}, -61.3, 10.5, 90150.38015, 71831.50931},
    {"Code33EquidistantCylindrical", 9, {{6, 3}, {7, 3}, {10, 30}, {4, 100}, {5, 200}}, 10, 50, 674938.54874, 5566174.53966},
    {"Code2003LambertWithOneParallel", 16, {{6, 3}, {7, 3}, {9, 46.8}, {10, 46.8}, {11, 46.8}, {4, 600000}, {5, 200000}}, 2.35, 48.85, 552265.35984, 428179.51721},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(, AKnownPoint, testing::ValuesIn(kPoints),
                         [](const auto& row) { return row.param.name; });

// cs2cs with +units=us-ft and false easting 300000 (metres); 984250 survey feet are that.
TEST(AUnit, OfSurveyFeetHoldsForTheFalseEastingToo) {
    const auto projection = Projection(16, {{3, 3.28083333333333},
                                            {6, -74.0},
                                            {9, 40.16666666666667},
                                            {10, 41.03333333333333},
                                            {11, 40.66666666666667},
                                            {4, 984250.0},
                                            {5, 0.0}});
    const gcs::GCSDef system = System(projection, KnownDatum(L"DATUM_WGS84"));

    const Place place = FromWgs84(app::FromHost(&system), {-73.9, 40.7});

    EXPECT_NEAR(place.x, 1011978.07676, 0.003);
    EXPECT_NEAR(place.y, 194321.16597, 0.003);
}

// cs2cs with +to_meter=1000 and false easting 500000 (metres).
TEST(AUnit, ThatIsANumberCountsUnitsPerMetre) {
    const auto projection =
        Projection(25, {{3, 0.001}, {6, 24.0}, {9, 0.0}, {12, 0.9996}, {4, 500.0}, {5, 0.0}});
    const gcs::GCSDef system = System(projection, KnownDatum(L"DATUM_WGS84"));

    const Place place = OnWgs84(app::FromHost(&system), {557.45094, 6540.48178});

    EXPECT_NEAR(place.x, 25.0, 2e-7);
    EXPECT_NEAR(place.y, 59.0, 2e-7);
}

}  // namespace
