// The file that the module reads in place of one that it would read wrongly.
#include "app/mif/ModuleCopy.h"

#include "app/base/Errors.h"
#include "app/mif/PairReading.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using app::ModuleCopy;
using support::TemporaryFolder;

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(AModuleCopy, IsTheFileItselfAsLongAsNothingIsCut) {
    const TemporaryFolder folder;
    folder.Write("a.mif", "Version 300\nData\n");
    ModuleCopy copy(folder.path() / "a.mif");

    copy.Finish();

    EXPECT_FALSE(copy.IsCopy());
    EXPECT_EQ(copy.Path(), folder.path() / "a.mif");
}

TEST(AModuleCopy, HasNoRowsBesideIt) {
    const TemporaryFolder folder;
    folder.Write("a.mif", "Version 300\nData\n");
    folder.Write("a.mid", "1\n");
    ModuleCopy copy(folder.path() / "a.mif");

    copy.Finish();

    EXPECT_EQ(copy.Path().filename(), "a.mif");
    EXPECT_EQ(BytesOf(copy.Path()), "Version 300\nData\n");
    EXPECT_FALSE(std::filesystem::exists(copy.Path().parent_path() / "a.mid"));
}

TEST(AModuleCopy, HasOtherTextInPlaceOfWhatIsCut) {
    const TemporaryFolder folder;
    folder.Write("a.mif", "0123456789");
    ModuleCopy copy(folder.path() / "a.mif");

    copy.Cut(0, 2, "ab");
    copy.Cut(2, 3, "");
    copy.Cut(5, 5, "-");
    copy.Cut(9, 10, "");
    copy.Finish();

    EXPECT_TRUE(copy.IsCopy());
    EXPECT_EQ(BytesOf(copy.Path()), "ab34-5678");
    EXPECT_EQ(folder.Read("a.mif"), "0123456789");
}

TEST(AModuleCopy, KeepsEveryByteOfAFileOfManyBlocks) {
    const TemporaryFolder folder;
    std::string text;
    for (int i = 0; i < 300'000; ++i) {
        text += "Point " + std::to_string(i) + " 2\n";
    }
    folder.Write("a.mif", text);
    ModuleCopy copy(folder.path() / "a.mif");

    copy.Cut(10'000, 10'001, "");
    copy.Cut(2'000'000, 2'000'005, "");
    copy.Finish();

    text.erase(2'000'000, 5);
    text.erase(10'000, 1);
    EXPECT_TRUE(BytesOf(copy.Path()) == text);
}

TEST(AModuleCopy, CanBeReadByItsUserOnlyAndGoesWithItsObject) {
    const TemporaryFolder folder;
    folder.Write("a.mif", "0123456789");
    std::filesystem::path place;
    {
        ModuleCopy copy(folder.path() / "a.mif");
        copy.Cut(0, 1, "");
        copy.Finish();
        place = copy.Path().parent_path();
        EXPECT_EQ(std::filesystem::status(place).permissions(), std::filesystem::perms::owner_all);
    }

    EXPECT_FALSE(std::filesystem::exists(place));
    EXPECT_TRUE(folder.Has("a.mif"));
}

TEST(AModuleCopy, NamesTheTemporaryFolderWhenThatIsFull) {
    const TemporaryFolder folder;
    folder.Write("a.mif", std::string(100'000, 'x'));
    try {
        const support::FileSizeLimit limit(50'000);
        ModuleCopy copy(folder.path() / "a.mif");
        copy.Cut(0, 1, "");
        copy.Finish();
        FAIL() << "there is room";
    } catch (const app::Failure& failure) {
        const std::string text = failure.what();
        EXPECT_NE(text.find(std::filesystem::temp_directory_path().string()), std::string::npos)
            << text;
        EXPECT_NE(text.find("TMPDIR"), std::string::npos) << text;
    }
}

class ASoundSample : public testing::TestWithParam<const char*> {};

TEST_P(ASoundSample, IsReadByTheModuleItself) {
    const app::PairReading reading(std::filesystem::path(QOLF_SAMPLES) / GetParam());

    EXPECT_FALSE(reading.Copy().IsCopy());
}

INSTANTIATE_TEST_SUITE_P(, ASoundSample,
                         testing::Values("island.mif", "island-ways.mif", "island-places.mif"));

}  // namespace
