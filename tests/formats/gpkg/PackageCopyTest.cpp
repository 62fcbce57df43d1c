// The copy of a package that is extended, and the lock meanwhile.
#include "app/formats/gpkg/PackageCopy.h"

#include "app/base/Errors.h"
#include "tests/formats/gpkg/Package.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using app::PackageCopy;
using app::SqliteDatabase;
using support::PointAt;

class APackageCopy : public gpkg_test::Package {
protected:
    APackageCopy() { WriteLayer({PointAt(1, 2)}); }

    std::filesystem::path Original() { return Folder().path() / "out.gpkg"; }
    std::filesystem::path Copy() { return Folder().path() / "copy.gpkg"; }

    // What SQLite answers when a program of its own runs the statement. A connection of this
    // process would know of its locks without the system.
    int ResultElsewhere(const char* sql) {
        const std::string path = Original().string();
        const pid_t child = fork();
        if (child == 0) {
            sqlite3* database = nullptr;
            sqlite3_open(path.c_str(), &database);
            _exit(sqlite3_exec(database, sql, nullptr, nullptr, nullptr));
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WEXITSTATUS(status);
    }

    static std::string Value(SqliteDatabase& database, const char* sql) {
        app::SqliteStatement statement(database, sql);
        return statement.Step() ? std::string(statement.Text(0)) : "no row";
    }
};

TEST_F(APackageCopy, KeepsOtherProgramsFromWritingToThePackage) {
    const PackageCopy copy(Original(), Copy(), "p");

    EXPECT_EQ(ResultElsewhere("DELETE FROM gpkg_contents"), SQLITE_BUSY);
}

TEST_F(APackageCopy, LetsOtherProgramsReadThePackage) {
    const PackageCopy copy(Original(), Copy(), "p");

    EXPECT_EQ(ResultElsewhere("SELECT count(*) FROM gpkg_contents"), SQLITE_OK);
}

TEST_F(APackageCopy, LetsOtherProgramsWriteAfterwards) {
    static_cast<void>(PackageCopy(Original(), Copy(), "p"));

    EXPECT_EQ(ResultElsewhere("DELETE FROM gpkg_contents"), SQLITE_OK);
}

TEST_F(APackageCopy, HoldsTheSame) {
    const PackageCopy copy(Original(), Copy(), "p");

    SqliteDatabase database(Copy(), SqliteDatabase::Mode::Read, "copy");
    EXPECT_EQ(Value(database, "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(Value(database, "PRAGMA application_id"), std::to_string(0x47504B47));
    EXPECT_EQ(Value(database, "SELECT data_type FROM gpkg_contents"), "features");
}

TEST_F(APackageCopy, GivesThePackageItsLogBackWhenItIsGivenUp) {
    ASSERT_EQ(ResultElsewhere("PRAGMA journal_mode = WAL"), SQLITE_OK);
    static_cast<void>(PackageCopy(Original(), Copy(), "p"));

    SqliteDatabase database(Original(), SqliteDatabase::Mode::Change, "p");
    EXPECT_EQ(Value(database, "PRAGMA journal_mode"), "wal");
}

TEST_F(APackageCopy, LeavesTheLogOfADatabaseThatIsNoPackage) {
    ASSERT_EQ(ResultElsewhere("DROP TABLE gpkg_geometry_columns; PRAGMA journal_mode = WAL"),
              SQLITE_OK);
    EXPECT_THROW(PackageCopy(Original(), Copy(), "p"), app::Failure);

    SqliteDatabase database(Original(), SqliteDatabase::Mode::Change, "p");
    EXPECT_EQ(Value(database, "PRAGMA journal_mode"), "wal");
}

TEST_F(APackageCopy, HasALogOnceItIsCompleteIfThePackageHadOne) {
    ASSERT_EQ(ResultElsewhere("PRAGMA journal_mode = WAL"), SQLITE_OK);
    {
        PackageCopy copy(Original(), Copy(), "p");
        SqliteDatabase written(Copy(), SqliteDatabase::Mode::Create, "copy");
        copy.Complete(written);
    }

    EXPECT_FALSE(std::filesystem::exists(Copy().string() + "-wal"));
    SqliteDatabase database(Copy(), SqliteDatabase::Mode::Change, "copy");
    EXPECT_EQ(Value(database, "PRAGMA journal_mode"), "wal");
}

}  // namespace
