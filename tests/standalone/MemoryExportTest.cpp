#include "host/platform/Stdio.h"
#include "host/shr/CPath.h"
#include "host/zeio/Errors.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/TrObjects.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;
using zeio::ExportStatus;

void WriteFile(const std::wstring& path, const std::string& text) {
    std::FILE* stream = platform::OpenFile(path, platform::OpenMode::WriteText);
    platform::WriteBytes(stream, text.data(), text.size());
    std::fclose(stream);
}

// Writes one line for each object, and a second file beside the main one.
class LineExport : public zeio::IoExportFilter {
public:
    explicit LineExport(zeio::IoManager& manager) : IoExportFilter(manager) {}
    const zeio::FilterIdentity* GetFilterIdentity() const override { return nullptr; }

    ExportStatus BeginExport(const std::wstring& path) override {
        path_ = path;
        text_.clear();
        WriteFile(path, text_);
        WriteFile(shr::CPath::ChangeExtension(path, L".mid"), "beside");
        if (failsToBegin_) {
            throw std::runtime_error("can't begin");
        }
        return ExportStatus::Done;
    }

    ExportStatus ExportObject(zeio::TrBase& /*object*/) override {
        text_ += "object";
        return ExportStatus::Done;
    }

    ExportStatus EndExport() override {
        if (failsToEnd_) {
            throw std::runtime_error("can't end");
        }
        if (text_.empty() && !writesEmptyFiles_) {
            fs::remove(File());
            return ExportStatus::NothingWritten;
        }
        WriteFile(path_, text_);
        return ExportStatus::Done;
    }

    fs::path File() const { return platform::PathToBytes(path_); }
    bool HasFolder() const { return fs::exists(File().parent_path()); }

    std::wstring path_;
    std::string text_;
    bool failsToBegin_ = false;
    bool failsToEnd_ = false;
    bool writesEmptyFiles_ = false;
};

class ExportToMemory : public testing::Test {
protected:
    std::string Bytes() const { return {bytes_.begin(), bytes_.end()}; }

    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
    std::unique_ptr<LineExport> filter_ = std::make_unique<LineExport>(manager_);
    zeio::TrPen object_;
    std::vector<unsigned char> bytes_{1, 2, 3};
    void* block_ = nullptr;
    unsigned long long size_ = 77;
};

TEST_F(ExportToMemory, GivesTheMainFilesBytes) {
    EXPECT_EQ(filter_->BeginExportToMemory(bytes_), ExportStatus::Done);
    filter_->ExportObject(object_);
    filter_->ExportObject(object_);

    EXPECT_EQ(filter_->EndExportToMemory(), ExportStatus::Done);

    EXPECT_EQ(Bytes(), "objectobject");
}

TEST_F(ExportToMemory, LeavesNoFileBehind) {
    filter_->BeginExportToMemory(bytes_);
    filter_->ExportObject(object_);
    EXPECT_TRUE(filter_->HasFolder());

    filter_->EndExportToMemory();

    EXPECT_FALSE(filter_->HasFolder());
}

TEST_F(ExportToMemory, GivesNoBytesWhenNothingWasWritten) {
    filter_->BeginExportToMemory(bytes_);

    EXPECT_EQ(filter_->EndExportToMemory(), ExportStatus::NothingWritten);

    EXPECT_TRUE(bytes_.empty());
    EXPECT_FALSE(filter_->HasFolder());
}

TEST_F(ExportToMemory, LeavesNoFileBehindAFailureToBegin) {
    filter_->failsToBegin_ = true;

    EXPECT_THROW(filter_->BeginExportToMemory(bytes_), std::runtime_error);

    EXPECT_FALSE(filter_->HasFolder());
}

TEST_F(ExportToMemory, LeavesNoFileBehindAFailureToEnd) {
    filter_->failsToEnd_ = true;
    filter_->BeginExportToMemory(bytes_);

    EXPECT_THROW(filter_->EndExportToMemory(), std::runtime_error);

    EXPECT_FALSE(filter_->HasFolder());
}

TEST_F(ExportToMemory, LeavesNoFileBehindAFilterThatIsDeletedInBetween) {
    filter_->BeginExportToMemory(bytes_);
    const fs::path folder = filter_->File().parent_path();

    filter_.reset();

    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(ExportToMemory, IsDroppedByAnother) {
    filter_->BeginExportToMemory(bytes_);
    const fs::path first = filter_->File().parent_path();
    std::vector<unsigned char> others;
    filter_->BeginExportToMemory(others);
    filter_->ExportObject(object_);

    filter_->EndExportToMemory();

    EXPECT_FALSE(fs::exists(first));
    EXPECT_EQ(others.size(), 6U);
}

TEST_F(ExportToMemory, CannotEndBeforeItBegan) {
    EXPECT_THROW(filter_->EndExportToMemory(), zeio::InternalError);
    EXPECT_THROW(filter_->EndExportToGlobalMemory(), zeio::InternalError);
}

TEST_F(ExportToMemory, CannotEndAsTheOtherKind) {
    filter_->BeginExportToMemory(bytes_);

    EXPECT_THROW(filter_->EndExportToGlobalMemory(), zeio::InternalError);
}

TEST_F(ExportToMemory, CanEndOnlyOnce) {
    filter_->BeginExportToMemory(bytes_);
    filter_->ExportObject(object_);
    filter_->EndExportToMemory();

    EXPECT_THROW(filter_->EndExportToMemory(), zeio::InternalError);
}

TEST_F(ExportToMemory, GivesABlockThatTheCallerFrees) {
    EXPECT_EQ(filter_->BeginExportToGlobalMemory(block_, size_), ExportStatus::Done);
    filter_->ExportObject(object_);

    EXPECT_EQ(filter_->EndExportToGlobalMemory(), ExportStatus::Done);

    ASSERT_EQ(size_, 6U);
    EXPECT_EQ(std::string(static_cast<const char*>(block_), 6), "object");
    std::free(block_);
}

TEST_F(ExportToMemory, GivesNoBlockWhenNothingWasWritten) {
    filter_->BeginExportToGlobalMemory(block_, size_);

    EXPECT_EQ(filter_->EndExportToGlobalMemory(), ExportStatus::NothingWritten);

    EXPECT_EQ(block_, nullptr);
    EXPECT_EQ(size_, 0U);
}

TEST_F(ExportToMemory, GivesNoBlockForAnEmptyFile) {
    filter_->writesEmptyFiles_ = true;
    filter_->BeginExportToGlobalMemory(block_, size_);

    EXPECT_EQ(filter_->EndExportToGlobalMemory(), ExportStatus::Done);

    EXPECT_EQ(block_, nullptr);
    EXPECT_EQ(size_, 0U);
}

}  // namespace
