// Fills an empty R-tree of SQLite by writing its nodes into the tables behind it, each node full
// before the next is begun. Inserting into the virtual table takes five times as long: every entry
// searches the tree for its place, and full nodes are split.
#pragma once

#include "app/sqlite/Sqlite.h"
#include "host/shr/Geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace app {

class PackedRTree {
public:
    // `name` is the unquoted name of an empty R-tree with two dimensions of 32-bit floats. Throws
    // Failure, as all operations do.
    PackedRTree(SqliteDatabase& database, const std::string& name);

    // Adds an entry. Entries that follow each other share a node, so neighbours on the map should
    // be neighbours here.
    void Add(std::int64_t row, const shr::Box2d& box);

    // Writes the last nodes. The tree must not be used before.
    void Finish();

private:
    // A box as the tree stores it.
    struct Bounds {
        float minX, maxX, minY, maxY;
    };
    struct Cell {
        std::int64_t id;  // the row, above the leaves the node
        Bounds bounds;
    };

    static Bounds Around(const shr::Box2d& box);
    static Bounds Around(const std::vector<Cell>& cells);
    void Put(std::size_t level, const Cell& cell);
    void CloseNode(std::size_t level);
    void WriteNode(std::size_t level, std::int64_t number, std::uint16_t depth);

    std::size_t nodeBytes_;
    std::size_t mostCells_;
    SqliteStatement insertNode_;
    SqliteStatement insertRow_;              // which leaf a row is in
    SqliteStatement insertParent_;           // which node a node is in
    std::int64_t nextNumber_ = 2;            // 1 is the root
    std::vector<std::vector<Cell>> levels_;  // the node that is being filled, from the leaf up
    std::string bytes_;                      // of the node that is being written
};

}  // namespace app
