#include "app/formats/gpkg/GeoPackageWriter.h"

#include "app/base/Counted.h"
#include "app/base/Paths.h"
#include "app/formats/gpkg/PackageSchema.h"

#include <algorithm>
#include <utility>

namespace app {
namespace {

// Lower numbers are those of registers, where other programs would look them up.
constexpr std::int32_t kFirstOwnId = 100000;

}  // namespace

GeoPackageWriter::GeoPackageWriter(const std::filesystem::path& path, IfExists ifExists,
                                   bool withStyles, Reporter& reporter)
    : reporter_(reporter), subject_(PathText(path)), output_(path, ifExists),
      database_(output_.PathForLibrary(), SqliteDatabase::Mode::Create, subject_),
      withStyles_(withStyles), styles_(database_) {
    database_.Execute("BEGIN");
    CreatePackageTables(database_);
    if (withStyles) {
        static_cast<void>(names_.Take("layer_styles", "layer"));  // no layer may be called so
    }
}

void GeoPackageWriter::BeginLayer(const LayerFacts& layer) {
    BeginLayer(layer.name, layer.columns, ReferenceOf(layer.system.get()));
}

void GeoPackageWriter::BeginLayer(const std::string& wantedName,
                                  const std::vector<LayerColumn>& columns,
                                  const SpatialReference& reference) {
    EndLayer();
    const std::string tableName = TableNameFor(wantedName);
    layerName_ = names_.Take(tableName, "layer");
    if (layerName_ != tableName) {
        reporter_.Note(subject_ + ": layer " + CleanText(tableName) + " is called " + layerName_);
    }
    layer_.emplace(database_, layerName_, columns, IdOf(reference), withStyles_);
}

// Returns the id of a system; a new one gets a row in the table of systems.
std::int32_t GeoPackageWriter::IdOf(const SpatialReference& reference) {
    if (reference.IsUndefined()) {
        return -1;
    }
    std::int32_t id = reference.code;
    if (reference.organization != "EPSG") {
        const auto known = std::find(ownReferences_.begin(), ownReferences_.end(), reference);
        id = kFirstOwnId + static_cast<std::int32_t>(known - ownReferences_.begin());
        if (known == ownReferences_.end()) {
            ownReferences_.push_back(reference);
        }
    }
    SqliteStatement insert(database_,
                           "INSERT OR IGNORE INTO gpkg_spatial_ref_sys VALUES (?, ?, ?, ?, ?, ?)");
    const std::string name = CleanText(reference.name);
    insert.BindText(1, name);
    insert.BindWhole(2, id);
    insert.BindText(3, reference.organization);
    insert.BindWhole(4, id);
    insert.BindText(5, reference.definition);
    insert.BindText(6, reference.description);
    static_cast<void>(insert.Step());  // an insertion has no rows
    return id;
}

void GeoPackageWriter::Write(Feature& feature) {
    layer_->Write(feature);
}

void GeoPackageWriter::EndLayer() {
    if (!layer_) {
        return;
    }
    const LayerSummary summary = layer_->Finish();
    styles_.Add(*layer_, layerName_, layerCount_++);
    layer_.reset();
    const std::string prefix = subject_ + ": layer " + CleanText(layerName_) + ": ";
    if (summary.withoutGeometry > 0) {
        reporter_.Warning(prefix + Counted(summary.withoutGeometry, "object has", "objects have") +
                          " coordinates that make no geometry; written without geometry");
    }
    if (summary.replacedStyles > 0) {
        reporter_.Warning(prefix + "more than " + std::to_string(LayerStyles::kMostStyles) +
                          " styles; " +
                          Counted(summary.replacedStyles, "object has", "objects have") +
                          " the first style of the kind");
    }
    for (const LayerSummary::Mismatch& mismatch : summary.mismatches) {
        reporter_.Warning(prefix + "column " + mismatch.column + ": " +
                          Counted(mismatch.count, "value does", "values do") +
                          " not fit the column's type; kept as text");
    }
}

bool GeoPackageWriter::Finish() {
    EndLayer();
    database_.Execute("COMMIT");
    database_.Close();
    output_.Finish();
    return true;
}

}  // namespace app
