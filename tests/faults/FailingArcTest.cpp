// A host whose arc operation fails. This program has that operation instead of the host library, so
// the filter's calls come here.
#include "host/geom/Arc.h"
#include "host/zeio/Errors.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

namespace {

bool g_canDrawArcs = true;

// What the import throws; empty when it ends well.
std::optional<zeio::InternalError> ErrorOfImporting(const std::wstring& path) {
    support::RecordingHost host;
    zeio::IoManager manager(host);
    mif::MifImportFilter filter(manager);
    try {
        filter.Import(path);
    } catch (const zeio::InternalError& error) {
        return error;
    }
    return std::nullopt;
}

}  // namespace

bool geom::ArcToCurve(const shr::Box2d& /*box*/, const shr::Vec2d& start, const shr::Vec2d& end,
                      int count, shr::Vec2d* points, shr::Box2d* /*bounds*/) {
    if (g_canDrawArcs) {
        std::fill_n(points, count, start);
        points[count - 1] = end;
    }
    return g_canDrawArcs;
}

TEST(AHostThatCanNotDrawAnArc, EndsTheImportWithItsInternalError) {
    const support::TemporaryFolder folder;
    const std::wstring path =
        folder.Write("arc.mif", "Version 300\nDelimiter \",\"\nData\nArc 0 0 4 2\n0 90\n");
    g_canDrawArcs = false;

    const std::optional<zeio::InternalError> error = ErrorOfImporting(path);
    g_canDrawArcs = true;

    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Source(), L"MifImportParse");
    EXPECT_EQ(error->Line(), 1430);
}
