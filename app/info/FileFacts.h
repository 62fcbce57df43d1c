// The facts about one MIF file that qolf info shows.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Source.h"
#include "app/mif/HeaderScan.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct ObjectCounts {
    std::uint64_t points = 0;  // marker sets; positions are counted apart
    std::uint64_t lines = 0;
    std::uint64_t regions = 0;
    std::uint64_t rectangles = 0;
    std::uint64_t ellipses = 0;
    std::uint64_t texts = 0;
    std::uint64_t vertices = 0;  // positions, vertices and rings' vertices of all of them
    std::optional<shr::Box2d> extent;
    std::optional<std::uint64_t> rows;  // of the .mid file; absent without one
    std::uint64_t Objects() const {
        return points + lines + regions + rectangles + ellipses + texts;
    }
};

struct FileFacts {
    std::filesystem::path path;
    long long fileSize = 0;  // bytes
    int canImport = 0;       // slot 7
    int version = 0;         // slot 8, as what follows
    std::string charset;
    std::string delimiter;
    bool isEarth = false;
    shr::Box2d bounds;
    std::string codePage;  // in which the texts were read
    bool hasMid = false;
    MifHeader header;
    bool isCareTaken = false;
    std::vector<LayerColumn> columns;                    // as the module names them
    std::shared_ptr<const gcs::CSDef> coordinateSystem;  // null: not an Earth system
    std::optional<ObjectCounts> counts;                  // with `count` only
};

// Asks the module's slots 7 and 8, reads the names and the system that an import begins with, and
// counts in a whole import when asked to. Throws Failure.
FileFacts CollectFacts(const std::filesystem::path& path, const SourceOptions& options, bool count,
                       Reporter& reporter);

}  // namespace app
