// Reads the feature layers of a GeoPackage.
#pragma once

#include "app/feature/Feature.h"
#include "app/formats/gpkg/SpatialReference.h"
#include "app/formats/gpkg/Sqlite.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace app {

struct PackageLayer {
    std::string name;
    std::string geometryColumn;
    std::vector<LayerColumn> columns;  // neither the key nor the geometry
    SpatialReference reference;
    std::uint64_t rowCount = 0;
};

// What reading a layer left to say.
struct PackageReadResult {
    std::uint64_t featureCount = 0;
    std::uint64_t withoutGeometry = 0;  // rows that gave no feature: no geometry, or an empty one
};

class GeoPackageReader {
public:
    // Throws Failure when the file is none or can't be read.
    explicit GeoPackageReader(const std::filesystem::path& path);

    // The feature layers in the order of the file.
    const std::vector<PackageLayer>& Layers() const { return layers_; }

    // The layer of a name; of an empty name the only one. Throws Failure, with the names there are.
    const PackageLayer& LayerNamed(const std::string& name) const;

    // Hands every row with a geometry to sink, which may change and move the feature. A geometry of
    // several lines, or of several kinds, gives several features with the same values. Throws
    // Failure; what the sink throws passes unchanged.
    PackageReadResult Read(const PackageLayer& layer, const std::function<void(Feature&)>& sink);

private:
    void ReadLayers();
    void ReadColumns(PackageLayer& layer);
    SpatialReference ReferenceFor(std::int64_t id);
    [[noreturn]] void Fail(const std::string& problem) const;

    SqliteDatabase database_;
    std::vector<PackageLayer> layers_;
};

}  // namespace app
