// Output files appear whole or not at all.
#include "app/base/Output.h"

#include "app/base/Errors.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

namespace {

using app::IfExists;
using app::OutputFile;
using app::OutputPair;
using support::TemporaryFolder;

std::ptrdiff_t Entries(const TemporaryFolder& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.path()),
                         std::filesystem::directory_iterator());
}

std::string FailureOf(const std::filesystem::path& path, IfExists ifExists) {
    try {
        OutputFile output(path, ifExists);
    } catch (const app::Failure& failure) {
        return failure.what();
    }
    return "";
}

TEST(AnOutputFile, IsThereAfterFinish) {
    const TemporaryFolder folder;

    OutputFile output(folder.path() / "a.txt", IfExists::Refuse);
    output.Write("one ");
    output.Write("two");
    EXPECT_FALSE(folder.Has("a.txt"));
    output.Finish();

    EXPECT_EQ(folder.Read("a.txt"), "one two");
    EXPECT_EQ(Entries(folder), 1);
}

TEST(AnOutputFile, IsEmptyWhenNothingWasWritten) {
    const TemporaryFolder folder;

    OutputFile output(folder.path() / "a.txt", IfExists::Refuse);
    output.Finish();

    EXPECT_TRUE(folder.Has("a.txt"));
}

TEST(AnOutputFile, LeavesNothingWithoutFinish) {
    const TemporaryFolder folder;

    {
        OutputFile output(folder.path() / "a.txt", IfExists::Refuse);
        output.Write(std::string(1 << 20, 'x'));
    }

    EXPECT_EQ(Entries(folder), 0);
}

TEST(AnOutputFile, KeepsTheOldOneWithoutFinish) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");

    {
        OutputFile output(folder.path() / "a.txt", IfExists::Overwrite);
        output.Write(std::string(1 << 20, 'x'));
    }

    EXPECT_EQ(folder.Read("a.txt"), "old");
}

TEST(AnOutputFile, ReplacesTheOldOneWhenTold) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");

    OutputFile output(folder.path() / "a.txt", IfExists::Overwrite);
    output.Write("new");
    output.Finish();

    EXPECT_EQ(folder.Read("a.txt"), "new");
}

TEST(AnOutputFile, ReplacesTheFileBehindALinkAndKeepsTheLink) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    std::filesystem::create_symlink("a.txt", folder.path() / "link.txt");

    OutputFile output(folder.path() / "link.txt", IfExists::Overwrite);
    output.Write("new");
    output.Finish();

    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.txt"));
    EXPECT_EQ(folder.Read("a.txt"), "new");
}

TEST(AnOutputFile, IsRefusedWhenItIsThereAlready) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");

    EXPECT_EQ(FailureOf(folder.path() / "a.txt", IfExists::Refuse),
              (folder.path() / "a.txt").string() + ": exists already; --overwrite replaces it");
}

TEST(AnOutputFile, IsRefusedWhenItIsAFolder) {
    const TemporaryFolder folder;

    EXPECT_EQ(FailureOf(folder.path(), IfExists::Overwrite),
              folder.path().string() + ": is a folder; name a file to write");
}

TEST(AnOutputFile, IsRefusedInAFolderThatThereIsNot) {
    const TemporaryFolder folder;
    const std::string place = (folder.path() / "no").string();

    EXPECT_EQ(FailureOf(folder.path() / "no" / "a.txt", IfExists::Refuse),
              place + "/a.txt: can't write: there is no folder " + place);
}

TEST(AnOutputFile, MayBeADevice) {
    OutputFile output("/dev/null", IfExists::Refuse);
    output.Write("gone");
    output.Finish();

    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(AnOutputFile, SaysWhenTheDeviceIsFull) {
    OutputFile output("/dev/full", IfExists::Refuse);
    output.Write("lost");

    try {
        output.Finish();
        FAIL();
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(), "/dev/full: can't write: No space left on device");
    }
}

TEST(AnOutputFile, DropsWhatComesAfterAFailure) {
    OutputFile output("/dev/full", IfExists::Refuse);
    output.Write("lost");
    EXPECT_THROW(output.Flush(), app::Failure);

    EXPECT_NO_THROW(output.Write(std::string(1 << 20, 'x')));
}

TEST(AnOutputFile, OfALibraryIsMovedIntoPlace) {
    const TemporaryFolder folder;
    OutputFile output(folder.path() / "a.txt", IfExists::Refuse);

    std::ofstream(output.PathForLibrary()) << "by the library";
    output.Finish();

    EXPECT_EQ(folder.Read("a.txt"), "by the library");
    EXPECT_EQ(Entries(folder), 1);
}

TEST(AnOutputPair, IsMovedIntoPlaceTogetherAndLeavesNothingElse) {
    const TemporaryFolder folder;
    {
        OutputPair pair(folder.path() / "a.mif", IfExists::Refuse);
        std::ofstream(pair.WorkPath()) << "mif";
        std::ofstream(std::filesystem::path(pair.WorkPath()).replace_extension(".mid")) << "mid";
        pair.Finish();
    }

    EXPECT_EQ(folder.Read("a.mif"), "mif");
    EXPECT_EQ(folder.Read("a.mid"), "mid");
    EXPECT_EQ(Entries(folder), 2);
}

TEST(AnOutputPair, HasAnUpperCaseMidBesideAnUpperCaseMif) {
    const TemporaryFolder folder;
    {
        OutputPair pair(folder.path() / "ISLAND.MIF", IfExists::Refuse);
        std::ofstream(pair.WorkPath()) << "mif";
        std::ofstream(pair.WorkMidPath()) << "mid";
        pair.Finish();
    }

    EXPECT_EQ(folder.Read("ISLAND.MIF"), "mif");
    EXPECT_EQ(folder.Read("ISLAND.MID"), "mid");
    EXPECT_EQ(Entries(folder), 2);
}

TEST(AnOutputPair, TakesThePlaceOfAMidInTheOtherCase) {
    const TemporaryFolder folder;
    folder.Write("ISLAND.mid", "old");
    {
        OutputPair pair(folder.path() / "ISLAND.MIF", IfExists::Overwrite);
        std::ofstream(pair.WorkPath()) << "mif";
        std::ofstream(pair.WorkMidPath()) << "mid";
        pair.Finish();
    }

    EXPECT_EQ(folder.Read("ISLAND.mid"), "mid");
    EXPECT_EQ(Entries(folder), 2);
}

TEST(AnOutputPair, IsRefusedWhenItsMidIsThereAlready) {
    const TemporaryFolder folder;
    folder.Write("a.mid", "old");

    EXPECT_THROW(OutputPair(folder.path() / "a.mif", IfExists::Refuse), app::Failure);
    EXPECT_EQ(Entries(folder), 1);
}

TEST(AnOutputPair, ShowsTheUsersOwnPathInTexts) {
    const TemporaryFolder folder;
    const OutputPair pair(folder.path() / "a.mif", IfExists::Refuse);
    const std::wstring mid =
        std::filesystem::path(pair.WorkPath()).replace_extension(".mid").wstring();

    EXPECT_EQ(pair.WithFinalPath(mid + L": full"), (folder.path() / "a.mid").wstring() + L": full");
}

TEST(CheckMifOutput, RefusesStandardOutputSinceAPairIsTwoFiles) {
    EXPECT_THROW(app::CheckMifOutput("-"), app::UsageError);
}

TEST(CheckMifOutput, TakesTheExtensionInAnyCase) {
    EXPECT_NO_THROW(app::CheckMifOutput("A.MIF"));
    EXPECT_THROW(app::CheckMifOutput("a.txt"), app::UsageError);
}

}  // namespace
