// The private copy of a file whose header the module would misread.
#include "app/mif/PaddedCopy.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

using app::CareCopy;
using support::TemporaryFolder;

constexpr const char* kSwallowed = "Version 300\nCoordSys Earth Projection 1, 104\nColumns 1\n";

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

CareCopy CopyOf(const std::filesystem::path& path) {
    return {path, app::ScanHeader(path)};
}

TEST(ACareCopy, IsNotMadeOfAHeaderThatNeedsNone) {
    const TemporaryFolder folder;
    folder.Write("a.mif", "Version 300\nColumns 0\nData\n");

    const CareCopy copy = CopyOf(folder.path() / "a.mif");

    EXPECT_FALSE(copy.IsCopy());
    EXPECT_EQ(copy.Path(), folder.path() / "a.mif");
}

TEST(ACareCopy, HasAnEmptyLineBehindTheClauseAndNothingElseChanged) {
    const TemporaryFolder folder;
    folder.Write("a.mif", std::string(kSwallowed) + " A Char(1)\r\nData\r\nPoint 1 2\r\n");

    const CareCopy copy = CopyOf(folder.path() / "a.mif");

    EXPECT_TRUE(copy.IsCopy());
    EXPECT_EQ(BytesOf(copy.Path()),
              "Version 300\nCoordSys Earth Projection 1, 104\n\nColumns 1\n A Char(1)\r\n"
              "Data\r\nPoint 1 2\r\n");
    EXPECT_EQ(folder.Read("a.mif").size() + 1, std::filesystem::file_size(copy.Path()));
}

TEST(ACareCopy, KeepsEveryByteOfAFileOfManyBlocks) {
    const TemporaryFolder folder;
    std::string text = std::string(kSwallowed) + " A Char(1)\nData\n";
    const std::size_t head = std::string(kSwallowed).find("Columns");
    for (int i = 0; i < 300'000; ++i) {
        text += "Point " + std::to_string(i) + " 2\n";
    }
    folder.Write("a.mif", text);

    const CareCopy copy = CopyOf(folder.path() / "a.mif");

    EXPECT_EQ(BytesOf(copy.Path()), text.insert(head, "\n"));
}

TEST(ACareCopy, HasTheSameNameAndItsMidBesideIt) {
    const TemporaryFolder folder;
    folder.Write("ROADS.MIF", std::string(kSwallowed) + " A Char(1)\nData\n");
    folder.Write("roads.Mid", "\"x\"\n");

    const CareCopy copy = CopyOf(folder.path() / "ROADS.MIF");

    EXPECT_EQ(copy.Path().filename(), "ROADS.MIF");
    EXPECT_EQ(BytesOf(copy.Path().parent_path() / "ROADS.mid"), "\"x\"\n");
}

TEST(ACareCopy, CanBeReadByItsUserOnly) {
    const TemporaryFolder folder;
    folder.Write("a.mif", std::string(kSwallowed) + " A Char(1)\nData\n");

    const CareCopy copy = CopyOf(folder.path() / "a.mif");

    EXPECT_EQ(std::filesystem::status(copy.Path().parent_path()).permissions(),
              std::filesystem::perms::owner_all);
}

TEST(ACareCopy, IsRemovedWithItsFolder) {
    const TemporaryFolder folder;
    folder.Write("a.mif", std::string(kSwallowed) + " A Char(1)\nData\n");
    folder.Write("a.mid", "\"x\"\n");
    std::filesystem::path place;

    {
        const CareCopy copy = CopyOf(folder.path() / "a.mif");
        place = copy.Path().parent_path();
        ASSERT_TRUE(std::filesystem::exists(place));
    }

    EXPECT_FALSE(std::filesystem::exists(place));
    EXPECT_TRUE(folder.Has("a.mid"));
}

TEST(ACareCopy, ShowsTheUsersOwnPathInTexts) {
    const TemporaryFolder folder;
    folder.Write("a.mif", std::string(kSwallowed) + " A Char(1)\nData\n");

    const CareCopy copy = CopyOf(folder.path() / "a.mif");

    EXPECT_EQ(copy.WithOriginalPath(L"Can't import '" + copy.Path().wstring() + L"'."),
              L"Can't import '" + (folder.path() / "a.mif").wstring() + L"'.");
}

}  // namespace
