// Writes layers of features into a new GeoPackage.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Target.h"
#include "app/formats/gpkg/LayerTable.h"
#include "app/formats/gpkg/SpatialReference.h"
#include "app/formats/gpkg/StyleTable.h"
#include "app/sqlite/Sqlite.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

// Writes one layer after another, in one transaction. The file appears under its name when Finish
// has returned; without Finish nothing is left behind.
class GeoPackageWriter : public Target {
public:
    // reporter must outlive the writer. Throws Failure.
    GeoPackageWriter(const std::filesystem::path& path, IfExists ifExists, bool withStyles,
                     Reporter& reporter);

    // Ends the layer before and begins one. The name that is wanted is changed, with a note, when
    // it can't be a table's, or is taken.
    void BeginLayer(const LayerFacts& layer) override;

    // The same with a system in the package's own terms.
    void BeginLayer(const std::string& wantedName, const std::vector<LayerColumn>& columns,
                    const SpatialReference& reference);

    // Adds a feature to the layer that was begun last.
    void Write(Feature& feature) override;

    // Ends the last layer, completes the file and moves it into place. Never false.
    bool Finish() override;

private:
    void EndLayer();
    std::int32_t IdOf(const SpatialReference& reference);

    Reporter& reporter_;
    std::string subject_;
    OutputFile output_;
    SqliteDatabase database_;
    bool withStyles_;
    StyleTable styles_;
    std::size_t layerCount_ = 0;
    UniqueNames names_;
    std::vector<SpatialReference> ownReferences_;  // those with ids of this package
    std::string layerName_;
    std::optional<LayerTable> layer_;
};

}  // namespace app
