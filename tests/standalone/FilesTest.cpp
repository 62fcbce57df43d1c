#include "host/shr/Files.h"

#include "host/shr/IError.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>

namespace {

TEST(IsFileReadable, IsTrueForAFileOnly) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("a.mif", "x");

    EXPECT_TRUE(shr::IsFileReadable(path));
    EXPECT_FALSE(shr::IsFileReadable(folder.PathOf("missing.mif")));
    EXPECT_FALSE(shr::IsFileReadable(folder.path().wstring()));
}

TEST(GetFileSize, CountsBytesAndGivesZeroForWhatIsNoFile) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("a.mif", "12345");

    EXPECT_EQ(shr::GetFileSize(path), 5);
    EXPECT_EQ(shr::GetFileSize(folder.PathOf("missing.mif")), 0);
    EXPECT_EQ(shr::GetFileSize(folder.path().wstring()), 0);
}

TEST(RemoveFile, DeletesAFileOnce) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("a.mif", "x");

    EXPECT_TRUE(shr::RemoveFile(path));

    EXPECT_FALSE(folder.Has("a.mif"));
    EXPECT_FALSE(shr::RemoveFile(path));
}

TEST(RemoveFile, RefusesAPathWithANul) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("a.mif", "x") + std::wstring(L"\0z", 2);

    EXPECT_FALSE(shr::RemoveFile(path));

    EXPECT_TRUE(folder.Has("a.mif"));
    EXPECT_EQ(shr::GetFileSize(path), 0);
}

TEST(RemoveFile, LeavesFolders) {
    const support::TemporaryFolder folder;

    EXPECT_FALSE(shr::RemoveFile(folder.path().wstring()));

    EXPECT_TRUE(std::filesystem::exists(folder.path()));
}

TEST(FormatSystemErrorMsg, NamesTheErrorWithoutAFullStop) {
    EXPECT_EQ(shr::FormatSystemErrorMsg(ENOENT), L"No such file or directory");
}

}  // namespace
