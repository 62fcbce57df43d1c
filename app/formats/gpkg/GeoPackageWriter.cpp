#include "app/formats/gpkg/GeoPackageWriter.h"

#include "app/base/Counted.h"
#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/formats/gpkg/BlobFunctions.h"
#include "app/formats/gpkg/PackageSchema.h"

#include <algorithm>
#include <utility>

namespace app {
namespace {

// Lower numbers are those of registers, where other programs would look them up.
constexpr std::int32_t kFirstOwnId = 100000;

bool HasColumn(SqliteDatabase& database, const char* table, const char* column) {
    SqliteStatement find(database, "SELECT count(*) FROM pragma_table_info(?) WHERE name = ?");
    find.BindText(1, table);
    find.BindText(2, column);
    static_cast<void>(find.Step());
    return find.Whole(0) > 0;
}

std::optional<PackageCopy> CopyToExtend(const std::filesystem::path& path, bool isAppended,
                                        OutputFile& output, const std::string& subject) {
    std::error_code error;
    if (!isAppended || !std::filesystem::exists(path, error)) {
        return std::nullopt;
    }
    return std::optional<PackageCopy>(std::in_place, path, output.PathForLibrary(), subject);
}

// The id of a system in the package: of a register's by its code, of others by their definition.
std::optional<std::int32_t> KnownId(SqliteDatabase& database, const SpatialReference& reference) {
    const bool isCode = reference.organization == "EPSG";
    SqliteStatement find(database, std::string("SELECT srs_id FROM gpkg_spatial_ref_sys WHERE ") +
                                       (isCode ? "upper(organization) = 'EPSG' AND "
                                                 "organization_coordsys_id = ?"
                                               : "srs_id >= ?2 AND srs_name = ?3 AND "
                                                 "definition = ?1"));
    const std::string name = CleanText(reference.name);
    if (isCode) {
        find.BindWhole(1, reference.code);
    } else {
        find.BindText(1, reference.definition);
        find.BindWhole(2, kFirstOwnId);
        find.BindText(3, name);
    }
    if (!find.Step()) {
        return std::nullopt;
    }
    const auto id = static_cast<std::int32_t>(find.Whole(0));
    find.Reset();
    return id;
}

// An id that no system of the package has: the register's code if it can be.
std::int32_t FreeId(SqliteDatabase& database, const SpatialReference& reference) {
    SqliteStatement taken(database, "SELECT count(*) FROM gpkg_spatial_ref_sys WHERE srs_id = ?");
    taken.BindWhole(1, reference.code);
    static_cast<void>(taken.Step());
    if (reference.organization == "EPSG" && taken.Whole(0) == 0) {
        return reference.code;
    }
    SqliteStatement next(database, "SELECT max(?1, coalesce(max(srs_id), 0) + 1) "
                                   "FROM gpkg_spatial_ref_sys");
    next.BindWhole(1, kFirstOwnId);
    static_cast<void>(next.Step());
    return static_cast<std::int32_t>(next.Whole(0));
}

}  // namespace

GeoPackageWriter::GeoPackageWriter(const std::filesystem::path& path, IfExists ifExists,
                                   bool withStyles, Reporter& reporter, bool isAppended)
    : reporter_(reporter), subject_(PathText(path)),
      output_(path, isAppended ? IfExists::Overwrite : ifExists),
      original_(CopyToExtend(path, isAppended, output_, subject_)),
      database_(output_.PathForLibrary(), SqliteDatabase::Mode::Create, subject_),
      withStyles_(withStyles), styles_(database_) {
    if (original_) {
        // The schema must be trusted, although it may come from elsewhere: else SQLite keeps its
        // triggers from the spatial index. They can call no function that reads or writes files.
        database_.Execute("PRAGMA cell_size_check = ON");
        RegisterBlobFunctions(database_);
        for (const std::string& name : original_->TableNames()) {
            static_cast<void>(names_.Take(name, name));
        }
    }
    database_.Execute("BEGIN");
    if (original_) {
        CompletePackageTables(database_);
    } else {
        CreatePackageTables(database_);
    }
    if (withStyles && !(original_ && original_->HasName("layer_styles"))) {
        static_cast<void>(names_.Take("layer_styles", "layer"));  // no layer may be called so
    }
}

void GeoPackageWriter::BeginLayer(const LayerFacts& layer) {
    EndLayer();
    if (BeginExisting(layer)) {
        return;
    }
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

// False when the package had no layer of that name.
bool GeoPackageWriter::BeginExisting(const LayerFacts& layer) {
    if (!original_) {
        return false;
    }
    std::optional<PackageLayer> found = original_->FindLayer(layer.name);
    if (!found) {
        found = original_->FindLayer(TableNameFor(layer.name));
    }
    if (!found) {
        return false;
    }
    layerName_ = found->name;
    if (withStyles_) {
        throw Failure(subject_ + ": layer " + CleanText(layerName_) +
                      " is there already, and --styles is for new layers");
    }
    if (!extended_.insert(layerName_).second) {
        reporter_.Note(subject_ + ": layer " + CleanText(layerName_) +
                       " gets the objects of several inputs");
    }
    existing_.emplace(database_, std::move(*found), layer, subject_);
    return true;
}

// Returns the id of a system; a new one gets a row in the table of systems.
std::int32_t GeoPackageWriter::IdOf(const SpatialReference& reference) {
    if (reference.IsUndefined()) {
        return -1;
    }
    if (const std::optional<std::int32_t> known = KnownId(database_, reference)) {
        return *known;
    }
    const std::int32_t id = FreeId(database_, reference);
    // Packages of some programs have this column, too, and it must have a value.
    const bool hasOther = HasColumn(database_, "gpkg_spatial_ref_sys", "definition_12_063");
    SqliteStatement insert(
        database_, std::string("INSERT INTO gpkg_spatial_ref_sys (srs_name, srs_id, organization, "
                               "organization_coordsys_id, definition, description") +
                       (hasOther ? ", definition_12_063) VALUES (?, ?, ?, ?, ?, ?, 'undefined')"
                                 : ") VALUES (?, ?, ?, ?, ?, ?)"));
    const std::string name = CleanText(reference.name);
    insert.BindText(1, name);
    insert.BindWhole(2, id);
    insert.BindText(3, reference.organization);
    insert.BindWhole(4, reference.organization == "EPSG" ? reference.code : id);
    insert.BindText(5, reference.definition);
    insert.BindText(6, reference.description);
    static_cast<void>(insert.Step());  // an insertion has no rows
    return id;
}

void GeoPackageWriter::Write(Feature& feature) {
    if (existing_) {
        existing_->Write(feature);
    } else {
        layer_->Write(feature);
    }
}

void GeoPackageWriter::EndLayer() {
    if (existing_) {
        const LayerSummary summary = existing_->Finish();
        existing_.reset();
        SaySummary(summary);
    }
    if (layer_) {
        const LayerSummary summary = layer_->Finish();
        styles_.Add(*layer_, layerName_, layerCount_++);
        layer_.reset();
        SaySummary(summary);
    }
}

void GeoPackageWriter::SaySummary(const LayerSummary& summary) {
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
    if (summary.unstyled > 0) {
        reporter_.Warning(prefix + Counted(summary.unstyled, "new object has", "new objects have") +
                          " none of the layer's styles, so that a GIS may not show " +
                          (summary.unstyled == 1 ? "it" : "them"));
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
    if (original_) {
        original_->Complete(database_);
    }
    database_.Close();
    // Where it can be, the lock is kept until the package is replaced: a program that waited for it
    // then finds its file moved, and doesn't write to one that is gone.
    if (!CanReplaceOpenFiles()) {
        original_.reset();
    }
    output_.Finish();
    return true;
}

}  // namespace app
