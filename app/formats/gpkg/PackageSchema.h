// The tables that every GeoPackage has, and what tells programs that a file is one.
#pragma once

#include "app/formats/gpkg/Sqlite.h"

namespace app {

constexpr int kApplicationId = 0x47504B47;  // "GPKG"
constexpr int kUserVersion = 10300;         // 1.3.0

// Sets the file's marks and makes the tables of systems (with the three that must be there), of
// contents, of geometry columns and of extensions.
void CreatePackageTables(SqliteDatabase& database);

}  // namespace app
