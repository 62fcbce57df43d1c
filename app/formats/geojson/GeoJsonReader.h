// Reads GeoJSON: collections, single features and geometries, newline-delimited features and text
// sequences (RFC 8142). A feature is in memory at a time, however large the file is.
#pragma once

#include "app/base/Reporter.h"
#include "app/base/RereadableInput.h"
#include "app/feature/Feature.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace app {

// What a first pass over the input finds.
struct GeoJsonFacts {
    std::vector<LayerColumn> columns;  // properties in first-seen order, with the kind that holds
                                       // all their values
    std::optional<shr::Box2d> extent;  // the input's own bbox
    std::uint64_t featureCount = 0;
    std::uint64_t withoutGeometry = 0;  // features whose geometry is null or empty
};

class GeoJsonReader {
public:
    // Takes a path or "-"; standard input is spooled, since it is read twice. Throws Failure.
    explicit GeoJsonReader(const std::filesystem::path& path);

    // Reads everything once. Throws Failure, naming the file and the feature.
    GeoJsonFacts Survey(Reporter& reporter);

    // Hands every geometry to sink, which may change and move the feature. Lines of a
    // MultiLineString and members of a GeometryCollection are features of their own with the same
    // values; a polygon has a part for each ring. Values stand in the order of facts.columns;
    // objects and arrays are their JSON text. Throws Failure; what the sink throws passes.
    void Read(const GeoJsonFacts& facts, Reporter& reporter,
              const std::function<void(Feature&)>& sink);

private:
    RereadableInput input_;
};

}  // namespace app
