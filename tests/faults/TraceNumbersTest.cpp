// Objects written as JSON lines read as the same objects, and the line of an error that no file
// causes.
#include "app/trace/ObjectReader.h"
#include "app/trace/TraceHost.h"
#include "app/trace/TraceJson.h"
#include "host/zeio/Errors.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <string>

namespace fault_test {

TEST(AnObjectAsJson, KeepsTheSignOfAZero) {
    zeio::TrPolyline polyline;
    polyline.vertices = {{-0.0, 0.0, 0.0}, {1.0, 2.0, 0.0}};
    std::string json;

    app::AppendObjectJson(json, polyline);
    const auto object = app::ObjectFromJson(nlohmann::json::parse(json));

    const shr::Vec3d& vertex = static_cast<const zeio::TrPolyline&>(*object).vertices.front();
    EXPECT_TRUE(std::signbit(vertex.x));
    EXPECT_FALSE(std::signbit(vertex.y));
}

TEST(AnInternalErrorOfTheFilter, IsALineWithItsOrigin) {
    const support::TemporaryFolder folder;
    standalone::OptionStore store;
    app::OutputFile output(folder.path() / "trace.jsonl", app::IfExists::Refuse);
    app::TraceHost host(store, output);

    host.Thrown(zeio::InternalError(L"MifImportParse", 1430));
    output.Finish();

    EXPECT_EQ(folder.Read("trace.jsonl"),
              "{\"call\":\"Throw_ERR_INTERNAL\",\"source\":\"MifImportParse\",\"line\":1430}\n");
}

}  // namespace fault_test
