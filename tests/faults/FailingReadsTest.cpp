// Reads that fail in the middle of a file. The descriptor of the open file is replaced by a
// folder's, from which every read fails.
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "tests/faults/OpenFiles.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace fault_test {

namespace {

constexpr int kObjects = 20'000;

// Makes every further read from the file fail. False when no such file is open.
bool BreakReadsOf(const std::string& name) {
    const int descriptor = DescriptorOf("/" + name);
    const int folder = open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const bool isBroken = descriptor >= 0 && folder >= 0 && dup2(folder, descriptor) >= 0;
    close(folder);
    return isBroken;
}

// One import of points in lines of 16 bytes, so that no read ends inside of one.
class ReadsThatFail : public testing::Test {
protected:
    ReadsThatFail() {
        std::string mif = "Version 300\nDelimiter \",\"\nColumns 1\n  A Char(9)\nData\n";
        mif += std::string(63 - mif.size() % 64, ' ') + '\n';
        std::string rows;
        for (int i = 0; i < kObjects; ++i) {
            mif += "Point 1000 2000\n";
            rows += "\"abcde\"\n";
        }
        path_ = folder_.Write("map.mif", mif);
        static_cast<void>(folder_.Write("map.mid", rows));
    }

    // Imports, and breaks the reads of the file once the first object has come.
    void ImportBreaking(const std::string& name) {
        host_.onObject = [this, name](zeio::TrBase& object) {
            if (!isBroken_ && object.GetTypeId() == zeio::TrMarkerSet::GetClassTypeId()) {
                isBroken_ = BreakReadsOf(name);
            }
        };
        filter_.Import(path_);
    }

    std::vector<const zeio::TrMarkerSet*> Points() const {
        return host_.Received<zeio::TrMarkerSet>();
    }
    bool isBroken() const { return isBroken_; }

private:
    support::TemporaryFolder folder_;
    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
    mif::MifImportFilter filter_{manager_};
    std::wstring path_;
    bool isBroken_ = false;
};

std::string ValueOf(const zeio::TrMarkerSet& point) {
    return point.attributes.Size() == 0 ? "none" : point.attributes.NarrowValue(0);
}

}  // namespace

TEST_F(ReadsThatFail, InTheMifFileActAsItsEnd) {
    ImportBreaking("map.mif");

    EXPECT_TRUE(isBroken());
    EXPECT_GT(Points().size(), 1U);
    EXPECT_LT(Points().size(), static_cast<std::size_t>(kObjects));
    EXPECT_EQ(Points().back()->positions.front(), (shr::Vec3d{1000.0, 2000.0, 0.0}));
}

TEST_F(ReadsThatFail, InTheMidFileLeaveTheOtherObjectsWithoutAttributes) {
    ImportBreaking("map.mid");

    EXPECT_TRUE(isBroken());
    ASSERT_EQ(Points().size(), static_cast<std::size_t>(kObjects));
    EXPECT_EQ(ValueOf(*Points().front()), "abcde");
    EXPECT_EQ(ValueOf(*Points().back()), "none");
}

}  // namespace fault_test
