// The table of a GeoPackage in which QGIS finds the styles of its layers.
#pragma once

#include "app/formats/gpkg/LayerTable.h"
#include "app/sqlite/Sqlite.h"

#include <cstddef>
#include <string>

namespace app {

class StyleTable {
public:
    explicit StyleTable(SqliteDatabase& database) : database_(database) {}

    // Adds the style of a finished layer, as its default. Makes the table before the first one. The
    // layer's number, from 0, chooses the colours of what has no style of its own. Throws Failure.
    void Add(const LayerTable& layer, const std::string& layerName, std::size_t number);

private:
    void Create();

    SqliteDatabase& database_;
    bool isCreated_ = false;
};

}  // namespace app
