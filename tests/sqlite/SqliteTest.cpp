// What databases say when they can't be written.
#include "app/sqlite/Sqlite.h"

#include "app/base/Errors.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace app {
namespace {

constexpr const char* kManyRows =
    "CREATE TABLE t AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 50000) "
    "SELECT i, 'some text' FROM n";

std::string FailureOf(SqliteDatabase& database, const std::string& sql) {
    try {
        database.Execute(sql);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "no failure";
}

class ADatabase : public testing::Test {
protected:
    support::TemporaryFolder folder_;
    SqliteDatabase database_{folder_.path() / "a.db", SqliteDatabase::Mode::Create, "a.gpkg"};
};

TEST_F(ADatabase, SaysThatTheDiskIsFullInTheSystemsWords) {
    database_.Execute("PRAGMA max_page_count = 3");

    EXPECT_EQ(FailureOf(database_, kManyRows), "a.gpkg: can't write: No space left on device");
}

TEST_F(ADatabase, GivesTheSystemsReasonForAFailedWrite) {
    const support::FileSizeLimit limit(100'000);

    EXPECT_EQ(FailureOf(database_, std::string("PRAGMA cache_size = 1;") + kManyRows),
              "a.gpkg: can't write: disk I/O error: File too large");
}

TEST_F(ADatabase, SaysWhatIsWrongWithAStatement) {
    EXPECT_EQ(FailureOf(database_, "CREATE nothing"),
              "a.gpkg: can't write: near \"nothing\": syntax error");
}

}  // namespace
}  // namespace app
