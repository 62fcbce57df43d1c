// Reads the feature layers of a GeoPackage.
#pragma once

#include "app/feature/Source.h"
#include "app/formats/gpkg/SpatialReference.h"
#include "app/sqlite/Sqlite.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace app {

// A table of features.
struct PackageLayer {
    std::string name;
    std::string geometryColumn;
    std::vector<LayerColumn> columns;  // neither the key nor the geometry
    SpatialReference reference;
    std::string geometryType = {};  // "GEOMETRY", "MULTIPOINT", ...
    bool needsHeights = false;      // each position must have a z
    bool isView = false;            // no rows can be added
    std::int32_t srsId = -1;        // the package's own number of the system
    std::uint64_t rowCount = 0;
};

class GeoPackageReader : public Source {
public:
    // Throws Failure when the file can't be read or is not a GeoPackage. `onDamage` is that of
    // SourceOptions.
    explicit GeoPackageReader(const std::filesystem::path& path, DamageSink onDamage = {});

    // The feature layers in the order of the file.
    const std::vector<PackageLayer>& Layers() const { return layers_; }

    std::vector<std::string> LayerNames() const override;

    LayerFacts Begin(std::size_t layer, Reporter& reporter) override;

    // Hands over one feature for each row, also for rows without a geometry.
    void Read(Reporter& reporter, const FeatureSink& sink) override;

private:
    void ReadLayers();
    void ReadColumns(PackageLayer& layer);
    SpatialReference ReferenceFor(std::int64_t id);
    void ReadGeometry(const SqliteStatement& row, Feature& feature) const;
    void ReportDamage(const SqliteStatement& row, int index, const LayerColumn& column,
                      std::uint64_t number) const;
    [[noreturn]] void Fail(const std::string& problem) const;

    DamageSink onDamage_;
    SqliteDatabase database_;
    std::vector<PackageLayer> layers_;
    const PackageLayer* begun_ = nullptr;  // in layers_; null before the first Begin
};

}  // namespace app
