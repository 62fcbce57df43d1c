#include "app/formats/gpkg/LayerTable.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <limits>
#include <type_traits>
#include <utility>

namespace app {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr shr::Box2d kEmptyBox{kInfinity, kInfinity, -kInfinity, -kInfinity};

std::string SqlType(const LayerColumn& column) {
    switch (column.kind) {
    case ColumnKind::Integer:
    case ColumnKind::LargeInt:
        return "INTEGER";
    case ColumnKind::SmallInt:
        return "SMALLINT";
    case ColumnKind::Decimal:
    case ColumnKind::Float:
        return "DOUBLE";
    case ColumnKind::Date:
        return "DATE";
    case ColumnKind::DateTime:
        return "DATETIME";
    case ColumnKind::Logical:
        return "BOOLEAN";
    case ColumnKind::Char:
        return column.width > 0 ? "TEXT(" + std::to_string(column.width) + ")" : "TEXT";
    case ColumnKind::Time:
    case ColumnKind::Other:
        break;
    }
    return "TEXT";
}

std::string_view BlobArgument(sqlite3_value* value) {
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
    return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void PromoteInSql(sqlite3_context* context, int, sqlite3_value** arguments) {
    const std::string blob = PromotedToMulti(BlobArgument(arguments[0]));
    sqlite3_result_blob64(context, blob.data(), blob.size(), SQLITE_TRANSIENT);
}

std::string Number(double value) {
    std::array<char, 40> text{};
    sqlite3_snprintf(static_cast<int>(text.size()), text.data(), "%!.17g", value);
    return text.data();
}

}  // namespace

LayerTable::LayerTable(SqliteDatabase& database, std::string name,
                       const std::vector<LayerColumn>& columns, std::int32_t srsId, bool withStyles)
    : database_(database), name_(std::move(name)), srsId_(srsId), geometry_(srsId),
      extent_(kEmptyBox) {
    // The layer's columns keep their names where they can; key and geometry get what is left.
    for (std::size_t i = 0; i < columns.size(); ++i) {
        columns_.push_back(
            {names_.Take(columns[i].name, "column_" + std::to_string(i + 1)), columns[i], 0});
    }
    key_ = names_.Take("fid", "fid");
    geometryColumn_ = names_.Take("geom", "geom");
    std::string sql = "CREATE TABLE " + QuotedName(name_) + " (" + QuotedName(key_) +
                      " INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, " +
                      QuotedName(geometryColumn_) + " GEOMETRY";
    for (const TableColumn& column : columns_) {
        sql += ", " + QuotedName(column.name) + " " + SqlType(column.source);
    }
    if (withStyles) {
        styles_.emplace();
        styleColumn_ = names_.Take("style", "style");
        sql += ", " + QuotedName(styleColumn_) + " INTEGER";
    }
    database_.Execute(sql + ")");
    index_.emplace(database_, name_, geometryColumn_, key_);
    PrepareInsert();
}

void LayerTable::PrepareInsert() {
    const std::size_t count = 2 + columns_.size() + (styles_ ? 1 : 0) + textColumns_.size();
    std::string sql = "INSERT INTO " + QuotedName(name_) + " VALUES (?";
    for (std::size_t i = 1; i < count; ++i) {
        sql += ", ?";
    }
    insert_.emplace(database_, sql + ")");
    binding_.Prepare(count);
}

void LayerTable::AddTextColumns() {
    insert_.reset();
    for (const PlacementColumn& column : kPlacementColumns) {
        textColumns_.push_back(names_.Take(column.name, column.name));
        database_.Execute("ALTER TABLE " + QuotedName(name_) + " ADD COLUMN " +
                          QuotedName(textColumns_.back()) + " " + column.sqlType);
    }
    PrepareInsert();
}

void LayerTable::Write(const Feature& feature) {
    const bool isText = feature.geometry.kind == GeometryKind::Text;
    if (isText && textColumns_.empty()) {
        AddTextColumns();
    }
    const auto row = static_cast<std::int64_t>(++summary_.written);
    binding_.BeginRow();
    insert_->BindWhole(1, row);
    if (geometry_.Build(feature)) {
        insert_->BindBlob(2, geometry_.Blob());
        index_->Add(row, geometry_.Box());
        extent_ = Union(extent_, geometry_.Box());
        types_.insert(geometry_.Type());
    } else {
        insert_->BindNull(2);
        summary_.withoutGeometry += feature.geometry.kind == GeometryKind::None ? 0 : 1;
    }
    int parameter = 3;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        binding_.BindValue(*insert_, parameter++, columns_[i],
                           i < feature.values.size() ? feature.values[i] : Value());
    }
    if (styles_) {
        const std::optional<std::int64_t> number = styles_->NumberOf(feature);
        number ? insert_->BindWhole(parameter, *number) : insert_->BindNull(parameter);
        ++parameter;
    }
    if (!textColumns_.empty()) {
        binding_.BindPlacement(*insert_, parameter, feature.geometry);
    }
    static_cast<void>(insert_->Step());  // an insertion has no rows
}

// Returns the one type of all geometries: a type alone, or the collecting type when there is also
// the type that it collects; Geometry for other mixtures.
GeometryType LayerTable::UnifiedType() {
    if (types_.size() == 1) {
        return *types_.begin();
    }
    if (types_.size() != 2 || MultiOf(*types_.begin()) != *types_.rbegin()) {
        return GeometryType::Geometry;
    }
    sqlite3_create_function_v2(database_.Handle(), "qolf_multi", 1, SQLITE_UTF8, nullptr,
                               PromoteInSql, nullptr, nullptr, nullptr);
    database_.Execute("UPDATE " + QuotedName(name_) + " SET " + QuotedName(geometryColumn_) +
                      " = qolf_multi(" + QuotedName(geometryColumn_) + ") WHERE " +
                      QuotedName(geometryColumn_) + " NOT NULL");
    return *types_.rbegin();
}

void LayerTable::Register(GeometryType type) {
    // The column was declared before its type was known, and there is no statement that changes a
    // declaration. The old one was written by the constructor and is found by its form.
    const std::string column = QuotedName(geometryColumn_) + " ";
    database_.Execute("PRAGMA writable_schema = ON");
    database_.Execute("UPDATE sqlite_schema SET sql = replace(sql, " +
                      QuotedText(column + "GEOMETRY") + ", " +
                      QuotedText(column + GeometryTypeName(type)) +
                      ") WHERE type = 'table' AND name = " + QuotedText(name_));
    database_.Execute("PRAGMA writable_schema = OFF");
    const bool isEmpty = extent_.IsEmpty();
    const auto bound = [&](double value) { return isEmpty ? std::string("NULL") : Number(value); };
    const std::string id = std::to_string(srsId_);
    database_.Execute(
        "INSERT INTO gpkg_contents (table_name, data_type, identifier, min_x, min_y, "
        "max_x, max_y, srs_id) VALUES (" +
        QuotedText(name_) + ", 'features', (SELECT " + QuotedText(name_) +
        " WHERE NOT EXISTS (SELECT 1 FROM gpkg_contents WHERE identifier = " + QuotedText(name_) +
        ")), " + bound(extent_.minX) + ", " + bound(extent_.minY) + ", " + bound(extent_.maxX) +
        ", " + bound(extent_.maxY) + ", " + id + ")");
    database_.Execute("INSERT INTO gpkg_geometry_columns VALUES (" + QuotedText(name_) + ", " +
                      QuotedText(geometryColumn_) + ", '" + GeometryTypeName(type) + "', " + id +
                      ", 0, 0)");
}

LayerSummary LayerTable::Finish() {
    insert_.reset();
    Register(UnifiedType());
    index_->Finish();
    for (const TableColumn& column : columns_) {
        if (column.mismatchCount > 0) {
            summary_.mismatches.push_back({column.name, column.mismatchCount});
        }
    }
    summary_.replacedStyles = styles_ ? styles_->Replaced() : 0;
    return summary_;
}

StyledColumns LayerTable::StyleColumns() const {
    StyledColumns columns;
    columns.style = styleColumn_;
    if (!textColumns_.empty()) {
        columns.text = textColumns_[0];
        columns.angle = textColumns_[1];
        columns.height = textColumns_[2];
    }
    return columns;
}

}  // namespace app
