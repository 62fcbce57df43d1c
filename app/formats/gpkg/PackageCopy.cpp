#include "app/formats/gpkg/PackageCopy.h"

#include "app/base/Errors.h"
#include "app/mif/Words.h"

#include <algorithm>

namespace app {
namespace {

constexpr const char* kLog = "PRAGMA journal_mode = WAL";

}  // namespace

EndedLog::EndedLog(SqliteDatabase& package) : package_(package) {
    SqliteStatement mode(package_, "PRAGMA journal_mode");
    static_cast<void>(mode.Step());
    const bool hasLog = mode.Text(0) == "wal";
    mode.Reset();
    if (hasLog) {
        package_.Execute("PRAGMA journal_mode = DELETE");
        isOwed_ = true;
    }
}

EndedLog::~EndedLog() {
    if (!isOwed_) {
        return;
    }
    for (const char* const sql : {"ROLLBACK", kLog}) {
        try {
            package_.Execute(sql);
        } catch (const Failure&) {  // there is no transaction, or an earlier failure to report
        }
    }
}

void EndedLog::GiveTo(SqliteDatabase& copy) {
    if (isOwed_) {
        copy.Execute(kLog);
        isOwed_ = false;
    }
}

PackageCopy::PackageCopy(const std::filesystem::path& package, const std::filesystem::path& copy,
                         const std::string& subject)
    : original_(package, SqliteDatabase::Mode::Change, subject), log_(original_) {
    original_.Execute("BEGIN IMMEDIATE");
    layers_ = GeoPackageReader(package).Layers();
    SqliteStatement names(original_, "SELECT name FROM sqlite_schema");
    while (names.Step()) {
        tableNames_.emplace_back(names.Text(0));
    }
    // A connection of its own: the other one holds the lock, and can't be copied from meanwhile.
    SqliteDatabase source(package, SqliteDatabase::Mode::Read, subject);
    SqliteDatabase target(copy, SqliteDatabase::Mode::Create, subject);
    source.CopyTo(target);
    target.Close();
    std::error_code ignored;  // of a file system without permissions
    std::filesystem::permissions(copy, std::filesystem::status(package).permissions(), ignored);
}

std::optional<PackageLayer> PackageCopy::FindLayer(const std::string& name) const {
    const auto found = std::ranges::find_if(layers_, [&name](const PackageLayer& layer) {
        return EqualsIgnoringCase(layer.name, name);
    });
    return found == layers_.end() ? std::nullopt : std::optional(*found);
}

bool PackageCopy::HasName(std::string_view name) const {
    return std::ranges::any_of(
        tableNames_, [name](const std::string& taken) { return EqualsIgnoringCase(taken, name); });
}

}  // namespace app
