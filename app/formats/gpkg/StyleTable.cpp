#include "app/formats/gpkg/StyleTable.h"

#include "app/formats/gpkg/StyleDocuments.h"

#include <utility>

namespace app {
namespace {

// The form that QGIS gives it.
constexpr const char* kTable = R"(
CREATE TABLE layer_styles (
  id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  f_table_catalog TEXT(256),
  f_table_schema TEXT(256),
  f_table_name TEXT(256),
  f_geometry_column TEXT(256),
  styleName TEXT(30),
  styleQML TEXT,
  styleSLD TEXT,
  useAsDefault BOOLEAN,
  description TEXT,
  owner TEXT(30),
  ui TEXT(30),
  update_time DATETIME DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')));

INSERT INTO gpkg_contents (table_name, data_type, identifier, description, srs_id)
  VALUES ('layer_styles', 'attributes', 'layer_styles', '', 0);
)";

}  // namespace

void StyleTable::Create() {
    if (std::exchange(isCreated_, true)) {
        return;
    }
    SqliteStatement found(database_,
                          "SELECT count(*) FROM sqlite_schema WHERE lower(name) = 'layer_styles'");
    static_cast<void>(found.Step());
    const bool isThere = found.Whole(0) > 0;  // in a package that is extended
    found.Reset();
    if (!isThere) {
        database_.Execute(kTable);
    }
}

void StyleTable::Add(const LayerTable& layer, const std::string& layerName, std::size_t number) {
    if (!layer.Styles() || layer.Styles()->All().empty()) {
        return;
    }
    Create();
    const StyledColumns columns = layer.StyleColumns();
    const std::string qml = QmlOf(*layer.Styles(), columns, number);
    const std::string sld = SldOf(*layer.Styles(), columns, number, layerName);
    SqliteStatement insert(database_,
                           "INSERT INTO layer_styles (f_table_catalog, f_table_schema, "
                           "f_table_name, f_geometry_column, styleName, styleQML, styleSLD, "
                           "useAsDefault, description, owner) "
                           "VALUES ('', '', ?, ?, 'default', ?, ?, 1, '', '')");
    insert.BindText(1, layerName);
    insert.BindText(2, layer.GeometryColumn());
    insert.BindText(3, qml);
    insert.BindText(4, sld);
    static_cast<void>(insert.Step());  // an insertion has no rows
}

}  // namespace app
