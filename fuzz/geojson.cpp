// GeoJSON input, as the command convert reads it.
#include "app/base/Errors.h"
#include "app/base/Reporter.h"
#include "app/formats/geojson/GeoJsonReader.h"
#include "fuzz/FuzzInput.h"

#include <cstdint>
#include <cstdio>
#include <numeric>

namespace {

void Check(const app::Feature& feature, std::size_t columns) {
    fuzz::Require(feature.values.size() == columns, "a feature has a value a column");
    const app::Geometry& geometry = feature.geometry;
    if (geometry.kind == app::GeometryKind::Region) {
        const std::size_t vertices =
            std::accumulate(geometry.partSizes.begin(), geometry.partSizes.end(), std::size_t{0});
        fuzz::Require(vertices == geometry.points.size(), "the rings have the region's vertices");
    }
    fuzz::Require(geometry.kind != app::GeometryKind::Line || geometry.points.size() >= 2,
                  "a line has two vertices");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    app::Reporter reporter(nowhere, /*isTerminal=*/false, /*useColor=*/false);
    fuzz::WriteFile("in.geojson", fuzz::TextOf(data, size));
    try {
        app::GeoJsonReader reader(fuzz::PathOf("in.geojson"));
        const app::LayerFacts facts = reader.Begin(0, reporter);
        reader.Read(reporter, [&](app::Feature& feature) {
            Check(feature, facts.columns.size());
            return true;
        });
    } catch (const app::Failure&) {
        return 0;
    }
    return 0;
}
