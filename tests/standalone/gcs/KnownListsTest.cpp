// The known datums and ellipsoids and how they are found.
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

const gcs::DatumList& Datums() {
    return gcs::GCSKnownDatumsList;
}
const gcs::EllipsoidList& Ellipsoids() {
    return gcs::GCSKnownEllipsoidsList;
}

std::set<std::wstring> Tokens() {
    std::set<std::wstring> tokens;
    for (int index = 2; index < Datums().Count(); ++index) {
        gcs::DatumDef datum;
        Datums().Enum(index, datum);
        tokens.insert(datum.GetToken());
    }
    return tokens;
}

TEST(KnownDatums, Are161OfDistinctTokens) {
    EXPECT_EQ(Datums().Count(), 163);
    EXPECT_EQ(Tokens().size(), 161U);
}

TEST(KnownDatums, StartAtIndexTwo) {
    gcs::DatumDef datum;

    EXPECT_EQ(Datums().FindByToken(L"DATUM_ADINDAN_MEAN", &datum), 2);
    EXPECT_EQ(datum.GetName(), L"Adindan (mean)");
}

TEST(KnownDatums, AreFoundInAnyCase) {
    EXPECT_EQ(Datums().FindByToken(L"datum_Wgs84", nullptr),
              Datums().FindByToken(L"DATUM_WGS84", nullptr));
    EXPECT_GT(Datums().FindByToken(L"datum_Wgs84", nullptr), 1);
}

TEST(KnownDatums, AreNotFoundWithATrailingComma) {
    EXPECT_EQ(Datums().FindByToken(L"DATUM_DLX,", nullptr), 0);
    EXPECT_GT(Datums().FindByToken(L"DATUM_DLX", nullptr), 1);
}

TEST(KnownDatums, HaveNoneWithoutAToken) {
    EXPECT_EQ(Datums().FindByToken(L"", nullptr), 0);
    EXPECT_EQ(Datums().FindByToken(nullptr, nullptr), 0);
}

TEST(KnownDatums, LeaveTheResultAloneWhenNothingIsFound) {
    gcs::DatumDef datum = KnownDatum(L"DATUM_WGS84");

    EXPECT_EQ(Datums().FindByToken(L"DATUM_ATLANTIS", &datum), 0);
    EXPECT_EQ(datum.GetToken(), L"DATUM_WGS84");
}

TEST(KnownDatums, HaveTheUnknownOneAtIndexOne) {
    gcs::DatumDef datum = KnownDatum(L"DATUM_WGS84");

    EXPECT_TRUE(Datums().Enum(1, datum));
    EXPECT_TRUE(datum.IsUnknown());
}

TEST(KnownDatums, HaveNothingBesideTheirIndices) {
    gcs::DatumDef datum = KnownDatum(L"DATUM_WGS84");

    EXPECT_FALSE(Datums().Enum(0, datum));
    EXPECT_TRUE(datum.IsUnknown());
    EXPECT_FALSE(Datums().Enum(163, datum));
    EXPECT_FALSE(Datums().Enum(-1, datum));
}

TEST(KnownDatums, KeptOfFranceHaveTheMeridianThatTheOnesTokenNamesForTheOther) {
    EXPECT_EQ(KnownDatum(L"DATUM_NTF_GREENWICH").GetParameters().primeMeridian, 2.33722917);
    EXPECT_EQ(KnownDatum(L"DATUM_NTF_PARIS").GetParameters().primeMeridian, 0.0);
}

TEST(KnownDatums, OfTheWebMapAreASphereWithoutAShift) {
    const auto datum = KnownDatum(L"DATUM_EPSG_CRS4055_DAT6055_OP15973");

    EXPECT_EQ(datum.GetMethod(), gcs::DatumMethod::None);
    EXPECT_EQ(datum.GetEllipsoid(), gcs::EllipsoidDef(6378137.0, 0.0));
}

TEST(KnownEllipsoids, Are53) {
    EXPECT_EQ(Ellipsoids().Count(), 54);
}

TEST(KnownEllipsoids, AreFoundByTheirDimensions) {
    const int index = Ellipsoids().FindByDimensions(6378206.4, 0.0033900753040885176);
    gcs::EllipsoidDef ellipsoid;

    EXPECT_TRUE(Ellipsoids().Enum(index, ellipsoid));
    EXPECT_EQ(std::wstring(Ellipsoids().Name(index)), L"Clarke 1866");
    EXPECT_EQ(ellipsoid, gcs::EllipsoidDef(6378206.4, 1.0 / 294.9786982));
}

TEST(KnownEllipsoids, OfEqualDimensionsGiveTheFirst) {
    const int index = Ellipsoids().FindByDimensions(6378388.0, 1.0 / 297.0);

    EXPECT_EQ(std::wstring(Ellipsoids().Name(index)), L"Hayford");
}

TEST(KnownEllipsoids, TellGrs80FromWgs84) {
    EXPECT_EQ(std::wstring(
                  Ellipsoids().Name(Ellipsoids().FindByDimensions(6378137.0, 1.0 / 298.257222101))),
              L"GRS 80");
    EXPECT_EQ(std::wstring(
                  Ellipsoids().Name(Ellipsoids().FindByDimensions(6378137.0, 1.0 / 298.257223563))),
              L"WGS 84");
}

TEST(KnownEllipsoids, IncludeASphereWithoutFlattening) {
    const int index = Ellipsoids().FindByDimensions(6370997.0, 0.0);

    EXPECT_EQ(std::wstring(Ellipsoids().Name(index)), L"Sphere");
}

TEST(KnownEllipsoids, HaveIndexZeroForNone) {
    gcs::EllipsoidDef ellipsoid(1.0, 0.0);

    EXPECT_EQ(Ellipsoids().FindByDimensions(6000000.0, 0.0), 0);
    EXPECT_FALSE(Ellipsoids().Enum(0, ellipsoid));
    EXPECT_TRUE(ellipsoid.IsUnknown());
    EXPECT_EQ(std::wstring(Ellipsoids().Name(0)), L"");
    EXPECT_FALSE(Ellipsoids().Enum(54, ellipsoid));
}

}  // namespace
