#include "host/platform/Stdio.h"
#include "host/shr/Files.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Notes what it is given to import.
class NotingImport : public zeio::IoImportFilter {
public:
    explicit NotingImport(zeio::IoManager& manager) : IoImportFilter(manager) {}
    const zeio::FilterIdentity* GetFilterIdentity() const override { return nullptr; }

    void Import(const std::wstring& path) override {
        path_ = path;
        filePermissions_ = fs::status(File()).permissions();
        folderPermissions_ = fs::status(File().parent_path()).permissions();
        std::FILE* stream = platform::OpenFile(path, platform::OpenMode::ReadBinary);
        for (int byte = std::fgetc(stream); byte != EOF; byte = std::fgetc(stream)) {
            bytes_ += static_cast<char>(byte);
        }
        std::fclose(stream);
        if (isBroken_) {
            throw std::runtime_error("broken");
        }
    }

    fs::path File() const { return platform::PathToBytes(path_); }

    std::wstring path_;
    std::string bytes_;
    fs::perms filePermissions_ = fs::perms::unknown;
    fs::perms folderPermissions_ = fs::perms::unknown;
    bool isBroken_ = false;
};

class ImportFromMemory : public testing::Test {
protected:
    void Import(const std::string& bytes) {
        const std::vector<unsigned char> block(bytes.begin(), bytes.end());
        filter_.ImportFromMemory(block.data(), static_cast<unsigned>(block.size()),
                                 /*isLast=*/true);
    }

    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
    NotingImport filter_{manager_};
};

TEST_F(ImportFromMemory, ImportsAFileOfTheSameBytes) {
    Import(std::string("Version 300\r\n\0\xFF", 15));

    EXPECT_EQ(filter_.bytes_, std::string("Version 300\r\n\0\xFF", 15));
}

TEST_F(ImportFromMemory, TakesNoBytesAtAll) {
    filter_.ImportFromMemory(nullptr, 0, /*isLast=*/true);

    EXPECT_FALSE(filter_.path_.empty());
    EXPECT_EQ(filter_.bytes_, "");
}

TEST_F(ImportFromMemory, NamesTheFileAsAMif) {
    Import("x");

    EXPECT_EQ(filter_.File().extension(), ".mif");
}

TEST_F(ImportFromMemory, LeavesNoFileBehind) {
    Import("x");

    EXPECT_FALSE(fs::exists(filter_.File().parent_path()));
}

TEST_F(ImportFromMemory, LeavesNoFileBehindAFailure) {
    filter_.isBroken_ = true;

    EXPECT_THROW(Import("x"), std::runtime_error);

    EXPECT_FALSE(fs::exists(filter_.File().parent_path()));
}

#if !defined(_WIN32)
TEST_F(ImportFromMemory, ShowsTheBytesToNobodyElse) {
    Import("x");

    EXPECT_EQ(filter_.filePermissions_, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(filter_.folderPermissions_, fs::perms::owner_all);
}
#endif

}  // namespace
