// The end of an export: what is patched, the warning, and what becomes of the files.
#include "host/zeio/Errors.h"
#include "standalone/Text.h"
#include "tests/export/ExportRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

namespace mif::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using zeio::ExportStatus;

zeio::TrPolyline ShortLine() {
    return Polyline({{0.0, 0.0, 0.0}, {3.0, 4.0, 0.0}});
}

void SendLines(ExportRun& run, int count) {
    zeio::TrPolyline line = ShortLine();
    for (int i = 0; i < count; ++i) {
        static_cast<void>(run.Send(line));
    }
}

void SendRegions(ExportRun& run, int count) {
    zeio::TrPolygon region = Polygon({{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 1.0, 0.0}});
    for (int i = 0; i < count; ++i) {
        static_cast<void>(run.Send(region));
    }
}

// A host whose progress display fails: what a cancelled run looks like.
class CancellingHost : public support::RecordingHost {
public:
    void ProgressIndeterminate() override { throw std::runtime_error("cancelled"); }
};

class FailingOptionsHost : public support::RecordingHost {
public:
    bool GetOption(const std::wstring& name, bool& value, bool persistent) override {
        if (isFailing) {
            throw std::runtime_error("no options");
        }
        return RecordingHost::GetOption(name, value, persistent);
    }

    bool isFailing = false;
};

}  // namespace

TEST(EndExport, WithoutAGraphicObjectDeletesBothFilesAndAnswersOne) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({L"A"});
    static_cast<void>(run.Send(zeio::TrPen()));
    EXPECT_TRUE(run.HasMif());
    EXPECT_TRUE(run.HasMid());

    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
    EXPECT_FALSE(run.HasMif());
    EXPECT_FALSE(run.HasMid());
}

TEST(EndExport, OfAnEmptyPolylineAloneWritesNothing) {
    ExportRun run;
    static_cast<void>(run.Begin());
    static_cast<void>(run.Send(Polyline({})));

    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
}

TEST(EndExport, AnswersZeroAndEndsTheProgress) {
    ExportRun run;
    static_cast<void>(run.Begin());
    static_cast<void>(run.Send(ShortLine()));

    EXPECT_EQ(run.End(), ExportStatus::Done);
    EXPECT_EQ(run.host.calls().back(), "ProgressEnd");
    EXPECT_TRUE(run.HasMif());
    EXPECT_TRUE(run.HasMid());
}

TEST(EndExport, EndsTheProgressWhenNothingWasWritten) {
    ExportRun run;
    run.Export();

    EXPECT_EQ(run.host.calls().back(), "ProgressEnd");
}

TEST(EndExport, WithoutBeginExportAnswersOne) {
    ExportRun run;

    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
}

TEST(EndExport, TwiceAnswersTheSameAndKeepsTheFiles) {
    ExportRun run;
    run.Export(ShortLine());
    const std::string mif = run.Mif();

    EXPECT_EQ(run.End(), ExportStatus::Done);
    EXPECT_EQ(run.Mif(), mif);
}

TEST(EndExport, LeavesAnOlderFileThatBeginExportDidNotReach) {
    ExportRun run;
    std::filesystem::create_directory(run.folder.path() / "out.mif");
    static_cast<void>(run.folder.Write("out.mid", "from an earlier export"));
    EXPECT_THROW(run.Begin(), zeio::FileOpenError);

    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
    EXPECT_EQ(run.folder.Read("out.mid"), "from an earlier export");
}

TEST(EndExport, DeletesTheMifFileBesideAMidFileThatCouldNotBeOpened) {
    ExportRun run;
    std::filesystem::create_directory(run.folder.path() / "out.mid");
    EXPECT_THROW(run.Begin(), zeio::FileOpenError);

    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
    EXPECT_FALSE(run.HasMif());
    EXPECT_TRUE(run.HasMid());
}

struct SamePathRow {
    std::string name;
    std::string path;
};
class BeginExportOnto : public testing::TestWithParam<SamePathRow> {};

TEST_P(BeginExportOnto, ThePathOfItsOwnMidFileIsRefused) {
    ExportRun run;
    const std::wstring path = run.folder.Write(GetParam().path, "from an earlier export");
    std::string error;
    try {
        static_cast<void>(run.filter->BeginExport(path));
    } catch (const zeio::FileOpenError& openError) {
        EXPECT_EQ(openError.Path(), path);
        error = standalone::Narrow(openError.Source() + L" " + openError.Reason());
    }

    EXPECT_EQ(error, "MifExportFilter File write or file create error");
    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
    EXPECT_EQ(run.folder.Read(GetParam().path), "from an earlier export");
}
INSTANTIATE_TEST_SUITE_P(, BeginExportOnto,
                         testing::Values(SamePathRow{"Mid", "out.mid"},
                                         SamePathRow{"MidInCapitals", "out.MID"}),
                         [](const auto& row) { return row.param.name; });

TEST(TheFiltersEnd, LeavesAFileAloneThatBeginExportDidNotReach) {
    ExportRun run;
    std::filesystem::create_directory(run.folder.path() / "out.mif");
    static_cast<void>(run.folder.Write("out.mid", "from an earlier export"));
    EXPECT_THROW(run.Begin(), zeio::FileOpenError);
    run.filter.reset();

    EXPECT_TRUE(run.HasMid());
}

TEST(TheFiltersEnd, DeletesFilesThatWereNotFinished) {
    ExportRun run;
    static_cast<void>(run.Begin());
    static_cast<void>(run.Send(ShortLine()));
    run.filter.reset();

    EXPECT_FALSE(run.HasMif());
    EXPECT_FALSE(run.HasMid());
    EXPECT_EQ(run.host.calls().back(), "ProgressEnd");
}

TEST(TheFiltersEnd, KeepsFilesThatWereFinished) {
    ExportRun run;
    run.Export(ShortLine());
    run.filter.reset();

    EXPECT_TRUE(run.HasMif());
    EXPECT_TRUE(run.HasMid());
}

TEST(TheFiltersEnd, DeletesTheFilesOfACancelledRun) {
    const support::TemporaryFolder folder;
    CancellingHost host;
    zeio::IoManager manager(host);
    {
        MifExportFilter filter(manager);
        static_cast<void>(filter.BeginExport(folder.PathOf("out.mif")));
        zeio::TrPolyline line = ShortLine();
        const auto sendAHundred = [&] {
            for (int i = 0; i < 100; ++i) {
                static_cast<void>(filter.ExportObject(line));
            }
        };
        EXPECT_THROW(sendAHundred(), std::runtime_error);
    }

    EXPECT_FALSE(folder.Has("out.mif"));
    EXPECT_FALSE(folder.Has("out.mid"));
}

TEST(ASecondExport, DiscardsAnUnfinishedFirstOne) {
    ExportRun run;
    static_cast<void>(run.filter->BeginExport(run.folder.PathOf("first.mif")));
    static_cast<void>(run.Send(ShortLine()));
    run.Export(ShortLine());

    EXPECT_FALSE(run.folder.Has("first.mif"));
    EXPECT_FALSE(run.folder.Has("first.mid"));
    EXPECT_TRUE(run.HasMif());
}

TEST(ASecondExport, EndsTheFirstOnesProgressBeforeItsOwnStarts) {
    ExportRun run;
    static_cast<void>(run.Begin());
    static_cast<void>(run.Begin());

    EXPECT_THAT(run.host.CallsStartingWith("Progress"),
                ElementsAre("ProgressStart cancel proportion", "ProgressStart cancel",
                            "ProgressEnd", "ProgressStart cancel proportion",
                            "ProgressStart cancel"));
}

struct BlockedRow {
    std::string name;
    std::string blocked;  // the file that can't be opened
};
// On a filter that has written a whole export before.
class ASecondExportThatCanNotOpen : public testing::TestWithParam<BlockedRow> {
protected:
    ASecondExportThatCanNotOpen() {
        run.Export(ShortLine());
        std::filesystem::create_directory(run.folder.path() / GetParam().blocked);
        EXPECT_THROW(run.filter->BeginExport(run.folder.PathOf("second.mif")), zeio::FileOpenError);
    }

    ExportRun run;
};

TEST_P(ASecondExportThatCanNotOpen, HasWrittenNothingAndLeavesNothing) {
    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);

    EXPECT_FALSE(std::filesystem::is_regular_file(run.folder.path() / "second.mif"));
    EXPECT_FALSE(std::filesystem::is_regular_file(run.folder.path() / "second.mid"));
}

TEST_P(ASecondExportThatCanNotOpen, LeavesTheFirstOnesFiles) {
    const std::string mif = run.Mif();
    static_cast<void>(run.End());
    run.filter.reset();

    EXPECT_EQ(run.Mif(), mif);
    EXPECT_TRUE(run.HasMid());
}

TEST_P(ASecondExportThatCanNotOpen, TakesNoObject) {
    EXPECT_THROW(run.Send(ShortLine()), zeio::FileWriteError);
    EXPECT_THROW(run.Send(zeio::TrPen()), zeio::FileWriteError);

    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
    EXPECT_FALSE(std::filesystem::is_regular_file(run.folder.path() / "second.mif"));
    EXPECT_FALSE(std::filesystem::is_regular_file(run.folder.path() / "second.mid"));
}
INSTANTIATE_TEST_SUITE_P(, ASecondExportThatCanNotOpen,
                         testing::Values(BlockedRow{"ItsMifFile", "second.mif"},
                                         BlockedRow{"ItsMidFile", "second.mid"}),
                         [](const auto& row) { return row.param.name; });

TEST(ASecondExport, WhoseOptionsCanNotBeReadGivesTheFirstOneUp) {
    FailingOptionsHost host;
    const support::TemporaryFolder folder;
    zeio::IoManager manager(host);
    MifExportFilter filter(manager);
    static_cast<void>(filter.BeginExport(folder.PathOf("first.mif")));
    static_cast<void>(filter.ExportObject(*std::make_unique<zeio::TrPolyline>(ShortLine())));
    host.isFailing = true;

    EXPECT_THROW(filter.BeginExport(folder.PathOf("second.mif")), std::runtime_error);

    EXPECT_EQ(filter.EndExport(), ExportStatus::NothingWritten);
    EXPECT_FALSE(folder.Has("first.mif"));
    EXPECT_FALSE(folder.Has("second.mif"));
}

TEST(ASecondExport, WritesItsHeaderAndCountsAgain) {
    ExportRun run;
    run.Export(AbsolutePen(zeio::TrPen::Style::Solid, 0.5), ShortLine());
    EXPECT_EQ(run.HeaderLines("VERSION"), "VERSION  450");
    run.Export(RelativePen(zeio::TrPen::Style::Solid, 0.0), ShortLine());

    EXPECT_EQ(run.HeaderLines("VERSION"), "VERSION  300");
    EXPECT_EQ(run.Objects(), "PLINE 2\n0 0\n3 4\n  PEN (1, 2, 0)\n");
}

TEST(ASecondExport, KeptStatesTheBoundsOfBoth) {
    ExportRun run;
    run.Export(Markers({{-7.0, -8.0, 0.0}}));
    run.Export(Markers({{1.0, 2.0, 0.0}}));

    EXPECT_EQ(run.HeaderLines("  Bounds"), "  Bounds (       -7.0000000000,        -8.0000000000) "
                                           "(        1.0000000000,         2.0000000000)");
}

TEST(Bounds, AreThoseOfEveryCoordinate) {
    ExportRun run;
    run.Export(Polyline({{1.0, 2.0, 9.0}, {-1.0, 5.0, 9.0}}), Markers({{10.0, -10.0, 0.0}}));

    EXPECT_EQ(run.HeaderLines("  Bounds"), "  Bounds (       -1.0000000000,       -10.0000000000) "
                                           "(       10.0000000000,         5.0000000000)");
}

TEST(Bounds, AreNotWidenedByAddedVertices) {
    ExportRun run;
    run.Export(Polyline({{5.0, 5.0, 0.0}}), Polygon({{5.0, 5.0, 0.0}}));

    EXPECT_EQ(run.HeaderLines("  Bounds"), "  Bounds (        5.0000000000,         5.0000000000) "
                                           "(        5.0000000000,         5.0000000000)");
}

TEST(Bounds, StayZeroWhenNoCoordinateWasWritten) {
    ExportRun run;
    run.Export(Markers({}));

    EXPECT_EQ(run.HeaderLines("  Bounds"), "  Bounds (        0.0000000000,         0.0000000000) "
                                           "(        0.0000000000,         0.0000000000)");
}

TEST(Bounds, OfHugeCoordinatesLeaveTheColumnsWhole) {
    ExportRun run;
    constexpr double kLargest = std::numeric_limits<double>::max();
    run.Export(Markers({{-kLargest, -2e9, 0.0}, {kLargest, 3e15, 0.0}}));

    EXPECT_EQ(run.HeaderLines("  Bounds"), "  Bounds (-1.797693134862E+308, -2000000000.00000000) "
                                           "( 1.797693134862E+308, 3000000000000000.000)");
    EXPECT_NE(run.Mif().find(")\nCOLUMNS 1\n  ID1 char (1)    \n\nDATA\n"), std::string::npos);
}

TEST(ColumnWidths, AreThoseOfTheLongestValues) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({L"A", L"B"});
    static_cast<void>(
        run.Send(With(Markers({{1.0, 2.0, 0.0}}), {{L"A", L"twelve chars"}, {L"B", L"b"}})));
    static_cast<void>(run.End());

    EXPECT_EQ(run.HeaderLines("  A") + run.HeaderLines("  B "), "  A char (12)     B char (1)    ");
}

TEST(ColumnWidths, Of300CharactersAreDeclaredAndWarnedOf) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({L"A"});
    const std::wstring value(300, L'x');
    static_cast<void>(run.Send(With(Markers({{1.0, 2.0, 0.0}}), {{L"A", value.c_str()}})));
    static_cast<void>(run.End());

    EXPECT_EQ(run.HeaderLines("  A"), "  A char (300)  ");
    EXPECT_THAT(run.Warnings(),
                ElementsAre(StartsWith("Warning 0 Exported file contains one or more attributes "
                                       "with more than 254 characters.  MapInfo")));
}

TEST(TheLimitWarning, IsOnlyTheOneOf250Columns) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns(std::vector<std::wstring>(251, L"A"));
    const std::wstring value(300, L'x');
    static_cast<void>(run.Send(With(Markers({{1.0, 2.0, 0.0}}), {{L"A", value.c_str()}})));
    static_cast<void>(run.End());

    EXPECT_THAT(run.Warnings(),
                ElementsAre(StartsWith("Warning 0 Exported file contains more than 250 attribute "
                                       "columns.  MapInfo")));
}

TEST(TheLimitWarning, IsGivenEvenWhenNothingWasWritten) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns(std::vector<std::wstring>(251, L"A"));
    static_cast<void>(run.End());

    EXPECT_EQ(run.Warnings().size(), 1U);
    EXPECT_FALSE(run.HasMif());
}

TEST(TheLimitWarning, IsNotGivenWithoutNeed) {
    ExportRun run;
    run.Export(ShortLine());

    EXPECT_THAT(run.Warnings(), IsEmpty());
}

TEST(TheVersion, StaysAt300With32000PlinesAndRegions) {
    ExportRun run;
    static_cast<void>(run.Begin());
    SendLines(run, 31000);
    SendRegions(run, 1000);
    static_cast<void>(run.End());

    EXPECT_EQ(run.HeaderLines("VERSION"), "VERSION  300");
}

TEST(TheVersion, RisesTo800WithMore) {
    ExportRun run;
    static_cast<void>(run.Begin());
    SendLines(run, 31000);
    SendRegions(run, 1001);
    static_cast<void>(run.End());

    EXPECT_EQ(run.HeaderLines("VERSION"), "VERSION  800");
}

}  // namespace mif::test
