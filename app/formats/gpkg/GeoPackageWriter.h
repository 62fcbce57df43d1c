// Writes layers of features into a GeoPackage: a new one, or one that is there already.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Target.h"
#include "app/formats/gpkg/ExistingLayer.h"
#include "app/formats/gpkg/LayerTable.h"
#include "app/formats/gpkg/PackageCopy.h"
#include "app/formats/gpkg/SpatialReference.h"
#include "app/formats/gpkg/StyleTable.h"
#include "app/sqlite/Sqlite.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace app {

// Writes one layer after another, in one transaction. The file appears under its name when Finish
// has returned; without Finish nothing is left behind.
class GeoPackageWriter : public Target {
public:
    // reporter must outlive the writer. With `isAppended` a package that is there already gets more
    // layers, and layers of it more rows: a copy does, which takes its place in the end. Other
    // programs can read it meanwhile, and can't write. Throws Failure.
    GeoPackageWriter(const std::filesystem::path& path, IfExists ifExists, bool withStyles,
                     Reporter& reporter, bool isAppended = false);

    // Ends the layer before and begins one. The name that is wanted is changed, with a note, when
    // it can't be a table's, or is taken; in a package that was there before, a layer of this name
    // gets more rows.
    void BeginLayer(const LayerFacts& layer) override;

    // The same with a system in the package's own terms.
    void BeginLayer(const std::string& wantedName, const std::vector<LayerColumn>& columns,
                    const SpatialReference& reference);

    // Adds a feature to the layer that was begun last.
    void Write(Feature& feature) override;

    // Ends the last layer, completes the file and moves it into place. Never false.
    bool Finish() override;

private:
    bool BeginExisting(const LayerFacts& layer);
    void EndLayer();
    void SaySummary(const LayerSummary& summary);
    std::int32_t IdOf(const SpatialReference& reference);

    Reporter& reporter_;
    std::string subject_;
    OutputFile output_;
    std::optional<PackageCopy> original_;  // the package that is extended; absent for a new one
    SqliteDatabase database_;
    bool withStyles_;
    StyleTable styles_;
    std::size_t layerCount_ = 0;
    UniqueNames names_;
    std::string layerName_;
    std::optional<LayerTable> layer_;
    std::optional<ExistingLayer> existing_;  // in place of layer_
    std::set<std::string> extended_;         // names of the layers that have got rows
};

}  // namespace app
