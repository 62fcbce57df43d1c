#include "app/formats/gpkg/SpatialIndex.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace app {
namespace {

// Entries are sorted before they go into the tree, so that neighbours share a node. Sorting them in
// blocks of this many bounds the memory.
constexpr std::size_t kHeldEntries = std::size_t{1} << 17;

// TABLE, GEOM, KEY and INDEX are replaced by quoted names, and NAME(suffix) by the name of a
// trigger: "INDEX suffix".
constexpr const char* kTriggers = R"(
CREATE TRIGGER NAME(insert) AFTER INSERT ON TABLE
  WHEN (NEW.GEOM NOT NULL AND NOT ST_IsEmpty(NEW.GEOM))
BEGIN
  INSERT OR REPLACE INTO INDEX VALUES (NEW.KEY,
    ST_MinX(NEW.GEOM), ST_MaxX(NEW.GEOM), ST_MinY(NEW.GEOM), ST_MaxY(NEW.GEOM));
END;

CREATE TRIGGER NAME(update1) AFTER UPDATE OF GEOM ON TABLE
  WHEN OLD.KEY = NEW.KEY AND (NEW.GEOM NOTNULL AND NOT ST_IsEmpty(NEW.GEOM))
BEGIN
  INSERT OR REPLACE INTO INDEX VALUES (NEW.KEY,
    ST_MinX(NEW.GEOM), ST_MaxX(NEW.GEOM), ST_MinY(NEW.GEOM), ST_MaxY(NEW.GEOM));
END;

CREATE TRIGGER NAME(update2) AFTER UPDATE OF GEOM ON TABLE
  WHEN OLD.KEY = NEW.KEY AND (NEW.GEOM ISNULL OR ST_IsEmpty(NEW.GEOM))
BEGIN
  DELETE FROM INDEX WHERE id = OLD.KEY;
END;

CREATE TRIGGER NAME(update3) AFTER UPDATE ON TABLE
  WHEN OLD.KEY != NEW.KEY AND (NEW.GEOM NOTNULL AND NOT ST_IsEmpty(NEW.GEOM))
BEGIN
  DELETE FROM INDEX WHERE id = OLD.KEY;
  INSERT OR REPLACE INTO INDEX VALUES (NEW.KEY,
    ST_MinX(NEW.GEOM), ST_MaxX(NEW.GEOM), ST_MinY(NEW.GEOM), ST_MaxY(NEW.GEOM));
END;

CREATE TRIGGER NAME(update4) AFTER UPDATE ON TABLE
  WHEN OLD.KEY != NEW.KEY AND (NEW.GEOM ISNULL OR ST_IsEmpty(NEW.GEOM))
BEGIN
  DELETE FROM INDEX WHERE id IN (OLD.KEY, NEW.KEY);
END;

CREATE TRIGGER NAME(delete) AFTER DELETE ON TABLE
  WHEN OLD.GEOM NOT NULL
BEGIN
  DELETE FROM INDEX WHERE id = OLD.KEY;
END;
)";

// Returns the bits of a number with a 0 before each of them.
std::uint64_t Spread(std::uint64_t bits) {
    bits = (bits | (bits << 16)) & 0x0000FFFF0000FFFFULL;
    bits = (bits | (bits << 8)) & 0x00FF00FF00FF00FFULL;
    bits = (bits | (bits << 4)) & 0x0F0F0F0F0F0F0F0FULL;
    bits = (bits | (bits << 2)) & 0x3333333333333333ULL;
    return (bits | (bits << 1)) & 0x5555555555555555ULL;
}

std::uint64_t Scaled(double value, double low, double high) {
    constexpr double kSteps = 4294967295.0;
    const double fraction = high > low ? (value - low) / (high - low) : 0.0;
    return static_cast<std::uint64_t>(std::clamp(fraction, 0.0, 1.0) * kSteps);
}

std::string IndexName(const std::string& table, const std::string& geometry) {
    return "rtree_" + table + "_" + geometry;
}

// Makes the index while the members are initialised: the tree needs its tables.
std::string MakeIndex(SqliteDatabase& database, std::string index) {
    database.Execute("CREATE VIRTUAL TABLE " + QuotedName(index) +
                     " USING rtree(id, minx, maxx, miny, maxy)");
    return index;
}

}  // namespace

SpatialIndex::SpatialIndex(SqliteDatabase& database, std::string table, std::string geometry,
                           std::string key)
    : database_(database), table_(std::move(table)), geometry_(std::move(geometry)),
      key_(std::move(key)), tree_(database, MakeIndex(database, IndexName(table_, geometry_))) {}

void SpatialIndex::Add(std::int64_t row, const shr::Box2d& box) {
    held_.push_back({0, row, box});
    if (held_.size() == kHeldEntries) {
        Flush();
    }
}

void SpatialIndex::Flush() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    shr::Box2d all{kInfinity, kInfinity, -kInfinity, -kInfinity};
    for (const Entry& entry : held_) {
        all = {std::min(all.minX, entry.box.minX), std::min(all.minY, entry.box.minY),
               std::max(all.maxX, entry.box.maxX), std::max(all.maxY, entry.box.maxY)};
    }
    for (Entry& entry : held_) {
        entry.place = Spread(Scaled(entry.box.minX, all.minX, all.maxX)) |
                      (Spread(Scaled(entry.box.minY, all.minY, all.maxY)) << 1);
    }
    std::sort(held_.begin(), held_.end(), [](const Entry& left, const Entry& right) {
        return std::pair(left.place, left.row) < std::pair(right.place, right.row);
    });
    for (const Entry& entry : held_) {
        tree_.Add(entry.row, entry.box);
    }
    held_.clear();
}

// Replaces the words in one pass: a name may itself contain one of the words.
std::string SpatialIndex::Filled(std::string_view sql) const {
    const std::string index = IndexName(table_, geometry_);
    std::string filled;
    std::string_view rest = sql;
    const auto take = [&](std::string_view word, const std::string& replacement) {
        if (!rest.starts_with(word)) {
            return false;
        }
        filled += replacement;
        rest.remove_prefix(word.size());
        return true;
    };
    while (!rest.empty()) {
        if (rest.starts_with("NAME(")) {
            const std::size_t end = rest.find(')');
            filled += QuotedName(index + "_" + std::string(rest.substr(5, end - 5)));
            rest.remove_prefix(end + 1);
        } else if (!take("ON TABLE", "ON " + QuotedName(table_)) &&
                   !take("INTO INDEX", "INTO " + QuotedName(index)) &&
                   !take("FROM INDEX", "FROM " + QuotedName(index)) &&
                   !take("GEOM", QuotedName(geometry_)) && !take("KEY", QuotedName(key_))) {
            filled += rest.front();
            rest.remove_prefix(1);
        }
    }
    return filled;
}

void SpatialIndex::Finish() {
    Flush();
    tree_.Finish();
    database_.Execute(Filled(kTriggers));
    database_.Execute("INSERT INTO gpkg_extensions VALUES (" + QuotedText(table_) + ", " +
                      QuotedText(geometry_) +
                      ", 'gpkg_rtree_index', "
                      "'http://www.geopackage.org/spec130/#extension_rtree', 'write-only')");
}

}  // namespace app
