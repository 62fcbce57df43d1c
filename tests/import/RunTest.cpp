// A whole import as the host sees it: order of calls, coordinate system, columns, progress, and
// what a failure leaves behind.
#include "tests/import/ImportRun.h"

#include "host/gcs/CSDef.h"

#include <gmock/gmock.h>

namespace {

using import_test::Importing;
using import_test::Lines;
using testing::ElementsAre;

constexpr char kMarker[] = "MarkerSet style=1 size=0 font=\"ZEI Default Symbols\" index=0 ";

class ImportRuns : public Importing {
protected:
    const gcs::GCSDef& ReceivedSystem() {
        return dynamic_cast<const gcs::GCSDef&>(*Host().Received<zeio::TrCRS>().at(0)->GetCS());
    }
};

TEST_F(ImportRuns, MakesTheCallsOfARunInOrder) {
    UseHeader("Version 300\nDelimiter \",\"\nCoordSys Earth Projection 1, 104\n\n"
              "Columns 2\n  NAME Char(5)\n  SIZE Integer\n");

    Import("Point 1 2\n");

    EXPECT_THAT(
        Host().calls(),
        ElementsAre("GetOption AreasToCurves persistent", "GetOption IgnoreStyles persistent",
                    "SetOption AreasToCurves=false persistent",
                    "SetOption IgnoreStyles=false persistent", "ProgressStart cancel proportion",
                    "Message Importing Mif file map.mif", "InitGraphicsImp 0,0 0,0 kind=0",
                    "CRS projection=1 datum=\"DATUM_WGS84\"", "NamedIds NAME SIZE",
                    kMarker + std::string("1,2"), "ProgressProportion 1", "ProgressEnd"));
}

TEST_F(ImportRuns, AreOrderedTheSameWithCrLfLineEnds) {
    ImportBytes("Version 300\r\nDelimiter \",\"\r\nData\r\nPline 2\r\n1 2\r\n3 4\r\n"
                "    Pen (1,2,0)\r\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("Pen style=1 color=0,0,0,255 relative width=0", "Polyline 1,2 3,4"));
}

TEST_F(ImportRuns, OfANonearthFileSendNoCoordinateSystem) {
    AddToHeader("CoordSys NonEarth Units \"m\"\n");

    Import("");

    EXPECT_EQ(Host().Received<zeio::TrCRS>().size(), 0U);
}

TEST_F(ImportRuns, OfAFileWithoutColumnsSendNoNames) {
    Import("");

    EXPECT_EQ(Host().Received<zeio::TrNamedIds>().size(), 0U);
}

TEST_F(ImportRuns, OfAFileWithNoColumnEntriesSendNoNames) {
    AddToHeader("Columns 0\n");

    Import("");

    EXPECT_EQ(Host().Received<zeio::TrNamedIds>().size(), 0U);
}

TEST_F(ImportRuns, ConvertColumnNamesFromTheHostsCodePage) {
    AddToHeader("Columns 1\n  Stra\xDF"
                "e Char(5)\n");

    Import("");

    EXPECT_EQ(Host().Received<zeio::TrNamedIds>().at(0)->names,
              std::vector<std::wstring>{L"Stra\u00DFe"});
}

TEST_F(ImportRuns, SendAProjectionWithItsParametersAndDatum) {
    AddToHeader("CoordSys Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500000, 0\n");

    Import("");

    EXPECT_EQ(ReceivedSystem().GetProjection().GetMethod(),
              gcs::ProjectionMethod::TransverseMercator);
    EXPECT_EQ(
        ReceivedSystem().GetProjection().GetParameter(gcs::ProjectionParameterID::CentralLongitude),
        9.0);
    EXPECT_EQ(ReceivedSystem().GetDatum().GetToken(), L"DATUM_WGS84");
}

TEST_F(ImportRuns, ReplaceAProjectionWithFaultyParametersByAPlane) {
    AddToHeader("CoordSys Earth Projection 8, 104, \"m\", 9, 0, -1, 500000, 0\n");

    Import("Point 1 2\n");

    gcs::ProjectionDef plane;
    plane.SetMethod(gcs::ProjectionMethod::ArbitraryPlane);
    EXPECT_TRUE(ReceivedSystem().GetProjection() == plane);
    EXPECT_EQ(ReceivedSystem().GetDatum().GetToken(), L"DATUM_WGS84");
    EXPECT_EQ(Host().Received<zeio::TrMarkerSet>().size(), 1U);
}

TEST_F(ImportRuns, HandHeaderWarningsToTheHostAsOneTextAndGoOn) {
    UseHeader("Version 1101\nDelimiter \",\"\nUnique 1\n");

    Import("Point 1 2\n");

    EXPECT_THAT(
        Host().CallsStartingWith("Warning"),
        ElementsAre("Warning 0 WARNING:\nMIF file header contains unsupported UNIQUE keyword.  "
                    "Relational attributes are not supported.\nMIF version 1101 is not "
                    "supported.\nImport will continue but portions of the file might be missing or "
                    "incorrect.\n"));
    EXPECT_EQ(HostReceived().size(), 1U);
}

TEST_F(ImportRuns, WithoutWarningsWarnOfNothing) {
    Import("Point 1 2\n");

    EXPECT_EQ(Host().CallsStartingWith("Warning"), Lines{});
}

TEST_F(ImportRuns, MoveTheProgressEveryFiftyObjects) {
    std::string points;
    for (int count = 0; count < 149; ++count) {
        points += "Point 1 2\n";
    }

    Import(points);

    EXPECT_EQ(Host().CallsStartingWith("ProgressProportion").size(), 3U);
    EXPECT_EQ(Host().CallsStartingWith("ProgressProportion").back(), "ProgressProportion 1");
}

TEST_F(ImportRuns, CountACollectionAsOneObjectOfTheProgress) {
    std::string points = "Collection 100\n";
    for (int count = 0; count < 100; ++count) {
        points += "Point 1 2\n";
    }

    Import(points);

    EXPECT_THAT(Host().CallsStartingWith("ProgressProportion"),
                ElementsAre("ProgressProportion 1"));
}

TEST_F(ImportRuns, OfAMissingFileThrowTheReadersErrorWithItsOrigin) {
    ImportFile();

    EXPECT_EQ(FirstError(), "CMifReader(946): Can't import 'PATH'.  Failed opening specified file");
}

TEST_F(ImportRuns, OfAFolderThrowTheReadersError) {
    std::filesystem::create_directory(Folder().path() / "map.mif");

    ImportFile();

    EXPECT_EQ(FirstError(), "CMifReader(946): Can't import 'PATH'.  Failed opening specified file");
}

TEST_F(ImportRuns, OfAFileWithABadHeaderThrowTheReadersError) {
    ImportBytes("Version 3000\nDelimiter \",\"\nData\n");

    EXPECT_EQ(FirstError(), "CMifReader(986): Can't import 'PATH'.  Invalid version number 3000 "
                            "found in file header.");
}

TEST_F(ImportRuns, LeaveTheProgressDisplayOpenAfterAFailureToOpen) {
    ImportFile();

    EXPECT_EQ(Host().calls().back(), "Message Importing Mif file map.mif");
    EXPECT_EQ(Host().CallsStartingWith("ProgressEnd"), Lines{});
}

TEST_F(ImportRuns, EndTheProgressDisplayOfAFailedRunBeforeTheNextOneStarts) {
    ImportFile();
    Host().ForgetCalls();

    Import("");

    const Lines progress = Host().CallsStartingWith("Progress");
    EXPECT_THAT(progress, ElementsAre("ProgressEnd", "ProgressStart cancel proportion",
                                      "ProgressProportion 1", "ProgressEnd"));
}

TEST_F(ImportRuns, AreRefusedAfterARunThatFailedInItsObjects) {
    Import("Nonsense\n");

    ImportFile();

    EXPECT_EQ(FirstError(), "CMifReader(935): Can't import 'PATH'.  Internal Error:  Member "
                            "functions called in improper order.");
}

TEST_F(ImportRuns, CanFollowOneAnotherOnOneFilter) {
    Import("Point 1 2\n");

    Import("Point 3 4\n");

    EXPECT_EQ(FirstError(), "");
    EXPECT_THAT(HostReceived(),
                ElementsAre(kMarker + std::string("1,2"), kMarker + std::string("3,4")));
}

TEST_F(ImportRuns, DoNotCarryTheColumnsOfTheRunBefore) {
    AddToHeader("Columns 1\n  A Integer\n");
    Import("");

    Import("");

    EXPECT_THAT(Host().CallsStartingWith("NamedIds"), ElementsAre("NamedIds A", "NamedIds A"));
}

TEST_F(ImportRuns, KeptInARowOnOneFilterTheyKeepTheExtentsOfTheFirst) {
    Import("Line 1 1 4 5\n");

    Import("Point 2 2\nPen (7,2,0)\n");

    EXPECT_EQ(Filter().extents().maxX, 4.0);
    EXPECT_EQ(Filter().extents().maxY, 5.0);
    EXPECT_THAT(Host().CallsStartingWith("Pen"),
                ElementsAre("Pen style=1 color=0,0,0,255 relative width=0.5"));
}

TEST_F(ImportRuns, PassAnExceptionOfTheHostUnchanged) {
    struct HostStopped {};
    Host().onObject = [](zeio::TrBase&) { throw HostStopped(); };
    WriteFiles("Version 300\nDelimiter \",\"\nData\n");

    EXPECT_THROW(Filter().Import(Path()), HostStopped);
}

TEST_F(ImportRuns, FromMemoryGiveTheSameObjects) {
    const std::string bytes = "Version 300\nDelimiter \",\"\nData\nPoint 1 2\n";
    const std::vector<unsigned char> block(bytes.begin(), bytes.end());

    Filter().ImportFromMemory(block.data(), static_cast<unsigned int>(block.size()), true);

    EXPECT_THAT(HostReceived(), ElementsAre(kMarker + std::string("1,2")));
}

TEST(AnImportFilter, EndsTheProgressDisplayOfAFailedRunWhenItIsDestroyed) {
    support::RecordingHost host;
    zeio::IoManager manager(host);
    {
        mif::MifImportFilter filter(manager);
        EXPECT_THROW(filter.Import(L"/no/such/file.mif"), shr::IError);
        host.ForgetCalls();
    }

    EXPECT_THAT(host.calls(), ElementsAre("ProgressEnd"));
}

TEST(AnImportFilter, HasEmptyExtentsThatCanBeTold) {
    const mif::RunningExtents extents;

    EXPECT_EQ(extents.minX, 1.7976931348623157e308);
    EXPECT_EQ(extents.minY, 1.7976931348623157e308);
    EXPECT_EQ(extents.maxX, 2.2250738585072014e-308);
    EXPECT_EQ(extents.maxY, 2.2250738585072014e-308);
    EXPECT_EQ(extents.Diagonal(), 0.0);
}

}  // namespace
