#include "app/formats/gpkg/GeoPackageReader.h"

#include "app/base/Counted.h"
#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/Utf8.h"
#include "app/formats/gpkg/BlobReader.h"
#include "app/formats/gpkg/Names.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <utility>

namespace app {
namespace {

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
}

struct SqlTypeRow {
    std::string_view name;
    ColumnKind kind;
};
constexpr SqlTypeRow kSqlTypes[] = {
    {"BOOLEAN", ColumnKind::Logical},   {"TINYINT", ColumnKind::SmallInt},
    {"SMALLINT", ColumnKind::SmallInt}, {"MEDIUMINT", ColumnKind::Integer},
    {"INT", ColumnKind::LargeInt},      {"INTEGER", ColumnKind::LargeInt},
    {"FLOAT", ColumnKind::Float},       {"DOUBLE", ColumnKind::Float},
    {"REAL", ColumnKind::Float},        {"DATE", ColumnKind::Date},
    {"DATETIME", ColumnKind::DateTime},
};

// "TEXT(20)" becomes Char with a width. Types that the table does not have become Char without one.
LayerColumn ColumnOf(std::string name, std::string_view sqlType) {
    LayerColumn column;
    column.name = std::move(name);
    const std::size_t bracket = sqlType.find('(');
    const std::string type = Upper(sqlType.substr(0, bracket));
    for (const SqlTypeRow& row : kSqlTypes) {
        if (row.name == type) {
            column.kind = row.kind;
            return column;
        }
    }
    if (type == "TEXT" && bracket != std::string_view::npos) {
        std::from_chars(sqlType.data() + bracket + 1, sqlType.data() + sqlType.size(),
                        column.width);
    }
    return column;
}

Value ValueOf(const SqliteStatement& row, int index, const LayerColumn& column) {
    switch (row.Type(index)) {
    case SQLITE_INTEGER:
        if (column.kind == ColumnKind::Logical) {
            return row.Whole(index) != 0;
        }
        return row.Whole(index);
    case SQLITE_FLOAT:
        return row.Real(index);
    case SQLITE_TEXT: {
        std::string text = CleanText(std::string(row.Text(index)));
        if (column.kind == ColumnKind::DateTime && text.ends_with('Z')) {
            text.pop_back();
        }
        return text;
    }
    default:
        return std::monostate();  // and blobs, which no other format has
    }
}

}  // namespace

GeoPackageReader::GeoPackageReader(const std::filesystem::path& path, DamageSink onDamage)
    : Source(PathText(path)), onDamage_(std::move(onDamage)),
      database_(path, SqliteDatabase::Mode::Read, Name()) {
    ReadLayers();
}

void GeoPackageReader::Fail(const std::string& problem) const {
    throw Failure(database_.Subject() + ": " + problem);
}

void GeoPackageReader::ReadLayers() {
    SqliteStatement tables(database_, "SELECT count(*) FROM sqlite_schema WHERE name IN "
                                      "('gpkg_contents', 'gpkg_geometry_columns')");
    if (!tables.Step() || tables.Whole(0) != 2) {
        Fail("is a database, but no GeoPackage with features: it has no table "
             "gpkg_geometry_columns");
    }
    SqliteStatement rows(
        database_,
        "SELECT c.table_name, g.column_name, g.srs_id, g.geometry_type_name, g.z, "
        "(SELECT type FROM sqlite_schema WHERE name = c.table_name) FROM gpkg_contents c "
        "JOIN gpkg_geometry_columns g ON g.table_name = c.table_name "
        "WHERE c.data_type = 'features' ORDER BY c.rowid");
    while (rows.Step()) {
        PackageLayer layer;
        layer.name = rows.Text(0);
        layer.geometryColumn = rows.Text(1);
        layer.srsId = static_cast<std::int32_t>(rows.Whole(2));
        layer.reference = ReferenceFor(rows.Whole(2));
        layer.geometryType = Upper(rows.Text(3));
        layer.needsHeights = rows.Whole(4) == 1;
        layer.isView = rows.Text(5) == "view";
        ReadColumns(layer);
        SqliteStatement count(database_, "SELECT count(*) FROM " + QuotedName(layer.name));
        count.Step();
        layer.rowCount = static_cast<std::uint64_t>(count.Whole(0));
        layers_.push_back(std::move(layer));
    }
}

void GeoPackageReader::ReadColumns(PackageLayer& layer) {
    SqliteStatement rows(database_, "SELECT name, type, pk FROM pragma_table_info(?)");
    rows.BindText(1, layer.name);
    bool hasGeometry = false;
    while (rows.Step()) {
        if (Upper(rows.Text(0)) == Upper(layer.geometryColumn)) {
            hasGeometry = true;
        } else if (rows.Whole(2) == 0) {
            layer.columns.push_back(ColumnOf(std::string(rows.Text(0)), rows.Text(1)));
        }
    }
    if (!hasGeometry) {
        Fail("the layer " + CleanText(layer.name) + " has no column " +
             CleanText(layer.geometryColumn));
    }
}

SpatialReference GeoPackageReader::ReferenceFor(std::int64_t id) {
    SqliteStatement row(database_, "SELECT srs_name, organization, organization_coordsys_id, "
                                   "definition FROM gpkg_spatial_ref_sys WHERE srs_id = ?");
    row.BindWhole(1, id);
    SpatialReference reference;
    if (id <= 0 || !row.Step()) {
        return reference;
    }
    reference.name = row.Text(0);
    reference.organization = Upper(row.Text(1));
    reference.code = static_cast<std::int32_t>(row.Whole(2));
    reference.definition = row.Text(3);
    return reference;
}

std::vector<std::string> GeoPackageReader::LayerNames() const {
    std::vector<std::string> names;
    for (const PackageLayer& layer : layers_) {
        names.push_back(CleanText(layer.name));
    }
    return names;
}

LayerFacts GeoPackageReader::Begin(std::size_t layer, Reporter& /*reporter*/) {
    begun_ = &layers_.at(layer);
    LayerFacts facts;
    facts.name = begun_->name;
    facts.columns = begun_->columns;
    facts.system = SystemOf(begun_->reference);
    return facts;
}

void GeoPackageReader::Read(Reporter& /*reporter*/, const FeatureSink& sink) {
    const PackageLayer& layer = *begun_;
    std::string sql = "SELECT " + QuotedName(layer.geometryColumn);
    for (const LayerColumn& column : layer.columns) {
        sql += ", " + QuotedName(column.name);
    }
    SqliteStatement rows(database_, sql + " FROM " + QuotedName(layer.name));
    Feature feature;
    while (rows.Step()) {
        ++feature.number;
        ReadGeometry(rows, feature);
        feature.values.clear();
        for (std::size_t i = 0; i < layer.columns.size(); ++i) {
            const int index = static_cast<int>(i) + 1;
            feature.values.push_back(ValueOf(rows, index, layer.columns[i]));
            if (onDamage_) {
                ReportDamage(rows, index, layer.columns[i], feature.number);
            }
        }
        if (!sink(feature)) {
            return;
        }
    }
}

// Of a value whose bytes are not what the column is read as.
void GeoPackageReader::ReportDamage(const SqliteStatement& row, int index,
                                    const LayerColumn& column, std::uint64_t number) const {
    const std::string name = CleanText(column.name);
    if (row.Type(index) == SQLITE_BLOB) {
        onDamage_({number, DamageKind::Bytes,
                   "the value of " + name + " is " +
                       Counted(row.Blob(index).size(), "byte", "bytes") +
                       " that are neither text nor number"});
    } else if (row.Type(index) == SQLITE_TEXT && !IsUtf8(row.Text(index))) {
        onDamage_({number, DamageKind::Text,
                   "the value '" + CleanText(std::string(row.Text(index))) + "' of " + name +
                       " is not UTF-8"});
    }
}

void GeoPackageReader::ReadGeometry(const SqliteStatement& row, Feature& feature) const {
    if (row.Type(0) == SQLITE_NULL) {
        feature.geometry = {};
        feature.members.clear();
        return;
    }
    try {
        ReadBlob(row.Blob(0), feature);
    } catch (const BlobError& error) {
        if (onDamage_) {
            onDamage_({feature.number, DamageKind::Geometry, error.what()});
            feature.geometry = {};
            feature.members.clear();
            return;
        }
        Fail("layer " + CleanText(begun_->name) + ", row " + std::to_string(feature.number) + ": " +
             error.what());
    }
}

}  // namespace app
