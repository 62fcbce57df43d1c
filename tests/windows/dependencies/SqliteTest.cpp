// SQLite with what a GeoPackage asks for, in memory and in a file.
#include "host/platform/Stdio.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

namespace {

class ADatabase : public testing::Test {
protected:
    ~ADatabase() override { sqlite3_close(database_); }

    int Open(const std::string& path) { return sqlite3_open(path.c_str(), &database_); }

    // The last value of the statements' last row; the error's text after an error.
    std::string Answer(const char* statements) {
        std::string answer;
        char* error = nullptr;
        const auto keep = [](void* text, int count, char** values, char**) {
            *static_cast<std::string*>(text) = values[count - 1];
            return 0;
        };
        if (sqlite3_exec(database_, statements, keep, &answer, &error) != SQLITE_OK) {
            answer = error;
            sqlite3_free(error);
        }
        return answer;
    }

private:
    sqlite3* database_ = nullptr;
};

TEST_F(ADatabase, InMemoryAnswers) {
    ASSERT_EQ(Open(":memory:"), SQLITE_OK);

    EXPECT_EQ(Answer("CREATE TABLE t(a); INSERT INTO t VALUES (20), (22); SELECT sum(a) FROM t"),
              "42");
}

TEST_F(ADatabase, HasSpatialIndexes) {
    ASSERT_EQ(Open(":memory:"), SQLITE_OK);

    EXPECT_EQ(Answer("CREATE VIRTUAL TABLE r USING rtree(id, minx, maxx, miny, maxy);"
                     "INSERT INTO r VALUES (7, 0, 1, 0, 1), (8, 5, 6, 5, 6);"
                     "SELECT id FROM r WHERE maxx < 2"),
              "7");
}

TEST_F(ADatabase, IsOpenedByAUtf8Path) {
    const support::TemporaryFolder folder;
    const std::wstring name = L"\u0434\u043E\u0440\u043E\u0433\u0438.gpkg";

    ASSERT_EQ(Open(platform::PathToBytes((folder.path() / name).wstring())), SQLITE_OK);

    EXPECT_EQ(Answer("CREATE TABLE t(a); SELECT count(*) FROM t"), "0");
    EXPECT_TRUE(std::filesystem::exists(folder.path() / name));
}

}  // namespace
