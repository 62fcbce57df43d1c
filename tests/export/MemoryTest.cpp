// What an export of two million vertices needs beyond the vertices themselves.
#include "tests/export/ExportRun.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mif::test {

namespace {

constexpr std::size_t kVertices = 2'000'000;
constexpr long kMostKibibytes = 64L * 1024;

long PeakKibibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Vertices that have 18 digits each.
zeio::TrPolygon LargePolygon(std::size_t count) {
    zeio::TrPolygon polygon;
    polygon.vertices.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double share = static_cast<double>(i) / 3.0;
        polygon.vertices.push_back({share, 1.0 / (share + 1.0), 0.0});
    }
    polygon.partSizes = {static_cast<std::int32_t>(count)};
    return polygon;
}

// The growth of the largest resident size of a process of its own during the calls, in KiB; -1
// when it failed.
long GrowthInAChild(const std::function<bool(ExportRun&, zeio::TrPolygon&)>& exportAll,
                    std::size_t count) {
    int ends[2];
    if (pipe(ends) != 0) {
        return -1;
    }
    const pid_t child = fork();
    if (child == 0) {
        long growth = -1;
        {
            ExportRun run;
            zeio::TrPolygon polygon = LargePolygon(count);
            const long before = PeakKibibytes();
            growth = exportAll(run, polygon) ? PeakKibibytes() - before : -1;
        }
        const bool isSent = write(ends[1], &growth, sizeof(growth)) == sizeof(growth);
        _exit(isSent ? 0 : 1);
    }
    close(ends[1]);
    long growth = -1;
    const bool isReceived = read(ends[0], &growth, sizeof(growth)) == sizeof(growth);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return isReceived && status == 0 ? growth : -1;
}

bool ExportOnce(ExportRun& run, zeio::TrPolygon& polygon) {
    return run.Begin() == zeio::ExportStatus::Done &&
           run.Send(polygon) == zeio::ExportStatus::Done && run.End() == zeio::ExportStatus::Done;
}

// Many objects, each with a pen to patch at the end and a row.
bool ExportManyTimes(ExportRun& run, zeio::TrPolygon& polygon) {
    bool isDone = run.Begin() == zeio::ExportStatus::Done;
    polygon.attributes.Set(L"ID1", std::wstring(L"a value"));
    for (std::size_t sent = 0; sent < kVertices; sent += polygon.vertices.size()) {
        isDone = isDone && run.Send(polygon) == zeio::ExportStatus::Done;
    }
    return isDone && run.End() == zeio::ExportStatus::Done;
}

}  // namespace

class PeakMemory : public testing::Test {
protected:
    void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
        GTEST_SKIP() << "the sanitizer keeps freed memory, so the peak is its own";
#endif
    }
};

TEST_F(PeakMemory, OfOneObjectOfTwoMillionVerticesStaysBelow64MiB) {
    const long growth = GrowthInAChild(ExportOnce, kVertices);

    EXPECT_GE(growth, 0);
    EXPECT_LT(growth, kMostKibibytes);
    RecordProperty("GrowthKiB", static_cast<int>(growth));
}

TEST_F(PeakMemory, OfTwoMillionVerticesInSmallObjectsStaysBelow64MiB) {
    const long growth = GrowthInAChild(ExportManyTimes, 20);

    EXPECT_GE(growth, 0);
    EXPECT_LT(growth, kMostKibibytes);
    RecordProperty("GrowthKiB", static_cast<int>(growth));
}

}  // namespace mif::test
