#include "app/formats/gpkg/PackageCopy.h"

#include "app/base/platform/System.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <fstream>

namespace app {
namespace {

// Brings what waits in a write-ahead log into the file, which is then all that there is.
void EndWriteAheadLog(SqliteDatabase& database) {
    SqliteStatement mode(database, "PRAGMA journal_mode");
    static_cast<void>(mode.Step());
    const bool isLog = mode.Text(0) == "wal";
    mode.Reset();
    if (isLog) {
        database.Execute("PRAGMA journal_mode = DELETE");
    }
}

}  // namespace

PackageCopy::PackageCopy(const std::filesystem::path& package, const std::filesystem::path& copy,
                         const std::string& subject)
    : original_(package, SqliteDatabase::Mode::Change, subject),
      layers_(GeoPackageReader(package).Layers()) {
    EndWriteAheadLog(original_);
    original_.Execute("BEGIN IMMEDIATE");
    SqliteStatement names(original_, "SELECT name FROM sqlite_schema");
    while (names.Step()) {
        tableNames_.emplace_back(names.Text(0));
    }
    std::ofstream(copy, std::ios::binary).close();
    AppendFileRange(package, 0, copy);
    std::error_code ignored;  // of a file system without permissions
    std::filesystem::permissions(copy, std::filesystem::status(package).permissions(), ignored);
}

std::optional<PackageLayer> PackageCopy::FindLayer(const std::string& name) const {
    const auto found = std::ranges::find_if(layers_, [&name](const PackageLayer& layer) {
        return EqualsIgnoringCase(layer.name, name);
    });
    return found == layers_.end() ? std::nullopt : std::optional(*found);
}

}  // namespace app
