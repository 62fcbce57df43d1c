// The functions of SQL that the triggers of a GeoPackage's spatial index call.
#pragma once

#include "app/sqlite/Sqlite.h"

namespace app {

// Makes ST_MinX, ST_MaxX, ST_MinY, ST_MaxY and ST_IsEmpty known. They are null for what is no
// geometry. The database keeps them until it is closed.
void RegisterBlobFunctions(SqliteDatabase& database);

}  // namespace app
