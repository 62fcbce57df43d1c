// Text inputs line by line, and the names of files.
#include "app/base/RereadableInput.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/trace/ExtentOfObjects.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using support::TemporaryFolder;

std::vector<std::string> LinesOf(const std::string& bytes) {
    const TemporaryFolder folder;
    folder.Write("a.txt", bytes);
    const app::RereadableInput input(folder.path() / "a.txt");
    app::InputStream stream(input);
    std::vector<std::string> lines;
    std::string line;
    while (stream.NextLine(line)) {
        lines.push_back(line);
    }
    return lines;
}

TEST(AnInputStream, CutsLinesAtLineFeedsAndDropsTheReturnBeforeThem) {
    EXPECT_EQ(LinesOf("a\r\nb\n\nc\rd\n"), (std::vector<std::string>{"a", "b", "", "c\rd"}));
}

TEST(AnInputStream, GivesALastLineWithoutALineEnd) {
    EXPECT_EQ(LinesOf("a\nb"), (std::vector<std::string>{"a", "b"}));
}

TEST(AnInputStream, GivesNothingOfAnEmptyFile) {
    EXPECT_TRUE(LinesOf("").empty());
}

TEST(AnInputStream, CountsLinesFromOne) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "a\nb\n");
    const app::RereadableInput input(folder.path() / "a.txt");
    app::InputStream stream(input);
    std::string line;

    ASSERT_TRUE(stream.NextLine(line));
    EXPECT_EQ(stream.LineNumber(), 1U);
    ASSERT_TRUE(stream.NextLine(line));
    EXPECT_EQ(stream.LineNumber(), 2U);
    EXPECT_EQ(stream.Fraction(), 1.0);
}

TEST(ARereadableInput, OfAMissingFileNamesItAndTheReason) {
    try {
        const app::RereadableInput input("no-such-file");
        FAIL();
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(), "no-such-file: can't open: No such file or directory");
    }
}

TEST(FindCompanion, PrefersTheExactName) {
    const TemporaryFolder folder;
    folder.Write("a.mid", "");
    folder.Write("A.MID", "");

    EXPECT_EQ(app::FindCompanion(folder.path() / "a.mif", ".mid"), folder.path() / "a.mid");
}

TEST(FindCompanion, FindsANameInAnotherCase) {
    const TemporaryFolder folder;
    folder.Write("Roads.MID", "");

    EXPECT_EQ(app::FindCompanion(folder.path() / "roads.mif", ".mid"), folder.path() / "Roads.MID");
}

TEST(FindCompanion, IsEmptyWhenThereIsNone) {
    const TemporaryFolder folder;

    EXPECT_TRUE(app::FindCompanion(folder.path() / "roads.mif", ".mid").empty());
}

TEST(APath, KeepsBytesThatAreNoUtf8) {
    const std::filesystem::path path("a\xFF.mif");

    EXPECT_EQ(app::WidePath(path), L"a\xDCFF.mif");
    EXPECT_EQ(app::PathText(path), "a?.mif");
}

TEST(TheExtentOfObjects, IsEmptyBeforeTheFirst) {
    EXPECT_GT(app::ExtentOfObjects().Box().minX, app::ExtentOfObjects().Box().maxX);
}

TEST(TheExtentOfObjects, HoldsVerticesPositionsCornersAndTextBoxes) {
    app::ExtentOfObjects extent;
    zeio::TrPolyline line;
    line.vertices = {{1.0, 1.0, 5.0}};
    zeio::TrMarkerSet markers;
    markers.positions = {{-3.0, 1.0, 0.0}};
    zeio::TrEllipse ellipse;
    ellipse.y1 = -7.0;
    zeio::TrText text;
    text.box = {0.0, 0.0, 9.0, 8.0};

    for (const zeio::TrBase* object :
         std::vector<const zeio::TrBase*>{&line, &markers, &ellipse, &text}) {
        extent.Add(*object);
    }

    EXPECT_EQ(extent.Box(), (shr::Box3d{-3.0, -7.0, 0.0, 9.0, 8.0, 5.0}));
}

TEST(TheExtentOfObjects, CountsATextWithoutABoxByItsPosition) {
    app::ExtentOfObjects extent;

    extent.Add(zeio::TrText(L"x", {3.0, 4.0, 0.0}));

    EXPECT_EQ(extent.Box(), (shr::Box3d{3.0, 4.0, 0.0, 3.0, 4.0, 0.0}));
}

TEST(TheExtentOfObjects, LeavesOutNumbersThatAreNotFinite) {
    app::ExtentOfObjects extent;
    zeio::TrPolyline line;
    line.vertices = {{1.0, 2.0, 0.0},
                     {std::numeric_limits<double>::quiet_NaN(), 9.0, 0.0},
                     {std::numeric_limits<double>::infinity(), 9.0, 0.0}};

    extent.Add(line);

    EXPECT_EQ(extent.Box(), (shr::Box3d{1.0, 2.0, 0.0, 1.0, 2.0, 0.0}));
}

}  // namespace
