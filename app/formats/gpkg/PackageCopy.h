// A copy of a package that is to be extended, and the lock on the package itself.
#pragma once

#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/sqlite/Sqlite.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

class PackageCopy {
public:
    // Copies the package to `copy`. As long as the object lives, other programs can read the
    // package and can't write to it. `subject` names it in messages. Throws Failure, also for a
    // file that is no GeoPackage, and for one that another program is writing to.
    PackageCopy(const std::filesystem::path& package, const std::filesystem::path& copy,
                const std::string& subject);

    // The layer of features of this name, in any case of ASCII letters; absent when there is none.
    std::optional<PackageLayer> FindLayer(const std::string& name) const;

    // Of everything that has a name in the database.
    const std::vector<std::string>& TableNames() const { return tableNames_; }

private:
    SqliteDatabase original_;
    std::vector<PackageLayer> layers_;
    std::vector<std::string> tableNames_;
};

}  // namespace app
