#include "app/formats/gpkg/PackageSchema.h"

#include "app/formats/gpkg/SpatialReference.h"

#include <string>

namespace app {
namespace {

constexpr const char* kTables = R"(
CREATE TABLE gpkg_spatial_ref_sys (
  srs_name TEXT NOT NULL,
  srs_id INTEGER NOT NULL PRIMARY KEY,
  organization TEXT NOT NULL,
  organization_coordsys_id INTEGER NOT NULL,
  definition TEXT NOT NULL,
  description TEXT);

CREATE TABLE gpkg_contents (
  table_name TEXT NOT NULL PRIMARY KEY,
  data_type TEXT NOT NULL,
  identifier TEXT UNIQUE,
  description TEXT DEFAULT '',
  last_change DATETIME NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')),
  min_x DOUBLE,
  min_y DOUBLE,
  max_x DOUBLE,
  max_y DOUBLE,
  srs_id INTEGER,
  CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));

CREATE TABLE gpkg_geometry_columns (
  table_name TEXT NOT NULL,
  column_name TEXT NOT NULL,
  geometry_type_name TEXT NOT NULL,
  srs_id INTEGER NOT NULL,
  z TINYINT NOT NULL,
  m TINYINT NOT NULL,
  CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name),
  CONSTRAINT uk_gc_table_name UNIQUE (table_name),
  CONSTRAINT fk_gc_tn FOREIGN KEY (table_name) REFERENCES gpkg_contents(table_name),
  CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));

INSERT INTO gpkg_spatial_ref_sys VALUES
  ('Undefined cartesian SRS', -1, 'NONE', -1, 'undefined',
   'undefined cartesian coordinate reference system'),
  ('Undefined geographic SRS', 0, 'NONE', 0, 'undefined',
   'undefined geographic coordinate reference system');
)";

constexpr const char* kExtensions = R"(
CREATE TABLE IF NOT EXISTS gpkg_extensions (
  table_name TEXT,
  column_name TEXT,
  extension_name TEXT NOT NULL,
  definition TEXT NOT NULL,
  scope TEXT NOT NULL,
  CONSTRAINT ge_tce UNIQUE (table_name, column_name, extension_name));
)";

}  // namespace

void CreatePackageTables(SqliteDatabase& database) {
    database.Execute("PRAGMA application_id = " + std::to_string(kApplicationId));
    database.Execute("PRAGMA user_version = " + std::to_string(kUserVersion));
    database.Execute(kTables);
    CompletePackageTables(database);
    const SpatialReference wgs84 = Wgs84Reference();
    database.Execute("INSERT INTO gpkg_spatial_ref_sys VALUES (" + QuotedText(wgs84.name) + ", " +
                     std::to_string(wgs84.code) + ", " + QuotedText(wgs84.organization) + ", " +
                     std::to_string(wgs84.code) + ", " + QuotedText(wgs84.definition) + ", " +
                     QuotedText(wgs84.description) + ")");
}

void CompletePackageTables(SqliteDatabase& database) {
    database.Execute(kExtensions);
}

}  // namespace app
