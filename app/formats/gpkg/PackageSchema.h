// The tables that every GeoPackage has, and the marks that make a file one.
#pragma once

#include "app/sqlite/Sqlite.h"

namespace app {

constexpr int kApplicationId = 0x47504B47;  // "GPKG"
constexpr int kUserVersion = 10300;         // 1.3.0

// Sets the marks of a new file and makes its tables: coordinate systems with the three rows that
// every package has, contents, geometry columns, extensions. Throws Failure.
void CreatePackageTables(SqliteDatabase& database);

// Makes the table of extensions in a package of another program that has none. Throws Failure.
void CompletePackageTables(SqliteDatabase& database);

}  // namespace app
