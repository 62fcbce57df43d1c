// A layer that a package has already, and that gets more rows.
#pragma once

#include "app/feature/LayerFacts.h"
#include "app/formats/gpkg/FeatureBlob.h"
#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/formats/gpkg/LayerTable.h"
#include "app/formats/gpkg/RowBinding.h"
#include "app/sqlite/Sqlite.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace app {

class ExistingLayer {
public:
    // Prepares rows of features as `facts` describes them. The triggers that programs put on tables
    // keep the index up to date; RegisterBlobFunctions must have been called. The database must
    // outlive the object. Throws Failure, with `subject`, when a column of the features is not in
    // the layer or has values that the layer's column can't hold, and when the coordinate systems
    // differ.
    ExistingLayer(SqliteDatabase& database, PackageLayer layer, const LayerFacts& facts,
                  std::string subject);

    // Adds a row. Curves must have become lines and regions (FlattenCurves). Throws Failure, also
    // for a geometry of a type that the layer does not hold.
    void Write(const Feature& feature);

    // Completes the layer: its extent, and the time of its last change.
    LayerSummary Finish();

private:
    void TakeColumns(const std::vector<LayerColumn>& columns);
    void CheckValuesOfOthers();
    void CheckSystem(const LayerFacts& facts) const;
    bool IsTaken(const std::string& name) const;
    bool HasStyles();
    void FindPlacement();
    void PrepareInsert();
    void BindGeometry(const Feature& feature);
    void BindPlacement(const Feature& feature);
    [[noreturn]] void Fail(const std::string& problem) const;

    SqliteDatabase& database_;
    PackageLayer layer_;
    std::string subject_;
    std::vector<TableColumn> columns_;    // those of the features, in their order
    std::vector<std::string> placement_;  // text, angle, height, font, justify; empty: not there
    std::optional<SqliteStatement> insert_;
    RowBinding binding_;
    FeatureBlob geometry_;  // of the row under way
    std::string promoted_;  // the same as a collecting type
    shr::Box2d extent_;     // of the new rows; empty until a geometry has come
    LayerSummary summary_;
};

}  // namespace app
