// Names of tables and columns that are safe, unique and readable by other programs; and texts
// without bytes that other programs choke on.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace app {

// Returns the text as valid UTF-8 without control characters other than tabs and line ends. Each
// byte that can't stay becomes U+FFFD.
std::string CleanText(std::string text);

// Gives out names that are all different. Upper and lower case of ASCII letters count as the same,
// as they do for SQLite.
class UniqueNames {
public:
    // Returns `wanted` with control characters and invalid UTF-8 replaced by '_', or `fallback`
    // when nothing is left of it. A name that was given out before gets _2, _3, ... at its end.
    std::string Take(std::string_view wanted, const std::string& fallback);

private:
    std::set<std::string> taken_;  // in lower case
};

// Returns a name for a layer's table. A name that begins like the tables of the package itself or
// of SQLite ("gpkg_", "rtree_", "sqlite_") gets "layer_" in front.
std::string TableNameFor(std::string_view wanted);

}  // namespace app
