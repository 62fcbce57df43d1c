#include "host/platform/Stdio.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

namespace {

struct StreamCloser {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, StreamCloser>;

Stream OpenToRead(const std::wstring& path) {
    return Stream(platform::OpenFile(path, platform::OpenMode::ReadBinary));
}

Stream OpenToWrite(const std::wstring& path) {
    return Stream(platform::OpenFile(path, platform::OpenMode::WriteText));
}

TEST(OpenFile, ReadsTheBytesAsTheyAre) {
    const support::TemporaryFolder folder;
    const Stream stream = OpenToRead(folder.Write("a.mif", "\r\n\xFF"));

    ASSERT_TRUE(stream);
    EXPECT_EQ(platform::GetByte(stream.get()), '\r');
    EXPECT_EQ(platform::GetByte(stream.get()), '\n');
    EXPECT_EQ(platform::GetByte(stream.get()), 0xFF);
    EXPECT_EQ(platform::GetByte(stream.get()), EOF);
}

TEST(OpenFile, OfAMissingFileSaysSo) {
    const support::TemporaryFolder folder;

    EXPECT_FALSE(OpenToRead(folder.PathOf("missing.mif")));

    EXPECT_EQ(errno, ENOENT);
}

TEST(OpenFile, RefusesAFolderForReading) {
    const support::TemporaryFolder folder;

    EXPECT_FALSE(OpenToRead(folder.path().wstring()));

    EXPECT_EQ(errno, EISDIR);
}

TEST(OpenFile, RefusesAFolderForWriting) {
    const support::TemporaryFolder folder;

    EXPECT_FALSE(OpenToWrite(folder.path().wstring()));
}

TEST(OpenFile, RefusesAPathWithANul) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("a.mif", "x") + std::wstring(L"\0z", 2);

    EXPECT_FALSE(OpenToRead(path));

    EXPECT_EQ(errno, EINVAL);
}

TEST(OpenFile, ForWritingEmptiesTheFile) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("a.mif", "old");

    ASSERT_TRUE(OpenToWrite(path));

    EXPECT_EQ(folder.Read("a.mif"), "");
}

TEST(SeekTo, FindsEveryOffset) {
    const support::TemporaryFolder folder;
    const Stream stream = OpenToRead(folder.Write("a.mif", "0123456789"));
    ASSERT_TRUE(stream);

    EXPECT_TRUE(platform::SeekTo(stream.get(), 7));
    EXPECT_EQ(platform::Tell(stream.get()), 7U);
    EXPECT_EQ(platform::GetByte(stream.get()), '7');
    EXPECT_TRUE(platform::SeekToEnd(stream.get()));
    EXPECT_EQ(platform::Tell(stream.get()), 10U);
}

TEST(SeekTo, GoesBeyondFourGigabytes) {
    const support::TemporaryFolder folder;
    const Stream stream = OpenToRead(folder.Write("a.mif", "x"));
    ASSERT_TRUE(stream);
    const std::uint64_t offset = 5'000'000'000;

    EXPECT_TRUE(platform::SeekTo(stream.get(), offset));

    EXPECT_EQ(platform::Tell(stream.get()), offset);
}

TEST(SeekTo, RefusesAnOffsetThatNoFileHas) {
    const support::TemporaryFolder folder;
    const Stream stream = OpenToRead(folder.Write("a.mif", "x"));
    ASSERT_TRUE(stream);

    EXPECT_FALSE(platform::SeekTo(stream.get(), ~std::uint64_t{0}));
}

TEST(LendBuffer, MakesTheStreamReadIntoTheMemory) {
    const support::TemporaryFolder folder;
    std::vector<char> memory(1 << 16);
    const Stream stream = OpenToRead(folder.Write("a.mif", "abc"));
    ASSERT_TRUE(stream);

    platform::LendBuffer(stream.get(), memory);

    EXPECT_EQ(platform::GetByte(stream.get()), 'a');
    EXPECT_EQ(memory[2], 'c');
}

TEST(WriteBytes, FailsOnAStreamForReading) {
    const support::TemporaryFolder folder;
    const Stream stream = OpenToRead(folder.Write("a.mif", "x"));
    ASSERT_TRUE(stream);

    EXPECT_FALSE(platform::WriteBytes(stream.get(), "a", 1));
}

int Sign(int value) {
    return value < 0 ? -1 : static_cast<int>(value > 0);
}

struct CompareRow {
    std::string name;
    std::string left;
    std::string right;
    int sign;
};
class CompareNoCase : public testing::TestWithParam<CompareRow> {};

TEST_P(CompareNoCase, OfNarrowText) {
    EXPECT_EQ(Sign(platform::CompareNoCase(GetParam().left.c_str(), GetParam().right.c_str())),
              GetParam().sign);
}
INSTANTIATE_TEST_SUITE_P(, CompareNoCase,
                         testing::Values(CompareRow{"IgnoresCase", "PLine", "pLINE", 0},
                                         CompareRow{"OrdersByLowerLetters", "a", "B", -1},
                                         CompareRow{"OrdersLettersBehindTheSignBetweenTheCases",
                                                    "Z", "_", 1},
                                         CompareRow{"PutsTheShorterFirst", "pen", "pens", -1},
                                         CompareRow{"TakesBytesAsPositive", "\xE9", "z", 1},
                                         CompareRow{"FoldsOnlyAscii", "\xC9", "\xE9", -1}),
                         [](const auto& row) { return row.param.name; });

TEST(CompareNoCaseWide, LooksAtNoMoreThanTheCount) {
    EXPECT_EQ(platform::CompareNoCase(L"DATAbase", L"datum", 3), 0);
    EXPECT_LT(platform::CompareNoCase(L"DATAbase", L"datum", 4), 0);
}

TEST(CompareNoCaseWide, StopsAtTheEndOfBoth) {
    EXPECT_EQ(platform::CompareNoCase(L"ab", L"AB", 100), 0);
}

}  // namespace
