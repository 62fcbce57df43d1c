#include "export/OutputFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace mif::test {

namespace {

constexpr std::uint64_t kThreeGiB = 3ULL * 1024 * 1024 * 1024;

std::string ReadAt(const std::filesystem::path& path, std::uint64_t offset, std::size_t count) {
    std::ifstream stream(path, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(offset));
    std::string bytes(count, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(count));
    return bytes;
}

}  // namespace

class AnOutputFile : public testing::Test {
protected:
    AnOutputFile() { file.SetPath(folder.PathOf("out.mif")); }

    support::TemporaryFolder folder;
    OutputFile file;
};

// The gap takes no room on the disk.
TEST_F(AnOutputFile, IsOverwrittenInPlaceBeyondTwoGiB) {
    ASSERT_TRUE(file.Open());
    ASSERT_TRUE(file.SeekTo(kThreeGiB));
    ASSERT_TRUE(file.Write("  PEN (1, 2, 0)\n"));
    EXPECT_EQ(file.Tell(), kThreeGiB + 16);

    ASSERT_TRUE(file.SeekTo(kThreeGiB + 7));
    ASSERT_TRUE(file.Write("7"));
    ASSERT_TRUE(file.Close());
    EXPECT_EQ(ReadAt(folder.path() / "out.mif", kThreeGiB, 16), "  PEN (7, 2, 0)\n");
}

TEST_F(AnOutputFile, ThatIsNotOpenTakesNothing) {
    EXPECT_FALSE(file.Write("x"));
    EXPECT_FALSE(file.WriteWide(L"x"));
    EXPECT_FALSE(file.SeekTo(0));
    EXPECT_EQ(file.Tell(), 0U);
    EXPECT_TRUE(file.Close());
}

TEST_F(AnOutputFile, TakesWideTextInCodePage0) {
    ASSERT_TRUE(file.Open());

    EXPECT_TRUE(file.WriteWide(L"\u00E9\u20AC\u0436"));
    EXPECT_TRUE(file.Write("ab"));

    ASSERT_TRUE(file.Close());
    EXPECT_EQ(folder.Read("out.mif"), "\xE9\x80?ab");
}

TEST_F(AnOutputFile, IsDeletedWhenItIsDiscarded) {
    ASSERT_TRUE(file.Open());
    file.Discard();

    EXPECT_FALSE(folder.Has("out.mif"));
    EXPECT_FALSE(file.isOpen());
}

TEST_F(AnOutputFile, StaysWhenItIsKept) {
    ASSERT_TRUE(file.Open());
    ASSERT_TRUE(file.Close());
    file.Keep();
    file.Discard();

    EXPECT_TRUE(folder.Has("out.mif"));
}

TEST_F(AnOutputFile, IsLeftAloneWhenItCouldNotBeOpened) {
    static_cast<void>(folder.Write("out.mif", "there before"));
    file.Discard();

    EXPECT_EQ(folder.Read("out.mif"), "there before");
}

TEST_F(AnOutputFile, RemembersAWriteThatFailedUnchecked) {
    std::filesystem::create_symlink("/dev/full", folder.path() / "out.mif");
    ASSERT_TRUE(file.Open());
    static_cast<void>(file.Write(std::string(1'000'000, 'x')));

    EXPECT_FALSE(file.Close());
}

}  // namespace mif::test
