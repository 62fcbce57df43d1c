// Objects written as JSON lines read as the same objects.
#include "app/trace/ObjectReader.h"
#include "app/trace/TraceJson.h"

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

}  // namespace fault_test
