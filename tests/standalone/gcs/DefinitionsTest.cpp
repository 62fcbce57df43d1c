// Projections, datums, ellipsoids and systems as values.
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

namespace {

using gcs::DatumParameterID;
using gcs::ProjectionParameterID;

TEST(AProjection, IsUnknownUntilItHasAMethod) {
    gcs::ProjectionDef projection;
    EXPECT_TRUE(projection.IsUnknown(false));

    projection.SetMethod(gcs::ProjectionMethod::Robinson);

    EXPECT_FALSE(projection.IsUnknown(true));
}

TEST(AProjection, ReadsUnsetParametersAsZeroButUnitAndScaleAsOne) {
    const gcs::ProjectionParameters parameters = gcs::ProjectionDef().GetParameters();

    EXPECT_EQ(parameters.unitsPerMetre, 1.0);
    EXPECT_EQ(parameters.scaleFactor, 1.0);
    EXPECT_EQ(parameters.centralLongitude, 0.0);
    EXPECT_FALSE(parameters.rectifiedOrigin);
}

TEST(AProjection, GivesEachParameterByNumberAndByName) {
    auto projection = Projection(12, {{3, 2.0},
                                      {4, 4.0},
                                      {5, 5.0},
                                      {6, 6.0},
                                      {7, 7.0},
                                      {9, 9.0},
                                      {10, 10.0},
                                      {11, 11.0},
                                      {12, 12.0},
                                      {14, 14.0}});
    projection.SetParameter(ProjectionParameterID::DefinedByAzimuth, true);

    const gcs::ProjectionParameters parameters = projection.GetParameters();

    EXPECT_EQ(parameters.unitsPerMetre, 2.0);
    EXPECT_EQ(parameters.falseEasting, 4.0);
    EXPECT_EQ(parameters.falseNorthing, 5.0);
    EXPECT_EQ(parameters.centralLongitude, 6.0);
    EXPECT_EQ(parameters.centreLongitude, 7.0);
    EXPECT_EQ(parameters.latitudeOfOrigin, 9.0);
    EXPECT_EQ(parameters.standardParallel1, 10.0);
    EXPECT_EQ(parameters.standardParallel2, 11.0);
    EXPECT_EQ(parameters.scaleFactor, 12.0);
    EXPECT_EQ(parameters.azimuth, 14.0);
    EXPECT_TRUE(parameters.definedByAzimuth);
    EXPECT_EQ(projection.GetParameter(ProjectionParameterID::DefinedByAzimuth), 1.0);
}

TEST(AProjection, IgnoresAValueOfAnotherKind) {
    gcs::ProjectionDef projection;

    projection.SetParameter(ProjectionParameterID::RectifiedOrigin, 1.0);
    projection.SetParameter(ProjectionParameterID::Azimuth, true);
    projection.SetParameter(ProjectionParameterID::Ellipsoid, 3.0);
    projection.SetParameter(ProjectionParameterID::Azimuth, gcs::EllipsoidDef(1.0, 0.0));

    EXPECT_EQ(projection, gcs::ProjectionDef());
}

TEST(AProjection, HasNoEllipsoidUntilOneIsSet) {
    gcs::ProjectionDef projection;
    EXPECT_EQ(projection.GetEllipsoid(), nullptr);

    projection.SetParameter(ProjectionParameterID::Ellipsoid, gcs::EllipsoidDef(6370997.0, 0.0));

    ASSERT_NE(projection.GetEllipsoid(), nullptr);
    EXPECT_EQ(projection.GetEllipsoid()->GetMajorRadius(), 6370997.0);
}

TEST(AProjection, DiffersFromOneWithAnUnsetParameterOfTheSameValue) {
    EXPECT_NE(Projection(13, {{6, 0.0}}), Projection(13, {}));
}

TEST(ADatum, OfItsOwnHasNoTokenAndLeadsToWgs84) {
    gcs::DatumParameters parameters;
    parameters.kind = gcs::DatumMethod::ThreeParameters;
    gcs::DatumDef datum = KnownDatum(L"DATUM_ED50");

    datum.SetParameters(&parameters);

    EXPECT_EQ(datum.GetToken(), L"");
    EXPECT_EQ(datum.GetName(), L"");
    EXPECT_EQ(datum.GetTarget(), gcs::DatumTarget::WGS84);
}

TEST(ADatum, LeadsNowhereWhenItsParametersSaySo) {
    gcs::DatumParameters parameters;
    parameters.kind = gcs::DatumMethod::ThreeParameters;
    parameters.target = gcs::DatumTarget::None;
    gcs::DatumDef datum;

    datum.SetParameters(&parameters);

    EXPECT_EQ(datum.GetTarget(), gcs::DatumTarget::None);
}

TEST(ADatum, IsUnknownWithoutParameters) {
    gcs::DatumDef datum = KnownDatum(L"DATUM_ED50");

    datum.SetParameters(nullptr);

    EXPECT_TRUE(datum.IsUnknown());
    EXPECT_EQ(datum.GetTarget(), gcs::DatumTarget::None);
}

TEST(ADatum, GivesItsNumbersById) {
    const gcs::DatumDef datum = KnownDatum(L"DATUM_PULKOVO_1942");
    double shiftX = 0.0;
    double rotationZ = 0.0;
    double scale = 0.0;

    EXPECT_TRUE(datum.GetParameter(DatumParameterID::ShiftX, shiftX));
    EXPECT_TRUE(datum.GetParameter(DatumParameterID::RotationZ, rotationZ));
    EXPECT_TRUE(datum.GetParameter(DatumParameterID::Scale, scale));

    EXPECT_EQ(shiftX, 24.0);
    EXPECT_EQ(rotationZ, 0.13);
    EXPECT_EQ(scale, 1.1);
}

TEST(ADatum, GivesItsEllipsoidOnlyAsAnEllipsoid) {
    const gcs::DatumDef datum = KnownDatum(L"DATUM_WGS84");
    gcs::EllipsoidDef ellipsoid;
    double number = 5.0;

    EXPECT_TRUE(datum.GetParameter(DatumParameterID::Ellipsoid, ellipsoid));
    EXPECT_FALSE(datum.GetParameter(DatumParameterID::Ellipsoid, number));
    EXPECT_FALSE(datum.GetParameter(DatumParameterID::ShiftX, ellipsoid));

    EXPECT_EQ(ellipsoid.GetMajorRadius(), 6378137.0);
    EXPECT_EQ(number, 5.0);
}

TEST(ADatum, ThatIsUnknownGivesNothing) {
    double number = 5.0;

    EXPECT_FALSE(gcs::DatumDef().GetParameter(DatumParameterID::ShiftX, number));
    EXPECT_EQ(number, 5.0);
}

TEST(AnEllipsoid, ComparesExactlyOrByItsAxes) {
    const gcs::EllipsoidDef grs80(6378137.0, 1.0 / 298.257222101);
    const gcs::EllipsoidDef nearly(6378137.0 + 1e-7, 1.0 / 298.257222101);
    const gcs::EllipsoidDef wgs84(6378137.0, 1.0 / 298.257223563);

    EXPECT_TRUE(gcs::EllipsoidDef::CompareParameters(grs80, grs80, true));
    EXPECT_FALSE(gcs::EllipsoidDef::CompareParameters(grs80, nearly, true));
    EXPECT_TRUE(gcs::EllipsoidDef::CompareParameters(grs80, nearly, false));
    EXPECT_FALSE(gcs::EllipsoidDef::CompareParameters(grs80, wgs84, false));
}

TEST(ASystem, OfTheEarthHasTheUnitOfItsProjection) {
    gcs::GCSDef system;
    EXPECT_EQ(system.UnitFactor(), 1.0);

    system.SetProjection(Projection(25, {{3, 3.5}}));

    EXPECT_EQ(system.UnitFactor(), 3.5);
}

TEST(ASystem, SaysWhichPartsItHas) {
    gcs::GCSDef system;
    EXPECT_FALSE(system.HasProjection(false, true));
    EXPECT_FALSE(system.HasDatum(false));

    system.SetProjection(LongitudeLatitude());
    system.SetDatum(KnownDatum(L"DATUM_WGS84"));

    EXPECT_TRUE(system.HasProjection(false, false));
    EXPECT_TRUE(system.HasDatum(false));
}

TEST(ASystem, ClonesAsItself) {
    const gcs::GCSDef earth = System(LongitudeLatitude(), KnownDatum(L"DATUM_ED50"));
    const gcs::PlaneDef plane(39.37);

    const auto earthClone = earth.Clone();
    const auto planeClone = plane.Clone();

    ASSERT_EQ(earthClone->Type(), gcs::CSType::Earth);
    EXPECT_EQ(static_cast<const gcs::GCSDef&>(*earthClone).GetDatum().GetToken(), L"DATUM_ED50");
    EXPECT_EQ(planeClone->Type(), gcs::CSType::Nonearth);
    EXPECT_EQ(planeClone->UnitFactor(), 39.37);
}

}  // namespace
