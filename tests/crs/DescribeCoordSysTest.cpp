// Coordinate systems as a person reads them.
#include "app/crs/DescribeCoordSys.h"
#include "app/crs/HostSystem.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ADescription, HasNameUnitCodeAndDefinition) {
    app::CoordSysDescription description;
    const gcs::GCSDef host = System(LongitudeLatitude(), KnownDatum(L"DATUM_WGS84"));
    const app::CoordinateSystem system = app::FromHost(&host);

    description = app::DescribeCoordSys(&system, app::Identify);

    EXPECT_EQ(description.name, "World Geodetic System 1984 (WGS 84) / Longitude/Latitude");
    EXPECT_EQ(description.unit, "degree");
    EXPECT_EQ(description.epsgCode, 4326);
    EXPECT_EQ(description.epsgName, "WGS 84");
    EXPECT_EQ(description.proj, "+proj=longlat +datum=WGS84 +no_defs +type=crs");
    EXPECT_TRUE(description.notes.empty());
}

TEST(ADescription, SaysWhyThereIsNoDefinition) {
    const gcs::GCSDef host = System(Projection(2, {}), KnownDatum(L"DATUM_WGS84"));
    const app::CoordinateSystem system = app::FromHost(&host);

    const auto description = app::DescribeCoordSys(&system, app::Identify);

    EXPECT_EQ(description.notes,
              std::vector<std::string>{"an arbitrary plane has no place on the Earth (a projection "
                                       "with faulty parameters becomes one)"});
    EXPECT_EQ(description.proj, "");
}

TEST(ADescription, OfAPlaneHasItsUnitAlone) {
    const app::CoordinateSystem plane = app::PlaneSystem(1.0);

    EXPECT_EQ(app::TextOf(app::DescribeCoordSys(&plane, app::Identify)),
              "Coordinate system: Nonearth\nUnit: m\n");
}

TEST(ADescription, OfNoSystemSaysSo) {
    EXPECT_EQ(app::TextOf(app::DescribeCoordSys(nullptr, app::Identify)),
              "Coordinate system: None\n");
}

TEST(ADescription, IsTextWithALabelALine) {
    app::CoordSysDescription description;
    description.name = "A / B";
    description.unit = "m";
    description.proj = "+proj=x";
    description.wkt2 = "PROJCRS[\n]";
    description.epsgCode = 1;
    description.epsgName = "One";
    description.notes = {"first", "second"};

    EXPECT_EQ(app::TextOf(description), "Coordinate system: A / B\n"
                                        "Unit: m\n"
                                        "EPSG: 1 (One)\n"
                                        "PROJ: +proj=x\n"
                                        "WKT2:\n"
                                        "PROJCRS[\n"
                                        "]\n"
                                        "Note: first\n"
                                        "Note: second\n");
}

}  // namespace
