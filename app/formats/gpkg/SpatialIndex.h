// The R-tree index of one geometry column, with the triggers that keep it up to date.
#pragma once

#include "app/formats/gpkg/PackedRTree.h"
#include "app/sqlite/Sqlite.h"
#include "host/shr/Geometry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

class SpatialIndex {
public:
    // Makes an empty index, without triggers, of the column `geometry` of a table whose rows are
    // numbered by the column `key`. All names are unquoted. Throws Failure, as all operations do.
    SpatialIndex(SqliteDatabase& database, std::string table, std::string geometry,
                 std::string key);

    // Adds the box of a row. Entries are held back and sorted, so that near boxes share a node.
    void Add(std::int64_t row, const shr::Box2d& box);

    // Writes the entries that are held back, makes the triggers and registers the extension.
    void Finish();

private:
    struct Entry {
        std::uint64_t place;  // along a curve through the plane: near places are near boxes
        std::int64_t row;
        shr::Box2d box;
    };

    void Flush();
    std::string Filled(std::string_view sql) const;

    SqliteDatabase& database_;
    std::string table_;
    std::string geometry_;
    std::string key_;
    PackedRTree tree_;
    std::vector<Entry> held_;
};

}  // namespace app
