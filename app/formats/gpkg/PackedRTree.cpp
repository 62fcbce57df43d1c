#include "app/formats/gpkg/PackedRTree.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace app {
namespace {

constexpr std::int64_t kRoot = 1;
constexpr std::size_t kNodeHeaderBytes =
    4;                                  // the depth, which only the root has, and the cell count
constexpr std::size_t kCellBytes = 24;  // the id and four floats
constexpr float kFloatInfinity = std::numeric_limits<float>::infinity();

// Return the largest float that is not above the number, and the smallest that is not below.
float RoundedDown(double value) {
    const auto rounded = static_cast<float>(value);
    return rounded > value ? std::nextafter(rounded, -kFloatInfinity) : rounded;
}

float RoundedUp(double value) {
    const auto rounded = static_cast<float>(value);
    return rounded < value ? std::nextafter(rounded, kFloatInfinity) : rounded;
}

template <typename Whole> void AppendBigEndian(std::string& bytes, Whole value) {
    for (std::size_t i = sizeof value; i-- > 0;) {
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    }
}

void AppendFloat(std::string& bytes, float value) {
    AppendBigEndian(bytes, std::bit_cast<std::uint32_t>(value));
}

// SQLite has chosen the size of the nodes by that of its pages: the empty root has that size.
std::size_t NodeBytes(SqliteDatabase& database, const std::string& name) {
    SqliteStatement size(database, "SELECT length(data) FROM " + QuotedName(name + "_node"));
    static_cast<void>(size.Step());  // there is always the root
    return static_cast<std::size_t>(size.Whole(0));
}

}  // namespace

PackedRTree::PackedRTree(SqliteDatabase& database, const std::string& name)
    : nodeBytes_(NodeBytes(database, name)),
      mostCells_((nodeBytes_ - kNodeHeaderBytes) / kCellBytes),
      insertNode_(database, "INSERT OR REPLACE INTO " + QuotedName(name + "_node") +
                                " (nodeno, data) VALUES (?, ?)"),
      insertRow_(database,
                 "INSERT INTO " + QuotedName(name + "_rowid") + " (rowid, nodeno) VALUES (?, ?)"),
      insertParent_(database, "INSERT INTO " + QuotedName(name + "_parent") +
                                  " (nodeno, parentnode) VALUES (?, ?)") {}

void PackedRTree::Add(std::int64_t row, const shr::Box2d& box) {
    Put(0, {row, Around(box)});
}

void PackedRTree::Finish() {
    // Closing a node adds a cell to the level above, which may be new.
    for (std::size_t level = 0; level + 1 < levels_.size(); ++level) {
        CloseNode(level);
    }
    if (!levels_.empty()) {
        const std::size_t top = levels_.size() - 1;
        WriteNode(top, kRoot, static_cast<std::uint16_t>(top));
    }
}

PackedRTree::Bounds PackedRTree::Around(const shr::Box2d& box) {
    return {RoundedDown(box.minX), RoundedUp(box.maxX), RoundedDown(box.minY), RoundedUp(box.maxY)};
}

PackedRTree::Bounds PackedRTree::Around(const std::vector<Cell>& cells) {
    Bounds all{kFloatInfinity, -kFloatInfinity, kFloatInfinity, -kFloatInfinity};
    for (const Cell& cell : cells) {
        all = {std::min(all.minX, cell.bounds.minX), std::max(all.maxX, cell.bounds.maxX),
               std::min(all.minY, cell.bounds.minY), std::max(all.maxY, cell.bounds.maxY)};
    }
    return all;
}

// A full node is closed when the next cell comes, so a level above never holds a single node.
void PackedRTree::Put(std::size_t level, const Cell& cell) {
    if (level == levels_.size()) {
        levels_.emplace_back();
        levels_.back().reserve(mostCells_);
    }
    if (levels_[level].size() == mostCells_) {
        CloseNode(level);
    }
    levels_[level].push_back(cell);
}

void PackedRTree::CloseNode(std::size_t level) {
    const std::int64_t number = nextNumber_++;
    WriteNode(level, number, 0);
    const Bounds bounds = Around(levels_[level]);
    levels_[level].clear();
    Put(level + 1, {number, bounds});
}

void PackedRTree::WriteNode(std::size_t level, std::int64_t number, std::uint16_t depth) {
    SqliteStatement& insertPlace = level == 0 ? insertRow_ : insertParent_;
    bytes_.clear();
    AppendBigEndian(bytes_, depth);
    AppendBigEndian(bytes_, static_cast<std::uint16_t>(levels_[level].size()));
    for (const Cell& cell : levels_[level]) {
        AppendBigEndian(bytes_, static_cast<std::uint64_t>(cell.id));
        AppendFloat(bytes_, cell.bounds.minX);
        AppendFloat(bytes_, cell.bounds.maxX);
        AppendFloat(bytes_, cell.bounds.minY);
        AppendFloat(bytes_, cell.bounds.maxY);
        insertPlace.BindWhole(1, cell.id);
        insertPlace.BindWhole(2, number);
        static_cast<void>(insertPlace.Step());  // an insertion has no rows
    }
    bytes_.resize(nodeBytes_, '\0');
    insertNode_.BindWhole(1, number);
    insertNode_.BindBlob(2, bytes_);
    static_cast<void>(insertNode_.Step());
}

}  // namespace app
