// From the known datums, and from datums of a clause's own numbers, to WGS 84.
//
// Expected places that are not in DatumPoints.h come from cs2cs, run by hand, as in
//   echo 37 55 | cs2cs -f %.11f +proj=longlat +ellps=krass
//     +towgs84=24,-123,-94,0.02,-0.25,-0.13,1.1 +to +proj=longlat +datum=WGS84
// (its rotations have the opposite sign), and for the rotations also from cct with
//   +proj=helmert ... +rx=-0.02 +ry=0.25 +rz=0.13 +s=1.1 +convention=coordinate_frame
#include "tests/crs/DatumPoints.h"
#include "tests/crs/Systems.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

Place ToWgs84(const gcs::GCSDef& system, double x, double y) {
    return OnWgs84(app::FromHost(&system), {x, y});
}

Place ToWgs84(const gcs::DatumDef& datum, double x, double y) {
    return ToWgs84(System(LongitudeLatitude(), datum), x, y);
}

// What a clause with datum 999 or 9999 gives.
gcs::DatumDef CustomDatum(gcs::DatumMethod kind, const gcs::EllipsoidDef& ellipsoid,
                          const std::vector<double>& values) {
    std::vector<double> v = values;
    v.resize(8);
    gcs::DatumParameters parameters;
    parameters.kind = kind;
    parameters.ellipsoid = ellipsoid;
    parameters.dx = v[0];
    parameters.dy = v[1];
    parameters.dz = v[2];
    parameters.rx = v[3];
    parameters.ry = v[4];
    parameters.rz = v[5];
    parameters.scale = v[6];
    parameters.primeMeridian = v[7];
    gcs::DatumDef datum;
    datum.SetParameters(&parameters);
    return datum;
}

const gcs::EllipsoidDef kBessel(6377397.155, 1.0 / 299.1528128);
const gcs::EllipsoidDef kKrassovsky(6378245.0, 1.0 / 298.3);

// The same point through the definition that other programs get.
Place ThroughCs2cs(const gcs::GCSDef& system, double x, double y) {
    const std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> context(
        proj_context_create(), &proj_context_destroy);
    const std::unique_ptr<PJ, decltype(&proj_destroy)> way(
        proj_create_crs_to_crs(context.get(), app::FromHost(&system).definition.c_str(),
                               "+proj=longlat +datum=WGS84 +no_defs +type=crs", nullptr),
        &proj_destroy);
    const PJ_COORD to = proj_trans(way.get(), PJ_FWD, proj_coord(x, y, 0.0, HUGE_VAL));
    return {to.xy.x, to.xy.y};
}

class AKnownDatum : public testing::TestWithParam<DatumPoint> {};

TEST_P(AKnownDatum, HasItsPointWhereItsNumbersPutIt) {
    const DatumPoint& point = GetParam();

    const Place place = ToWgs84(KnownDatum(point.token), point.longitude, point.latitude);

    EXPECT_NEAR(place.x, point.wgs84Longitude, 1e-8);
    EXPECT_NEAR(place.y, point.wgs84Latitude, 1e-8);
}

TEST_P(AKnownDatum, HasADefinitionForOtherProgramsThatAgrees) {
    const DatumPoint& point = GetParam();

    const Place place = ThroughCs2cs(System(LongitudeLatitude(), KnownDatum(point.token)),
                                     point.longitude, point.latitude);

    EXPECT_NEAR(place.x, point.wgs84Longitude, 1e-8);
    EXPECT_NEAR(place.y, point.wgs84Latitude, 1e-8);
}

INSTANTIATE_TEST_SUITE_P(, AKnownDatum, testing::ValuesIn(kDatumPoints), [](const auto& row) {
    const std::wstring token = row.param.token;
    return std::string(token.begin(), token.end());
});

constexpr double kMillimetreInDegrees = 8e-9;

TEST(ADatumShift, OfNoneLeavesCoordinatesAlone) {
    const Place place = ToWgs84(KnownDatum(L"DATUM_GRS80EUREF89_BURSA"), 11.0, 49.0);

    EXPECT_EQ(place.x, 11.0);
    EXPECT_EQ(place.y, 49.0);
}

TEST(ADatumShift, OfNoneTakesTheLatitudeOfASphereAsThatOfTheEllipsoid) {
    const Place place = ToWgs84(KnownDatum(L"DATUM_EPSG_CRS4055_DAT6055_OP15973"), 24.0, 59.0);

    EXPECT_EQ(place.y, 59.0);
}

TEST(ADatumShift, OfThreeParametersMovesAlongTheAxes) {
    const Place place = ToWgs84(KnownDatum(L"DATUM_ED50"), 11.0, 49.0);

    EXPECT_NEAR(place.x, 10.99891218627, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 48.99917868671, kMillimetreInDegrees);
}

TEST(ADatumShift, OfSevenParametersTurnsTheFrame) {
    const Place place = ToWgs84(KnownDatum(L"DATUM_DHDN"), 11.0, 49.0);

    EXPECT_NEAR(place.x, 10.99869031631, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 48.99897976158, kMillimetreInDegrees);
}

TEST(ADatumShift, FollowsTheProjection) {
    const auto zone4 =
        Projection(25, {{3, 1.0}, {6, 12.0}, {9, 0.0}, {12, 1.0}, {4, 4500000.0}, {5, 0.0}});

    const Place place = ToWgs84(System(zone4, KnownDatum(L"DATUM_DHDN")), 4500000.0, 5430000.0);

    EXPECT_NEAR(place.x, 11.99854839939, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 49.00732460792, kMillimetreInDegrees);
}

TEST(ADatumShift, AddsThePrimeMeridianToGeographicCoordinates) {
    const Place place = ToWgs84(KnownDatum(L"DATUM_NTF_GREENWICH"), 0.1, 48.8);

    EXPECT_NEAR(place.x, 2.43651043513, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 48.79993160291, kMillimetreInDegrees);
}

TEST(ADatumShift, AddsThePrimeMeridianToTheCentralLongitude) {
    const auto lambert = Projection(16, {{3, 1.0},
                                         {6, 0.0},
                                         {9, 46.8},
                                         {10, 45.8989188889},
                                         {11, 47.6960144444},
                                         {4, 600000.0},
                                         {5, 2200000.0}});

    const Place place =
        ToWgs84(System(lambert, KnownDatum(L"DATUM_NTF_GREENWICH")), 600000, 2400000);

    EXPECT_NEAR(place.x, 2.33650926366, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 48.59867239049, kMillimetreInDegrees);
}

TEST(ADatumShift, OfAClauseWithThreeNumbersIsApplied) {
    const auto datum = CustomDatum(gcs::DatumMethod::ThreeParameters, kBessel, {374, 150, 588});

    const Place place = ToWgs84(datum, 24.5, 59.3);

    EXPECT_NEAR(place.x, 24.49967351941, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 59.30011270559, kMillimetreInDegrees);
}

TEST(ADatumShift, OfAClauseWithSevenNumbersTurnsTheCoordinateFrame) {
    const auto datum = CustomDatum(gcs::DatumMethod::SevenParameters, kKrassovsky,
                                   {24, -123, -94, -0.02, 0.25, 0.13, 1.1});

    const Place place = ToWgs84(datum, 37.0, 55.0);

    EXPECT_NEAR(place.x, 36.99825616426, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 55.00000064408, kMillimetreInDegrees);
}

TEST(ADatumShift, OfAClauseWithAPrimeMeridianAddsIt) {
    const auto datum = CustomDatum(gcs::DatumMethod::SevenParameters, kKrassovsky,
                                   {24, -123, -94, -0.02, 0.25, 0.13, 1.1, 10.5});

    const Place place = ToWgs84(datum, 37.0, 55.0);

    EXPECT_NEAR(place.x, 47.49845616719, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 55.00013720498, kMillimetreInDegrees);
}

TEST(ADatumShift, OfACustomDatumIsTheSameInTheDefinitionForOtherPrograms) {
    const auto datum = CustomDatum(gcs::DatumMethod::SevenParameters, kKrassovsky,
                                   {24, -123, -94, -0.02, 0.25, 0.13, 1.1, 10.5});

    const Place place = ThroughCs2cs(System(LongitudeLatitude(), datum), 37.0, 55.0);

    EXPECT_NEAR(place.x, 47.49845616719, kMillimetreInDegrees);
    EXPECT_NEAR(place.y, 55.00013720498, kMillimetreInDegrees);
}

TEST(ADatumShift, OfAnUnknownDatumIsNoneAndSaysSo) {
    const gcs::GCSDef system = System(LongitudeLatitude(), gcs::DatumDef());

    const Place place = ToWgs84(system, 24.5, 59.3);

    EXPECT_EQ(place.x, 24.5);
    EXPECT_EQ(place.y, 59.3);
    EXPECT_EQ(app::FromHost(&system).warnings,
              std::vector<std::string>{"the datum is not known; WGS 84 is taken"});
}

}  // namespace
