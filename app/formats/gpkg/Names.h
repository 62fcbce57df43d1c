// Names of tables and columns that are safe, unique and readable by other programs; and texts
// without bytes that other programs choke on.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace app {

// The text as valid UTF-8 without control characters other than tab and line ends: each byte that
// can't stay is U+FFFD.
std::string CleanText(std::string text);

// Hands out names that differ in more than ASCII case, which SQLite does not tell apart.
class UniqueNames {
public:
    // The name with control characters and broken UTF-8 replaced by '_'; fallback when nothing is
    // left of it. A name that is taken gets _2, _3, ... behind it.
    std::string Take(std::string_view wanted, const std::string& fallback);

private:
    std::set<std::string> taken_;  // in lower case
};

// A table's name: one that begins like the tables of the package itself or of SQLite ("gpkg_",
// "rtree_", "sqlite_") gets "layer_" in front.
std::string TableNameFor(std::string_view wanted);

}  // namespace app
