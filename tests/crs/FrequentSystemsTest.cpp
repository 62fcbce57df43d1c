// The systems whose codes are known without the register, against the register.
#include "app/crs/FrequentSystems.h"
#include "app/crs/CrsIdentity.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string TextOf(int code, const std::string& name) {
    return code != 0 ? std::to_string(code) + " " + name : "none";
}

std::string InRegister(const gcs::CSDef& system) {
    const app::CrsIdentity identity = app::Identify(system);
    return TextOf(identity.epsgCode, identity.epsgName);
}

std::string WithoutRegister(const gcs::CSDef& system) {
    const auto found = app::FindFrequentSystem(system);
    return found ? TextOf(found->epsgCode, found->epsgName) : "none";
}

gcs::GCSDef Zone(const wchar_t* datum, double centralLongitude, double falseNorthing) {
    return System(Projection(25, {{3, 1.0},
                                  {6, centralLongitude},
                                  {9, 0.0},
                                  {12, 0.9996},
                                  {4, 500000.0},
                                  {5, falseNorthing}}),
                  KnownDatum(datum));
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
        const gcs::GCSDef system = System(LongitudeLatitude(), datum);
        EXPECT_EQ(WithoutRegister(system), InRegister(system));
    }
}

TEST(EachZoneOnWgs84, HasTheNameOfTheRegister) {
    for (int zone = 1; zone <= 60; ++zone) {
        for (const double falseNorthing : {0.0, 1e7}) {
            const gcs::GCSDef system = Zone(L"DATUM_WGS84", 6.0 * zone - 183.0, falseNorthing);
            EXPECT_NE(WithoutRegister(system), "none");
            EXPECT_EQ(WithoutRegister(system), InRegister(system));
        }
    }
}

TEST(AZoneOnAnotherDatum, IsLeftToTheRegister) {
    EXPECT_EQ(WithoutRegister(Zone(L"DATUM_ED50", 9.0, 0.0)), "none");
}

TEST(AZoneWithACentreOfItsOwn, IsLeftToTheRegister) {
    EXPECT_EQ(WithoutRegister(Zone(L"DATUM_WGS84", 9.5, 0.0)), "none");
    EXPECT_EQ(WithoutRegister(Zone(L"DATUM_WGS84", 183.0, 0.0)), "none");
    EXPECT_EQ(WithoutRegister(Zone(L"DATUM_WGS84", 9.0, 1.0)), "none");
}

TEST(APlane, IsNoFrequentSystem) {
    EXPECT_EQ(WithoutRegister(gcs::PlaneDef(1.0)), "none");
}

}  // namespace
