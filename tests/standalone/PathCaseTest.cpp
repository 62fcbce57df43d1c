// Names on file systems that tell case apart and take any byte.
#include "host/platform/Stdio.h"
#include "host/shr/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

// What the first byte of the file is that opening a path leads to; -1 when it leads nowhere.
int FirstByteOf(const std::wstring& path) {
    std::FILE* stream = platform::OpenFile(path, platform::OpenMode::ReadBinary);
    if (stream == nullptr) {
        return -1;
    }
    const int byte = std::fgetc(stream);
    std::fclose(stream);
    return byte;
}

TEST(OpeningToRead, FallsBackToANameInAnotherCase) {
    const support::TemporaryFolder folder;
    folder.Write("ROADS.MID", "m");

    EXPECT_EQ(FirstByteOf(folder.PathOf("ROADS.mid")), 'm');
    EXPECT_TRUE(shr::IsFileReadable(folder.PathOf("roads.mid")));
    EXPECT_EQ(shr::GetFileSize(folder.PathOf("roads.mid")), 1);
}

TEST(OpeningToRead, PrefersTheVeryName) {
    const support::TemporaryFolder folder;
    folder.Write("ROADS.MID", "1");
    folder.Write("roads.mid", "2");

    EXPECT_EQ(FirstByteOf(folder.PathOf("roads.mid")), '2');
}

TEST(OpeningToRead, TakesTheFirstOfSeveralInTheOrderOfBytes) {
    const support::TemporaryFolder folder;
    folder.Write("Roads.mid", "2");
    folder.Write("ROADS.MID", "1");

    EXPECT_EQ(FirstByteOf(folder.PathOf("roads.mid")), '1');
}

TEST(OpeningToRead, FallsBackForFoldersToo) {
    const support::TemporaryFolder folder;
    fs::create_directories(folder.path() / "Maps" / "2001");
    folder.Write("Maps/2001/ROADS.MIF", "r");

    EXPECT_EQ(FirstByteOf(folder.PathOf("MAPS//2001/roads.mif")), 'r');
}

TEST(OpeningToRead, FallsBackForLettersBeyondAscii) {
    const support::TemporaryFolder folder;
    const std::wstring start = platform::PathFromBytes(folder.path().string());
    std::fclose(platform::OpenFile(start + L"/\u00C4CKER.MIF", platform::OpenMode::WriteText));

    EXPECT_TRUE(shr::IsFileReadable(start + L"/\u00E4cker.mif"));
}

TEST(OpeningToRead, DoesNotFallBackToAnotherName) {
    const support::TemporaryFolder folder;
    folder.Write("ROADS.MIDX", "m");

    EXPECT_EQ(FirstByteOf(folder.PathOf("roads.mid")), -1);

    EXPECT_EQ(errno, ENOENT);
}

TEST(OpeningToRead, DoesNotFallBackToAFolder) {
    const support::TemporaryFolder folder;
    fs::create_directory(folder.path() / "ROADS");

    EXPECT_EQ(FirstByteOf(folder.PathOf("roads")), -1);

    EXPECT_EQ(errno, EISDIR);
}

TEST(OpeningToWrite, NeverFallsBack) {
    const support::TemporaryFolder folder;
    folder.Write("ROADS.MID", "keep");

    std::fclose(platform::OpenFile(folder.PathOf("roads.mid"), platform::OpenMode::WriteText));

    EXPECT_EQ(folder.Read("ROADS.MID"), "keep");
    EXPECT_TRUE(folder.Has("roads.mid"));
}

TEST(OpeningToWrite, NeedsItsFolder) {
    const support::TemporaryFolder folder;

    EXPECT_EQ(platform::OpenFile(folder.PathOf("no/a.mif"), platform::OpenMode::WriteText),
              nullptr);

    EXPECT_EQ(errno, ENOENT);
}

TEST(AnOpenFile, IsNotHandedToChildProcesses) {
    const support::TemporaryFolder folder;
    std::FILE* stream =
        platform::OpenFile(folder.Write("a.mif", "x"), platform::OpenMode::ReadBinary);

    EXPECT_NE(fcntl(fileno(stream), F_GETFD) & FD_CLOEXEC, 0);

    std::fclose(stream);
}

std::string EveryByteOfAName() {
    std::string bytes;
    for (int value = 1; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

TEST(PathFromBytes, LosesNoByte) {
    EXPECT_EQ(platform::PathToBytes(platform::PathFromBytes(EveryByteOfAName())),
              EveryByteOfAName());
}

TEST(PathFromBytes, ReadsUtf8) {
    EXPECT_EQ(platform::PathFromBytes("\xC3\xA4"), L"\u00E4");
}

TEST(PathFromBytes, CarriesAnInvalidByteAsALoneSurrogate) {
    EXPECT_EQ(platform::PathFromBytes("a\xE4"), std::wstring({L'a', wchar_t(0xDCE4)}));
}

TEST(PathToBytes, WritesUtf8BeyondSixteenBits) {
    EXPECT_EQ(platform::PathToBytes(L"\U0001F600"), "\xF0\x9F\x98\x80");
}

TEST(PathToBytes, NeverEndsANameEarly) {
    EXPECT_EQ(platform::PathToBytes({wchar_t(0xD800)}), "\xED\xA0\x80");
    EXPECT_EQ(platform::PathToBytes({wchar_t(0x110000)}), "?");
}

TEST(OpenFile, FindsANameThatIsNoUtf8) {
    const support::TemporaryFolder folder;
    const std::string bytes = folder.path().string() + "/\xE4.mif";
    std::FILE* made =
        platform::OpenFile(platform::PathFromBytes(bytes), platform::OpenMode::WriteText);
    ASSERT_NE(made, nullptr);
    std::fclose(made);

    EXPECT_TRUE(fs::exists(bytes));
    EXPECT_TRUE(shr::IsFileReadable(platform::PathFromBytes(bytes)));
}

}  // namespace
