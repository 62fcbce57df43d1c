// Writes that fail: at every size of a file that the system allows, and on a full device. The
// error is always the same, and nothing half-written stays once the filter is gone.
#include "host/zeio/Errors.h"
#include "standalone/Log.h"
#include "tests/export/ExportRun.h"
#include "tests/support/FileSizeLimit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace mif::test {

namespace {

using testing::IsEmpty;

// Some 140 KiB in each file, so that their buffers fill more than once; with pens to patch, a
// version to patch, and columns to declare again.
void SendDrawing(ExportRun& run) {
    run.SendColumns({L"A"});
    zeio::TrPolyline line =
        With(Polyline({{0.1, 0.2, 0}, {300.3, 400.4, 0}}),
             {{L"A", L"a value that is long enough to fill the buffer of the other file as well: "
                     L"0123456789012345678901234567890123456789"}});
    for (int i = 0; i < 1200; ++i) {
        static_cast<void>(run.Send(line));
    }
    zeio::TrPen absolute = AbsolutePen(zeio::TrPen::Style::Solid, 0.5);
    static_cast<void>(run.Send(absolute));
    static_cast<void>(run.Send(line));
}

struct Outcome {
    std::string error;  // "" when the export was completed
    bool hasPath = false;
    bool hasFiles = false;  // once the filter is gone
};

// Runs the calls and then the end of the filter.
template <class Calls> Outcome RunExport(ExportRun& run, Calls calls) {
    Outcome outcome;
    try {
        calls();
    } catch (const zeio::FileWriteError& error) {
        outcome.error = std::to_string(error.Line()) + " " + std::string(error.what());
        outcome.hasPath = error.Path() == run.MifPath() && error.Reason() == L"File write error" &&
                          error.Source() == L"MifExportFilter";
    }
    run.filter.reset();
    outcome.hasFiles = run.HasMif() || run.HasMid();
    return outcome;
}

void ExportDrawing(ExportRun& run) {
    static_cast<void>(run.Begin());
    SendDrawing(run);
    static_cast<void>(run.End());
}

// A host that ends an export in any case, as one with a cleaning-up destructor does.
void ExportDrawingAndAlwaysEnd(ExportRun& run) {
    try {
        static_cast<void>(run.Begin());
        SendDrawing(run);
    } catch (const zeio::FileWriteError&) {
        static_cast<void>(run.End());
        throw std::logic_error("an export that failed was ended as complete");
    }
    static_cast<void>(run.End());
}

// The limits, in steps of 512 bytes up to the larger file's size, at which an export did something
// else than fail with the one error and leave nothing.
template <class Export> std::vector<rlim_t> LimitsThatGoWrong(Export exportDrawing) {
    ExportRun whole;
    ExportDrawing(whole);
    const std::size_t size = std::max(whole.Mif().size(), whole.Mid().size());
    std::vector<rlim_t> wrong;
    for (rlim_t limit = 0; limit < size; limit += 512) {
        ExportRun run;
        Outcome outcome;
        {
            const support::FileSizeLimit lowered(limit);
            outcome = RunExport(run, [&] { exportDrawing(run); });
        }
        if (outcome.error.empty() || !outcome.hasPath || outcome.hasFiles) {
            wrong.push_back(limit);
        }
    }
    return wrong;
}

}  // namespace

TEST(AFileSizeLimit, AtEveryStepIsAWriteErrorAndLeavesNothing) {
    EXPECT_THAT(LimitsThatGoWrong(ExportDrawing), IsEmpty());
}

TEST(AFileSizeLimit, AtEveryStepLeavesNothingEvenWhenTheHostEndsTheExport) {
    EXPECT_THAT(LimitsThatGoWrong(ExportDrawingAndAlwaysEnd), IsEmpty());
}

TEST(AFileSizeLimit, OfTheFilesSizeIsNoObstacle) {
    ExportRun whole;
    ExportDrawing(whole);
    ExportRun run;
    {
        const support::FileSizeLimit lowered(std::max(whole.Mif().size(), whole.Mid().size()));
        ExportDrawing(run);
    }

    EXPECT_EQ(run.Mif(), whole.Mif());
    EXPECT_EQ(run.Mid(), whole.Mid());
}

struct FullDeviceRow {
    std::string name;
    std::string file;  // which of the two is on the full device
    bool isLarge;      // else all of it fits the stream's buffer until the end
};
class AFullDevice : public testing::TestWithParam<FullDeviceRow> {};

TEST_P(AFullDevice, IsAWriteErrorOfTheMifFileAndLeavesNothing) {
    ExportRun run;
    std::filesystem::create_symlink("/dev/full", run.folder.path() / GetParam().file);
    const Outcome outcome = RunExport(run, [&] {
        static_cast<void>(run.Begin());
        if (GetParam().isLarge) {
            SendDrawing(run);
        }
        static_cast<void>(run.Send(Markers({{1, 2, 0}})));
        static_cast<void>(run.End());
    });

    EXPECT_THAT(outcome.error, testing::EndsWith("out.mif: File write error"));
    EXPECT_TRUE(outcome.hasPath);
    EXPECT_FALSE(outcome.hasFiles);
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}
INSTANTIATE_TEST_SUITE_P(, AFullDevice,
                         testing::Values(FullDeviceRow{"SmallMif", "out.mif", false},
                                         FullDeviceRow{"LargeMif", "out.mif", true},
                                         FullDeviceRow{"SmallMid", "out.mid", false},
                                         FullDeviceRow{"LargeMid", "out.mid", true}),
                         [](const auto& row) { return row.param.name; });

TEST(AWriteErrorOfARow, NamesItsOwnOriginAndTheMifFile) {
    ExportRun run;
    std::filesystem::create_symlink("/dev/full", run.folder.path() / "out.mid");
    const Outcome outcome = RunExport(run, [&] { ExportDrawing(run); });

    EXPECT_THAT(outcome.error, testing::StartsWith("451 MifExportFilter(451): "));
}

TEST(ACloseThatFails, NamesItsOwnOriginAndTheMifFile) {
    ExportRun run;
    std::filesystem::create_symlink("/dev/full", run.folder.path() / "out.mid");
    const Outcome outcome = RunExport(run, [&] { run.Export(Markers({{1, 2, 0}})); });

    EXPECT_THAT(outcome.error, testing::StartsWith("536 MifExportFilter(536): "));
}

TEST(ACloseThatFails, OfAnExportWithoutObjectsIsNoError) {
    ExportRun run;
    std::filesystem::create_symlink("/dev/full", run.folder.path() / "out.mif");
    const Outcome outcome = RunExport(run, [&] { run.Export(); });

    EXPECT_EQ(outcome.error, "");
    EXPECT_FALSE(outcome.hasFiles);
}

TEST(EndExport, LeavesALinkThatCouldNotBeOpened) {
    ExportRun run;
    const std::filesystem::path link = run.folder.path() / "out.mid";
    std::filesystem::create_symlink(run.folder.path() / "none" / "out.mid", link);
    EXPECT_THROW(run.Begin(), zeio::FileOpenError);
    static_cast<void>(run.End());

    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_FALSE(run.HasMif());
}

// An export whose .mid file stops taking bytes while objects are written.
class AnExportAfterAFailedWrite : public testing::Test {
protected:
    AnExportAfterAFailedWrite() {
        std::filesystem::create_symlink("/dev/full", run.folder.path() / "out.mid");
        static_cast<void>(run.Begin());
        EXPECT_THROW(SendDrawing(run), zeio::FileWriteError);
        run.host.ForgetCalls();
    }

    ExportRun run;
};

TEST_F(AnExportAfterAFailedWrite, RefusesEveryObjectWithTheErrorOfThatWrite) {
    const Outcome graphics = RunExport(run, [&] { run.Send(Markers({{1, 2, 0}})); });

    EXPECT_THAT(graphics.error, testing::StartsWith("451 MifExportFilter(451): "));
    EXPECT_TRUE(graphics.hasPath);
}

TEST_F(AnExportAfterAFailedWrite, RefusesStylesAndUnknownObjectsToo) {
    EXPECT_THROW(run.Send(zeio::TrPen()), zeio::FileWriteError);
    EXPECT_THROW(run.Send(zeio::TrInitGraphicsImp({}, {}, zeio::TrGraphics::FT_COORDSYS::World)),
                 zeio::FileWriteError);
}

TEST_F(AnExportAfterAFailedWrite, EndsItsProgressAtOnceAndLeavesNoFile) {
    EXPECT_THROW(run.End(), zeio::FileWriteError);

    EXPECT_THAT(run.host.calls(), testing::ElementsAre("ProgressEnd"));
    EXPECT_FALSE(run.HasMif());
    EXPECT_FALSE(run.HasMid());
}

TEST_F(AnExportAfterAFailedWrite, NeverSaysThatItWasWritten) {
    EXPECT_THROW(run.End(), zeio::FileWriteError);
    EXPECT_THROW(run.End(), zeio::FileWriteError);
}

TEST_F(AnExportAfterAFailedWrite, CanBeBegunAgain) {
    std::filesystem::remove(run.folder.path() / "out.mid");

    run.Export(Markers({{1, 2, 0}}));

    EXPECT_EQ(run.Objects(), "POINT 1 2\n");
}

TEST(AWriteThatFailsInEndExport, EndsTheProgressAtOnceAndLeavesNoFile) {
    ExportRun run;
    std::filesystem::create_symlink("/dev/full", run.folder.path() / "out.mif");
    static_cast<void>(run.Begin());
    static_cast<void>(run.Send(Markers({{1, 2, 0}})));

    EXPECT_THROW(run.End(), zeio::FileWriteError);

    EXPECT_EQ(run.host.calls().back(), "ProgressEnd");
    EXPECT_FALSE(run.HasMif());
    EXPECT_FALSE(run.HasMid());
}

}  // namespace mif::test
