// Two filters at once in two threads, each with a manager of its own.
#include "export/MifExportFilter.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <latch>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kRounds = 5;
constexpr int kObjects = 120;  // more than the progress is told at a time

std::string MapOf(const std::string& value) {
    std::string mif = "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                      "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500000, 0\n"
                      "Columns 1\n  A Char(9)\nData\n";
    for (int i = 0; i < kObjects; ++i) {
        mif += "Pline 2\n1 2\n3 " + std::to_string(i) + "\n    Pen (3,5,255)\n";
        mif += "Text \"" + value + "\"\n0 0 10 2\n    Font (\"Arial\",1,0,255)\n";
        mif += "Arc 0 0 4 4\n10 100\n";
    }
    return mif;
}

// Imports, exports and imports again, round after round; what the last import gave.
class Worker {
public:
    explicit Worker(std::string value) : value_(std::move(value)) {}

    void Run(std::latch& start) {
        const std::wstring path = folder_.Write("in.mif", MapOf(value_));
        std::string rows;
        for (int i = 0; i < 3 * kObjects; ++i) {
            rows += '"' + value_ + "\"\n";
        }
        static_cast<void>(folder_.Write("in.mid", rows));
        start.arrive_and_wait();
        for (int round = 0; round < kRounds; ++round) {
            host_.ForgetCalls();
            mif::MifImportFilter(manager_).Import(path);
            Export();
            host_.ForgetCalls();
            mif::MifImportFilter(manager_).Import(folder_.PathOf("out.mif"));
        }
    }

    std::size_t PolylinesWithTheValue() const {
        std::size_t count = 0;
        for (const zeio::TrPolyline* polyline : host_.Received<zeio::TrPolyline>()) {
            count += polyline->attributes.NarrowValue(0) == value_ ? 1U : 0U;
        }
        return count;
    }

private:
    void Export() {
        mif::MifExportFilter filter(manager_);
        filter.BeginExport(folder_.PathOf("out.mif"));
        for (const zeio::TrNamedIds* columns : host_.Received<zeio::TrNamedIds>()) {
            zeio::TrNamedIds copy = *columns;
            filter.ExportObject(copy);
        }
        for (const zeio::TrCRS* system : host_.Received<zeio::TrCRS>()) {
            zeio::TrCRS copy = *system;
            filter.ExportObject(copy);
        }
        for (const zeio::TrPolyline* polyline : host_.Received<zeio::TrPolyline>()) {
            zeio::TrPolyline copy = *polyline;
            filter.ExportObject(copy);
        }
        filter.EndExport();
    }

    std::string value_;
    support::TemporaryFolder folder_;
    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
};

TEST(TwoFilters, InTwoThreadsDoNotDisturbEachOther) {
    std::latch start(2);
    Worker first("one");
    Worker second("two");

    std::thread firstThread([&] { first.Run(start); });
    std::thread secondThread([&] { second.Run(start); });
    firstThread.join();
    secondThread.join();

    // A polyline and an arc each.
    EXPECT_EQ(first.PolylinesWithTheValue(), std::size_t{2 * kObjects});
    EXPECT_EQ(second.PolylinesWithTheValue(), std::size_t{2 * kObjects});
}

}  // namespace
