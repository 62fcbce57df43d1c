#include "export/CoordSysWriter.h"

#include "tests/export/CoordinateSystems.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace mif::test {

namespace {

using gcs::DatumMethod;
using gcs::ProjectionMethod;
using enum gcs::ProjectionParameterID;

// A system of a type that the writer does not know.
class OddSystem : public gcs::CSDef {
public:
    gcs::CSType Type() const override { return gcs::CSType::Unknown; }
    double UnitFactor() const override { return 1.0; }
    std::unique_ptr<gcs::CSDef> Clone() const override { return std::make_unique<OddSystem>(); }
};

gcs::DatumDef Wgs84() {
    return KnownDatum(L"DATUM_WGS84");
}

gcs::GCSDef Lambert(double unitsPerMetre) {
    return Earth(
        Projection(ProjectionMethod::LambertConformalConic, {{UnitsPerMetre, unitsPerMetre},
                                                             {CentralLongitude, -96.0},
                                                             {LatitudeOfOrigin, 23.0},
                                                             {StandardParallel1, 29.5},
                                                             {StandardParallel2, 45.5},
                                                             {FalseEasting, 1000000.0},
                                                             {FalseNorthing, 0.5}}),
        Wgs84());
}

// The clause of longitude and latitude on a datum of its own.
std::string OwnDatumClause(const gcs::DatumParameters& parameters) {
    return HeaderClause(
        Earth(Projection(ProjectionMethod::LongitudeLatitude), OwnDatum(parameters)));
}

}  // namespace

TEST(CoordSys, OfNothingIsEmptyAndNeedsVersion300) {
    std::string clause = "left from before";
    unsigned minVersion = 9;
    WriteCoordSys(nullptr, clause, minVersion, /*inlineForm=*/false);

    EXPECT_EQ(clause, "");
    EXPECT_EQ(minVersion, 300U);
}

TEST(CoordSys, OfAnUnknownTypeIsEmpty) {
    EXPECT_EQ(HeaderClause(OddSystem()), "300 ");
}

TEST(CoordSys, OfWgs84IsDatum104) {
    EXPECT_EQ(HeaderClause(Geographic()), "300 COORDSYS Earth  \n  Projection 1, 104\n");
}

TEST(CoordSys, OfMethod1WithADatumOfNoTableAndNoTargetIsDatum104) {
    const gcs::GCSDef system =
        Earth(Projection(ProjectionMethod::LongitudeLatitude), gcs::DatumDef());

    EXPECT_EQ(HeaderClause(system), "300 COORDSYS Earth  \n  Projection 1, 104\n");
}

TEST(CoordSys, FindsTheDatumsTokenInAnyCase) {
    gcs::DatumParameters parameters;
    parameters.kind = DatumMethod::ThreeParameters;
    parameters.ellipsoid = {6378160.0, 1.0 / 298.25};
    const gcs::GCSDef system = Earth(Projection(ProjectionMethod::LongitudeLatitude),
                                     gcs::DatumDef(L"datum_Agd84", L"", parameters));

    EXPECT_EQ(HeaderClause(system), "600 COORDSYS Earth  \n  Projection 1, 1006\n");
}

TEST(CoordSys, OfMethod16InMetresHasSixParametersInTheOrderOfTheFields) {
    EXPECT_EQ(HeaderClause(Lambert(1.0)), "300 COORDSYS Earth  \n  Projection 3, 104, \"m\", -96, "
                                          "23, 29.5, 45.5, 1000000, 0.5\n");
}

TEST(CoordSys, WritesParametersWithSixteenDigits) {
    const gcs::GCSDef system =
        Earth(Projection(ProjectionMethod::Mercator, {{CentralLongitude, 0.1 + 0.2}}), Wgs84());

    EXPECT_EQ(HeaderClause(system), "300 COORDSYS Earth  \n  Projection 10, 104, \"m\", 0.3\n");
}

TEST(CoordSys, WritesParametersWithALowerCaseExponent) {
    const gcs::GCSDef system =
        Earth(Projection(ProjectionMethod::Mercator, {{CentralLongitude, 1e-7}}), Wgs84());

    EXPECT_EQ(HeaderClause(system), "300 COORDSYS Earth  \n  Projection 10, 104, \"m\", 1e-07\n");
}

TEST(CoordSys, OfMethod12TakesTheLongitudeOfTheCentre) {
    gcs::ProjectionDef projection =
        Projection(ProjectionMethod::HotineObliqueMercator, {{CentralLongitude, 1.0},
                                                             {CentreLongitude, 2.0},
                                                             {LatitudeOfOrigin, 3.0},
                                                             {Azimuth, 4.0},
                                                             {ScaleFactor, 0.9996}});
    projection.SetParameter(RectifiedOrigin, true);

    EXPECT_EQ(HeaderClause(Earth(projection, Wgs84())),
              "300 COORDSYS Earth  \n  Projection 7, 104, \"m\", 2, 3, 4, 0.9996, 0, 0\n");
}

TEST(CoordSys, KeptHasARangeOfNinetyDegreesWhereTheClauseTakesOne) {
    const gcs::GCSDef system =
        Earth(Projection(ProjectionMethod::AzimuthalEquidistant,
                         {{CentralLongitude, 10.0}, {StandardParallel1, 20.0}}),
              Wgs84());

    EXPECT_EQ(HeaderClause(system),
              "300 COORDSYS Earth  \n  Projection 5, 104, \"m\", 10, 20, 90\n");
}

TEST(CoordSys, OfMethod9NeedsVersion1050) {
    const gcs::GCSDef system = Earth(Projection(ProjectionMethod::EquidistantCylindrical), Wgs84());

    EXPECT_EQ(HeaderClause(system),
              "1050 COORDSYS Earth  \n  Projection 33, 104, \"m\", 0, 0, 0, 0\n");
}

TEST(CoordSys, OfThreeShiftsIsDatum999WithTheClosestEllipsoid) {
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::ThreeParameters,
                              .ellipsoid = {},
                              .dx = -87.5,
                              .dy = 1.0 / 3.0,
                              .dz = 1e-5}),
              "450 COORDSYS Earth  \n  Projection 1, 999, 5, -87.5, 0.3333333333333333, 1E-05\n");
}

TEST(CoordSys, OfThreeShiftsFromAnotherMeridianFallsBackTo104) {
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::ThreeParameters,
                              .ellipsoid = {},
                              .dx = 1.0,
                              .primeMeridian = 2.3}),
              "300 COORDSYS Earth  \n  Projection 1, 104\n");
}

TEST(CoordSys, OfSevenParametersIsDatum9999WhateverTheMeridian) {
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::SevenParameters,
                              .ellipsoid = {6377397.155, 1.0 / 299.1528128},
                              .dx = 582.0,
                              .dy = 105.0,
                              .dz = 414.0,
                              .rx = -1.04,
                              .ry = -0.35,
                              .rz = 3.08,
                              .scale = 8.25,
                              .primeMeridian = 2.5}),
              "450 COORDSYS Earth  \n  Projection 1, 9999, 10, 582, 105, 414, -1.04, -0.35, 3.08, "
              "8.25, 2.5\n");
}

TEST(CoordSys, OfNoShiftIsDatum999WithZeros) {
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::None, .ellipsoid = Wgs84Ellipsoid(), .dx = 9.0}),
              "450 COORDSYS Earth  \n  Projection 1, 999, 28, 0, 0, 0\n");
}

TEST(CoordSys, OfNoShiftFromAnotherMeridianFallsBackTo104) {
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::None, .ellipsoid = {}, .primeMeridian = 1.0}),
              "300 COORDSYS Earth  \n  Projection 1, 104\n");
}

TEST(CoordSys, OfAKnownDatumWithoutACodeIsWrittenByItsShift) {
    gcs::DatumParameters parameters;
    parameters.kind = DatumMethod::ThreeParameters;
    parameters.ellipsoid = Wgs84Ellipsoid();
    parameters.dx = 1.0;
    const gcs::GCSDef system = Earth(Projection(ProjectionMethod::LongitudeLatitude),
                                     gcs::DatumDef(L"DATUM_OF_THE_HOST", L"", parameters));

    EXPECT_EQ(HeaderClause(system), "450 COORDSYS Earth  \n  Projection 1, 999, 28, 1, 0, 0\n");
}

TEST(CoordSys, OfAShiftThatDoesNotLeadToWgs84FallsBackTo104) {
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::ThreeParameters,
                              .ellipsoid = {},
                              .dx = 1.0,
                              .target = gcs::DatumTarget::None}),
              "300 COORDSYS Earth  \n  Projection 1, 104\n");
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::SevenParameters,
                              .ellipsoid = {},
                              .dx = 1.0,
                              .target = gcs::DatumTarget::None}),
              "300 COORDSYS Earth  \n  Projection 1, 104\n");
}

struct EllipsoidRowOfTest {
    std::string name;
    gcs::EllipsoidDef ellipsoid;
    std::string code;
};
class ClosestEllipsoid : public testing::TestWithParam<EllipsoidRowOfTest> {};

TEST_P(ClosestEllipsoid, IsTheFirstOfTheSmallestDifference) {
    EXPECT_EQ(OwnDatumClause({.kind = DatumMethod::None, .ellipsoid = GetParam().ellipsoid}),
              "450 COORDSYS Earth  \n  Projection 1, 999, " + GetParam().code + ", 0, 0, 0\n");
}
INSTANTIATE_TEST_SUITE_P(
    , ClosestEllipsoid,
    testing::Values(
        // Hayford (5) comes before International 1924 (4), which has the same radii.
        EllipsoidRowOfTest{"FirstOfTwins", {6378388.0, 1.0 / 297.0}, "5"},
        EllipsoidRowOfTest{"Grs80IsCodeZero", {6378137.0, 1.0 / 298.257222101}, "0"},
        EllipsoidRowOfTest{"Sphere", {6370997.0, 0.0}, "12"},
        EllipsoidRowOfTest{"TinyIsNearestTheSmallest", {1.0, 0.0}, "46"},
        EllipsoidRowOfTest{
            "NotANumberIsCodeZero", {std::numeric_limits<double>::quiet_NaN(), 0.0}, "0"}),
    [](const auto& row) { return row.param.name; });

TEST(CoordSys, IsRefusedWithoutAProjection) {
    gcs::GCSDef system;
    system.SetDatum(Wgs84());

    EXPECT_EQ(HeaderClause(system), "300 ");
}

TEST(CoordSys, IsRefusedForAMethodWithoutACode) {
    EXPECT_EQ(HeaderClause(Earth(Projection(ProjectionMethod::ArbitraryPlane), Wgs84())), "300 ");
    EXPECT_EQ(HeaderClause(Earth(Projection(ProjectionMethod::ObliqueMercatorOther), Wgs84())),
              "300 ");
}

TEST(CoordSys, IsRefusedWhenProjectionAndDatumDisagreeOnTheEllipsoid) {
    gcs::ProjectionDef projection = Projection(ProjectionMethod::Mercator);
    projection.SetParameter(Ellipsoid, gcs::EllipsoidDef(6378137.0, 1.0 / 298.257222101));

    EXPECT_EQ(HeaderClause(Earth(projection, Wgs84())), "300 ");
}

TEST(CoordSys, IsWrittenWhenProjectionAndDatumAgreeOnTheEllipsoid) {
    gcs::ProjectionDef projection = Projection(ProjectionMethod::Mercator);
    projection.SetParameter(Ellipsoid, Wgs84().GetEllipsoid());

    EXPECT_EQ(HeaderClause(Earth(projection, Wgs84())),
              "300 COORDSYS Earth  \n  Projection 10, 104, \"m\", 0\n");
}

TEST(CoordSys, IsWrittenWhenOnlyTheProjectionHasAnEllipsoid) {
    gcs::ProjectionDef projection = Projection(ProjectionMethod::Mercator);
    projection.SetParameter(Ellipsoid, gcs::EllipsoidDef(6378160.0, 1.0 / 298.25));

    EXPECT_EQ(HeaderClause(Earth(projection, gcs::DatumDef())),
              "300 COORDSYS Earth  \n  Projection 10, 104, \"m\", 0\n");
}

struct RefusalRow {
    std::string name;
    ProjectionMethod method;
    gcs::ProjectionParameterID id;
    double value;
    bool isWritten;
};
class AProjectionValue : public testing::TestWithParam<RefusalRow> {};

TEST_P(AProjectionValue, DecidesWhetherThereIsAClause) {
    const gcs::ProjectionDef projection =
        Projection(GetParam().method, {{GetParam().id, GetParam().value}});

    EXPECT_EQ(HeaderClause(Earth(projection, Wgs84())) != "300 ", GetParam().isWritten);
}
INSTANTIATE_TEST_SUITE_P(
    , AProjectionValue,
    testing::Values(
        RefusalRow{"FalseEastingWithoutAField", ProjectionMethod::Mercator, FalseEasting, 1.0,
                   false},
        RefusalRow{"FalseNorthingWithoutAField", ProjectionMethod::Mercator, FalseNorthing, -1.0,
                   false},
        RefusalRow{"FalseEastingWithAField", ProjectionMethod::Polyconic, FalseEasting, 1.0, true},
        RefusalRow{"FalseEastingOfLongitudeLatitude", ProjectionMethod::LongitudeLatitude,
                   FalseEasting, 1.0, false},
        RefusalRow{"LatitudeOfMercator", ProjectionMethod::Mercator, LatitudeOfOrigin, 5.0, false},
        RefusalRow{"ObliqueWithoutRectifiedOrigin", ProjectionMethod::HotineObliqueMercator,
                   Azimuth, 30.0, false},
        RefusalRow{"StereographicParallelOfZero", ProjectionMethod::Stereographic,
                   StandardParallel1, 0.0, true},
        RefusalRow{"KeptStereographicParallelAtAnyLatitude", ProjectionMethod::Stereographic,
                   StandardParallel1, 60.0, false},
        RefusalRow{"KeptNegativeStereographicParallel", ProjectionMethod::Stereographic,
                   StandardParallel1, -60.0, false},
        RefusalRow{"StereographicParallelOfTheEpsilon", ProjectionMethod::Stereographic,
                   StandardParallel1, 1.1920928955078125e-7, true}),
    [](const auto& row) { return row.param.name; });

struct LatitudeRow {
    std::string name;
    double latitudeOfOrigin;
    bool isWritten;
};
class AStereographicParallel : public testing::TestWithParam<LatitudeRow> {};

TEST_P(AStereographicParallel, KeptIsRefusedUpToThePoleOnly) {
    const gcs::ProjectionDef projection =
        Projection(ProjectionMethod::Stereographic,
                   {{LatitudeOfOrigin, GetParam().latitudeOfOrigin}, {StandardParallel1, 60.0}});

    EXPECT_EQ(HeaderClause(Earth(projection, Wgs84())) != "300 ", GetParam().isWritten);
}
INSTANTIATE_TEST_SUITE_P(, AStereographicParallel,
                         testing::Values(LatitudeRow{"AtTheEquator", 0.0, false},
                                         LatitudeRow{"AtTheNorthPole", 90.0, false},
                                         LatitudeRow{"AtTheSouthPole", -90.0, false},
                                         LatitudeRow{"BeyondTheNorthPole", 90.5, true},
                                         LatitudeRow{"BeyondTheSouthPole", -90.5, true}),
                         [](const auto& row) { return row.param.name; });

TEST(CoordSys, OfAStereographicProjectionHasItsLatitudeOfOrigin) {
    const gcs::ProjectionDef projection =
        Projection(ProjectionMethod::Stereographic, {{LatitudeOfOrigin, 90.0}});

    EXPECT_EQ(HeaderClause(Earth(projection, Wgs84())),
              "300 COORDSYS Earth  \n  Projection 20, 104, \"m\", 0, 90, 1, 0, 0\n");
}

TEST(InlineCoordSys, NamesTheUnitsOfAProjectionAtTheEnd) {
    EXPECT_EQ(InlineClause(Lambert(3.28083333333333)),
              "300 CoordSys Earth Projection 3, 104, \"survey ft\", -96, 23, 29.5, 45.5, 1000000, "
              "0.5\nUnits \"survey ft\"");
}

TEST(InlineCoordSys, OfLongitudeLatitudeNamesItsUnitToo) {
    EXPECT_EQ(InlineClause(Geographic()), "300 CoordSys Earth Projection 1, 104\nUnits \"m\"");
}

TEST(InlineCoordSys, TakesAUnitFactorOfZeroForOne) {
    const gcs::GCSDef system =
        Earth(Projection(ProjectionMethod::LongitudeLatitude, {{UnitsPerMetre, 0.0}}), Wgs84());

    EXPECT_EQ(InlineClause(system), "300 CoordSys Earth Projection 1, 104\nUnits \"m\"");
}

TEST(NonearthCoordSys, HasThePlanesUnit) {
    EXPECT_EQ(HeaderClause(gcs::PlaneDef(1.0)), "300 COORDSYS Nonearth\nUnits \"m\"\n");
    EXPECT_EQ(InlineClause(gcs::PlaneDef(3.28083333333333)),
              "300 CoordSys Nonearth\nUnits \"survey ft\"\n");
}

TEST(NonearthCoordSys, TakesAUnitFactorOfZeroForOne) {
    EXPECT_EQ(HeaderClause(gcs::PlaneDef(0.0)), "300 COORDSYS Nonearth\nUnits \"m\"\n");
}

struct UnitRow {
    std::string name;
    double unitsPerMetre;
    std::string text;
};
class UnitNameOf : public testing::TestWithParam<UnitRow> {};

TEST_P(UnitNameOf, AFactor) {
    EXPECT_EQ(UnitName(GetParam().unitsPerMetre), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(
    , UnitNameOf,
    testing::Values(UnitRow{"SurveyFoot", 3.280833333, "\"survey ft\""},
                    UnitRow{"SurveyFootAsRead", 3.28083333333333, "\"survey ft\""},
                    UnitRow{"BesideTheSurveyFoot", 3.280836, "\"3.280836\""},
                    UnitRow{"KeptInternationalFoot", 1.0 / 0.3048, "\"3.280839895013123\""},
                    UnitRow{"KeptAFactorWithoutAName", 0.3048, "\"0.3048\""},
                    UnitRow{"Metre", 1.0, "\"m\""}, UnitRow{"NearlyAMetre", 1.0009, "\"m\""},
                    UnitRow{"NoMetre", 1.0011, "\"1.0011\""},
                    UnitRow{"Kilometre", 0.001, "\"0.001\""},
                    UnitRow{"AnExponent", 1e-10, "\"1E-10\""}),
    [](const auto& row) { return row.param.name; });

}  // namespace mif::test
