// qolf convert --append: more layers and rows of a package that is there.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;
using Json = nlohmann::json;

// Runs SQL in a file of the sandbox; returns the first column of the rows, each with ";" behind it.
std::string Sql(const Sandbox& sandbox, const std::string& file, const std::string& sql) {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(sandbox.Path(file).c_str(), &database), SQLITE_OK);
    std::string rows;
    const auto take = [](void* out, int, char** values, char**) {
        *static_cast<std::string*>(out) += std::string(values[0] ? values[0] : "null") + ";";
        return 0;
    };
    char* problem = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), take, &rows, &problem), SQLITE_OK) << problem;
    sqlite3_free(problem);
    sqlite3_close(database);
    return rows;
}

class AppendToAPackage : public testing::Test {
protected:
    AppendToAPackage() {
        EXPECT_EQ(sandbox_.Qolf({"convert", cli::Sample("island-ways.mif"), "p.gpkg"}).exitCode, 0);
    }

    Result Append(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"convert", "--append"});
        arguments.emplace_back("p.gpkg");
        return sandbox_.Qolf(arguments);
    }

    std::string Count(const std::string& table) {
        return Sql(sandbox_, "p.gpkg", "SELECT count(*) FROM \"" + table + "\"");
    }

    Sandbox sandbox_;
};

TEST_F(AppendToAPackage, AddsALayerOfANewName) {
    const Result result = Append({cli::Sample("island.mif")});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "SELECT table_name FROM gpkg_contents ORDER BY rowid"),
              "island-ways;island;");
    EXPECT_EQ(Count("island"), "11;");
    EXPECT_EQ(Count("island-ways"), "7;");
    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "PRAGMA integrity_check"), "ok;");
    EXPECT_EQ(sandbox_.Names(), std::vector<std::string>{"p.gpkg"});
}

TEST_F(AppendToAPackage, AddsRowsToALayerOfThatName) {
    const Result result = Append({"--layer", "Island-Ways", "--where", "kind = 'road'", "--select",
                                  "name,paved", cli::Sample("island-ways.mif")});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(Count("island-ways"), "10;");
    EXPECT_EQ(Count("rtree_island-ways_geom"), "10;") << "the index has them, too";
    EXPECT_EQ(Sql(sandbox_, "p.gpkg",
                  "SELECT fid || ' ' || name || ' ' || coalesce(kind, 'none') FROM \"island-ways\" "
                  "WHERE fid > 7"),
              "8 North Road none;9 South Road none;10 Island Road none;");
    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "SELECT count(*) FROM gpkg_contents"), "1;");
    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "PRAGMA integrity_check"), "ok;");
}

TEST_F(AppendToAPackage, WidensTheExtentOfTheLayer) {
    sandbox_.Write("far.mif", "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                              "CoordSys Earth Projection 1, 104\nColumns 1\n  name Char(20)\nData\n"
                              "Line 20 50 25 60\n");
    sandbox_.Write("far.mid", "\"far\"\n");

    const Result result = Append({"--layer", "island-ways", "far.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(
        Sql(sandbox_, "p.gpkg",
            "SELECT min_x || ' ' || min_y || ' ' || max_x || ' ' || max_y FROM gpkg_contents"),
        "20.0 50.0 25.0 60.0;");
}

TEST_F(AppendToAPackage, MakesThePackageWhenThereIsNone) {
    const Result result =
        sandbox_.Qolf({"convert", "--append", cli::Sample("island.mif"), "new.gpkg"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Sql(sandbox_, "new.gpkg", "SELECT count(*) FROM island"), "11;");
}

TEST_F(AppendToAPackage, GivesANewSystemItsRow) {
    const Result result = Append({"--crs", "EPSG:3301", cli::Sample("island.mif")});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "SELECT srs_id FROM gpkg_contents ORDER BY rowid"),
              "4326;3301;");
}

struct UnfitRow {
    const char* name;
    std::string columns;
    std::string object;
    std::string row;
    std::vector<std::string> options;
    const char* problem;
};

std::ostream& operator<<(std::ostream& out, const UnfitRow& row) {
    return out << row.name;
}

class AnUnfitLayer : public testing::TestWithParam<UnfitRow> {};

TEST_P(AnUnfitLayer, IsRefusedAndThePackageStaysAsItWas) {
    const Sandbox sandbox;
    static_cast<void>(sandbox.Qolf({"convert", cli::Sample("island-ways.mif"), "p.gpkg"}));
    const std::string before = sandbox.Read("p.gpkg");
    sandbox.Write("n.mif", "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                           "CoordSys Earth Projection 1, 104\n" +
                               GetParam().columns + "Data\n" + GetParam().object);
    sandbox.Write("n.mid", GetParam().row);
    std::vector<std::string> arguments = {"convert", "--append", "--layer", "island-ways"};
    arguments.insert(arguments.end(), GetParam().options.begin(), GetParam().options.end());
    arguments.insert(arguments.end(), {"n.mif", "p.gpkg"});

    const Result result = sandbox.Qolf(arguments);

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find(GetParam().problem), std::string::npos) << result.err;
    EXPECT_TRUE(sandbox.Read("p.gpkg") == before);
    EXPECT_EQ(sandbox.Names(), (std::vector<std::string>{"n.mid", "n.mif", "p.gpkg"}));
}

constexpr const char* kName = "Columns 1\n  name Char(20)\n";
constexpr const char* kLine = "Line 23 58 24 59\n";

INSTANTIATE_TEST_SUITE_P(
    , AnUnfitLayer,
    testing::Values(
        UnfitRow{"WithAnotherColumn",
                 "Columns 1\n  nmae Char(20)\n",
                 kLine,
                 "\"a\"\n",
                 {},
                 "layer island-ways is there already, and there is no column \"nmae\"; did you "
                 "mean \"name\"?"},
        UnfitRow{"WithAnotherType",
                 "Columns 1\n  paved Char(20)\n",
                 kLine,
                 "\"a\"\n",
                 {},
                 "its column paved can't hold all values of the type Char"},
        UnfitRow{"InAnotherSystem",
                 kName,
                 kLine,
                 "\"a\"\n",
                 {"--crs", "EPSG:3301"},
                 "--crs EPSG:4326 moves them"},
        UnfitRow{"OfOtherGeometries",
                 kName,
                 "Line 23 58 24 59\nPoint 23 58\n",
                 "\"a\"\n\"b\"\n",
                 {},
                 "holds geometries of the type LINESTRING, while object 2 is a POINT"},
        UnfitRow{
            "WithStyles", kName, kLine, "\"a\"\n", {"--styles"}, "--styles is for new layers"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(AppendToAPackage, IsRefusedWhileAnotherProgramWrites) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(sandbox_.Path("p.gpkg").c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);

    const Result result = Append({cli::Sample("island.mif")});

    sqlite3_close(other);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: p.gpkg: can't write: database is locked\n");
}

TEST_F(AppendToAPackage, TakesWhatWaitsInAWriteAheadLog) {
    Sql(sandbox_, "p.gpkg",
        "PRAGMA journal_mode = WAL; INSERT INTO gpkg_spatial_ref_sys VALUES "
        "('mine', 900001, 'NONE', 900001, 'undefined', '')");

    const Result result = Append({cli::Sample("island.mif")});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(
        Sql(sandbox_, "p.gpkg", "SELECT srs_name FROM gpkg_spatial_ref_sys WHERE srs_id = 900001"),
        "mine;");
    EXPECT_EQ(sandbox_.Names(), std::vector<std::string>{"p.gpkg"});
}

TEST_F(AppendToAPackage, KeepsTheWriteAheadLogOfAPackage) {
    Sql(sandbox_, "p.gpkg", "PRAGMA journal_mode = WAL");

    EXPECT_EQ(Append({cli::Sample("island.mif")}).exitCode, 0);
    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "PRAGMA journal_mode"), "wal;");
}

TEST_F(AppendToAPackage, WarnsOfRowsWithoutTheStylesOfTheirLayer) {
    static_cast<void>(sandbox_.Qolf({"convert", "--styles", cli::Sample("island.mif"), "s.gpkg"}));

    const Result result =
        sandbox_.Qolf({"convert", "--append", cli::Sample("island.mif"), "s.gpkg"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "qolf: warning: s.gpkg: layer island: 11 new objects have none of the "
                          "layer's styles, so that a GIS may not show them\n");
}

TEST_F(AppendToAPackage, GivesANewSystemAValueInTheColumnOfTheOtherDefinition) {
    Sql(sandbox_, "p.gpkg",
        "ALTER TABLE gpkg_spatial_ref_sys ADD COLUMN definition_12_063 TEXT NOT NULL DEFAULT "
        "'undefined'; CREATE TABLE made AS SELECT * FROM gpkg_spatial_ref_sys; "
        "DROP TABLE gpkg_spatial_ref_sys; CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT "
        "NULL, srs_id INTEGER PRIMARY KEY, organization TEXT NOT NULL, organization_coordsys_id "
        "INTEGER NOT NULL, definition TEXT NOT NULL, description TEXT, definition_12_063 TEXT NOT "
        "NULL); INSERT INTO gpkg_spatial_ref_sys SELECT * FROM made; DROP TABLE made");

    const Result result = Append({"--crs", "EPSG:3301", cli::Sample("island.mif")});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Sql(sandbox_, "p.gpkg",
                  "SELECT definition_12_063 FROM gpkg_spatial_ref_sys WHERE srs_id = 3301"),
              "undefined;");
}

TEST_F(AppendToAPackage, GivesNoLayerTheIdentifierOfAnother) {
    Sql(sandbox_, "p.gpkg", "UPDATE gpkg_contents SET identifier = 'island'");

    const Result result = Append({cli::Sample("island.mif")});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "SELECT identifier FROM gpkg_contents ORDER BY rowid"),
              "island;null;");
}

TEST_F(AppendToAPackage, FindsALayerWhoseNameHadToBeChanged) {
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(Append({"--layer", "gpkg_a", cli::Sample("island.mif")}).exitCode, 0);
    }

    EXPECT_EQ(Count("layer_gpkg_a"), "22;");
}

TEST_F(AppendToAPackage, SaysThatALayerGetsTheObjectsOfSeveralInputs) {
    EXPECT_EQ(Append({"--layer", "island-ways", cli::Sample("island-ways.mif"),
                      cli::Sample("island-ways.mif")})
                  .err,
              "qolf: note: p.gpkg: layer island-ways gets the objects of several inputs\n");
    EXPECT_EQ(Count("island-ways"), "21;");
}

TEST_F(AppendToAPackage, KeepsTextsApartFromAColumnOfThatName) {
    sandbox_.Write("t.mif", "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                            "CoordSys Earth Projection 1, 104\nColumns 1\n  text Char(20)\nData\n"
                            "Text \"shown\" 23 58 24 59\n");
    sandbox_.Write("t.mid", "\"value\"\n");

    for (int run = 0; run < 2; ++run) {
        const Result result = Append({"t.mif"});
        EXPECT_EQ(result.exitCode, 0) << result.err;
    }

    EXPECT_EQ(Sql(sandbox_, "p.gpkg", "SELECT text || ' ' || text_2 FROM t"),
              "value shown;value shown;");
}

struct ForeignRow {
    const char* name;
    const char* sql;
    const char* problem;
};

std::ostream& operator<<(std::ostream& out, const ForeignRow& row) {
    return out << row.name;
}

class AForeignLayer : public testing::TestWithParam<ForeignRow> {};

TEST_P(AForeignLayer, IsRefusedWithTheReason) {
    const Sandbox sandbox;
    static_cast<void>(sandbox.Qolf({"convert", cli::Sample("island.mif"), "p.gpkg"}));
    Sql(sandbox, "p.gpkg", GetParam().sql);

    const Result result =
        sandbox.Qolf({"convert", "--append", cli::Sample("island.mif"), "p.gpkg"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, std::string("qolf: error: p.gpkg: layer island is there already, and ") +
                              GetParam().problem + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    , AForeignLayer,
    testing::Values(
        ForeignRow{"ThatIsAView",
                   "ALTER TABLE island RENAME TO held; CREATE VIEW island AS SELECT * FROM held; "
                   "UPDATE gpkg_contents SET table_name = 'island'; UPDATE gpkg_geometry_columns "
                   "SET table_name = 'island'",
                   "is a view, to which no rows can be added"},
        ForeignRow{"WithHeights", "UPDATE gpkg_geometry_columns SET z = 1",
                   "needs a height for each position, which the objects don't have"},
        ForeignRow{
            "WithAColumnThatNeedsAValue",
            "DROP TABLE island; CREATE TABLE island (fid INTEGER PRIMARY KEY, geom GEOMETRY, "
            "name TEXT, kind TEXT, area_km2 DOUBLE, owner TEXT NOT NULL)",
            "its column owner needs a value, which the objects don't have"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(AppendToAPackage, RefusesADatabaseThatIsNoPackage) {
    Sql(sandbox_, "d.gpkg", "CREATE TABLE t(a)");

    const Result result =
        sandbox_.Qolf({"convert", "--append", cli::Sample("island.mif"), "d.gpkg"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("no GeoPackage with features"), std::string::npos) << result.err;
}

TEST_F(AppendToAPackage, IsForPackagesAndOneOutput) {
    const std::string input = cli::Sample("island.mif");

    EXPECT_EQ(sandbox_.Qolf({"convert", "--append", input, "o.mif"}).err,
              "qolf: error: --append is for GeoPackages\n");
    EXPECT_EQ(sandbox_.Qolf({"convert", "--append", "--overwrite", input, "p.gpkg"}).err,
              "qolf: error: --append keeps what is there, and --overwrite replaces it\n");
    EXPECT_EQ(
        sandbox_.Qolf({"convert", "--append", "--to", "gpkg", "--output-dir", "out", input}).err,
        "qolf: error: --append is for one output, and --output-dir makes a file each\n");
}

}  // namespace
