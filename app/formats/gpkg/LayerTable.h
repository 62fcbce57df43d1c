// One layer on its way into a GeoPackage: its table, its geometries and its index.
#pragma once

#include "app/feature/Feature.h"
#include "app/formats/gpkg/FeatureBlob.h"
#include "app/formats/gpkg/GeometryType.h"
#include "app/formats/gpkg/LayerStyles.h"
#include "app/formats/gpkg/Names.h"
#include "app/formats/gpkg/RowBinding.h"
#include "app/formats/gpkg/SpatialIndex.h"
#include "app/formats/gpkg/StyleDocuments.h"
#include "app/sqlite/Sqlite.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace app {

// What a user should know once a layer is complete.
struct LayerSummary {
    std::uint64_t written = 0;
    // Features whose geometry could not be written: coordinates that are not finite numbers,
    // regions that enclose nothing. Features that had no geometry to begin with are not counted.
    std::uint64_t withoutGeometry = 0;

    // A column with values that do not have its type. They were kept as texts.
    struct Mismatch {
        std::string column;
        std::uint64_t count = 0;
    };
    std::vector<Mismatch> mismatches;

    // With styles: the features whose style got another one's number (LayerStyles).
    std::uint64_t replacedStyles = 0;

    // Rows that were added to a layer with styles, and that have none.
    std::uint64_t unstyled = 0;
};

class LayerTable {
public:
    // Makes the table `name`; with styles it has a column for the number of each feature's style.
    // The database must outlive the object. Throws Failure, as all operations do.
    LayerTable(SqliteDatabase& database, std::string name, const std::vector<LayerColumn>& columns,
               std::int32_t srsId, bool withStyles);

    // Adds a row. Rectangles and ellipses must have become regions (FlattenCurves).
    void Write(const Feature& feature);

    // Completes the layer: declares the type of its geometries, registers the table and finishes
    // the index. When there are points and multi-points (or lines, or polygons) and nothing else,
    // the single ones become multi-geometries first, so that one type fits all.
    LayerSummary Finish();

    // Once finished, what a style needs to know. `Styles` is absent without styles.
    const std::optional<LayerStyles>& Styles() const { return styles_; }
    StyledColumns StyleColumns() const;
    const std::string& GeometryColumn() const { return geometryColumn_; }

private:
    void PrepareInsert();
    void AddTextColumns();
    GeometryType UnifiedType();
    void Register(GeometryType type);

    SqliteDatabase& database_;
    std::string name_;
    std::int32_t srsId_;
    UniqueNames names_;
    std::string key_;
    std::string geometryColumn_;
    std::vector<TableColumn> columns_;
    std::optional<LayerStyles> styles_;
    std::string styleColumn_;               // "" without styles
    std::vector<std::string> textColumns_;  // empty until the first text has come
    std::optional<SqliteStatement> insert_;
    std::optional<SpatialIndex> index_;
    FeatureBlob geometry_;  // of the row under way
    shr::Box2d extent_;     // empty until a geometry has come
    std::set<GeometryType> types_;
    RowBinding binding_;
    LayerSummary summary_;
};

}  // namespace app
