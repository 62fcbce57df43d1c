// A copy of a package that is to be extended, and the lock on the package itself.
#pragma once

#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/sqlite/Sqlite.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// Ends the write-ahead log of a package, which has its rows in the file then; a log beside the
// package would later be taken for that of its copy. Gives the package a new log at the end.
class EndedLog {
public:
    // Does nothing for a package without a log. Throws Failure, also while other programs have the
    // package open. The database must outlive the object.
    explicit EndedLog(SqliteDatabase& package);
    ~EndedLog();
    EndedLog(const EndedLog&) = delete;
    EndedLog& operator=(const EndedLog&) = delete;

    // Gives the log to a copy of the package in place of the package.
    void GiveTo(SqliteDatabase& copy);

private:
    SqliteDatabase& package_;
    bool isOwed_ = false;  // the package has lost its log
};

class PackageCopy {
public:
    // Copies the package to `copy`, whose journal is a rollback journal. As long as the object
    // lives, other programs can read the package and can't write to it. `subject` names it in
    // messages. Throws Failure, also for a file that is no GeoPackage, and for one that another
    // program is writing to.
    PackageCopy(const std::filesystem::path& package, const std::filesystem::path& copy,
                const std::string& subject);

    // The layer of features of this name, in any case of ASCII letters; absent when there is none.
    std::optional<PackageLayer> FindLayer(const std::string& name) const;

    // Of everything that has a name in the database.
    const std::vector<std::string>& TableNames() const { return tableNames_; }

    // Whether something in the database has this name, in any case of ASCII letters.
    bool HasName(std::string_view name) const;

    // Gives the copy a write-ahead log if the package had one. Called once, when all is written.
    void Complete(SqliteDatabase& copy) { log_.GiveTo(copy); }

private:
    SqliteDatabase original_;
    EndedLog log_;
    std::vector<PackageLayer> layers_;
    std::vector<std::string> tableNames_;
};

}  // namespace app
