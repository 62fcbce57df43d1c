// What the check finds in GeoJSON and GeoPackages.
#include "app/check/LayerCheck.h"

#include "app/crs/CoordinateSystem.h"
#include "app/formats/Formats.h"
#include "app/mif/FindingCodes.h"
#include "app/sqlite/Sqlite.h"
#include "tests/support/Features.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// "object code name: message".
class TextsOfFindings : public app::FindingSink {
public:
    void Add(const app::Finding& finding) override {
        texts.push_back(std::to_string(finding.object) + " " + finding.code->id + ": " +
                        finding.message);
    }

    std::vector<std::string> texts;
};

class ALayer : public testing::Test {
protected:
    std::vector<std::string> Check(const std::string& name, std::uint64_t maxPerCode = 0) {
        const std::filesystem::path file = folder_.path() / name;
        TextsOfFindings findings;
        counts_ = app::CheckLayers(file, *app::FindFormatOfFile(file), maxPerCode, findings);
        return findings.texts;
    }

    std::vector<std::string> CheckJson(const std::string& features) {
        folder_.Write("a.geojson", R"({"type":"FeatureCollection","features":[)" + features + "]}");
        return Check("a.geojson");
    }

    // One feature without properties.
    std::vector<std::string> CheckGeometry(const std::string& geometry) {
        return CheckJson(R"({"type":"Feature","properties":{},"geometry":)" + geometry + "}");
    }

    // Makes a package of a layer `places` with the column `name` and one point, and changes it.
    std::vector<std::string> CheckPackage(const std::string& column, const std::string& sql) {
        const std::filesystem::path file = folder_.path() / "a.gpkg";
        support::KeptMessages messages;
        app::TargetOptions options;
        options.ifExists = app::IfExists::Overwrite;
        const auto target =
            app::FormatOfName("gpkg").openTarget(file.string(), options, messages.Reporter());
        app::LayerFacts facts;
        facts.name = "places";
        facts.system = std::make_shared<const app::CoordinateSystem>(app::Wgs84System());
        target->BeginLayer(facts);
        for (int i = 0; i < 3; ++i) {
            app::Feature feature = support::PointAt(24.0 + i, 59.0);
            target->Write(feature);
        }
        target->Finish();
        // A database that is made here is written without a journal, which does no harm.
        app::SqliteDatabase database(file, app::SqliteDatabase::Mode::Create, "test");
        DropTriggers(database);
        database.Execute("ALTER TABLE places ADD COLUMN x " + column);
        database.Execute(sql);
        database.Close();
        return Check("a.gpkg");
    }

    // They call functions that a plain SQLite lacks.
    static void DropTriggers(app::SqliteDatabase& database) {
        std::string sql;
        app::SqliteStatement names(database, "SELECT name FROM sqlite_schema WHERE type='trigger'");
        while (names.Step()) {
            sql += "DROP TRIGGER " + app::QuotedName(names.Text(0)) + ";";
        }
        database.Execute(sql);
    }

    support::TemporaryFolder folder_;
    app::FindingCounts counts_{};
};

TEST_F(ALayer, WithoutFaultsHasNoFindings) {
    EXPECT_THAT(CheckJson(R"({"type":"Feature","properties":{"n":1,"t":"x","d":"2026-01-31"},
        "geometry":{"type":"Polygon","coordinates":[[[24,59],[25,59],[25,60],[24,59]]]}},
        {"type":"Feature","properties":{"n":null,"t":null,"d":null},
        "geometry":{"type":"Point","coordinates":[180,-90]}})"),
                IsEmpty());
}

TEST_F(ALayer, HasRingsThatAreOpenOrCross) {
    EXPECT_THAT(CheckGeometry(
                    R"({"type":"Polygon","coordinates":[[[0,0],[4,0],[4,4],[0,4]],
                    [[1,1],[2,2],[2,1],[1,2],[1,1]],[[3,3],[3,3],[3,3]]]})"),
                ElementsAre("1 MIF-G001: the last vertex is not the first one",
                            "1 MIF-G002: the ring crosses itself at (1.5, 1.5)",
                            "1 MIF-G005: 2 vertices equal the one before",
                            "1 MIF-G004: the ring has fewer than three different vertices"));
}

TEST_F(ALayer, HasLinesWithDoubledVertices) {
    EXPECT_THAT(CheckGeometry(R"({"type":"LineString","coordinates":[[0,0],[0,0],[1,1]]})"),
                ElementsAre("1 MIF-G005: 1 vertex equals the one before"));
}

TEST_F(ALayer, HasMembersOfCollections) {
    EXPECT_THAT(CheckGeometry(R"({"type":"GeometryCollection","geometries":[
        {"type":"Point","coordinates":[0,0]},
        {"type":"LineString","coordinates":[[0,0],[0,0],[1,1]]}]})"),
                ElementsAre("1 MIF-G005: 1 vertex equals the one before"));
}

TEST_F(ALayer, HasPlacesOutsideTheEarth) {
    EXPECT_THAT(CheckGeometry(R"({"type":"Point","coordinates":[59,124]})"),
                ElementsAre("1 MIF-G007: (59, 124) lies outside the Earth"));
}

TEST_F(ALayer, HasGeometriesThatCannotBeRead) {
    EXPECT_THAT(CheckJson(R"({"type":"Feature","properties":{},"geometry":{"type":"Point"}},
            {"type":"Feature","properties":{},"geometry":{"type":"LineString",
            "coordinates":[[1,2]]}},
            {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1,2]}})"),
                ElementsAre("1 LYR-001: the geometry has no array \"coordinates\"",
                            "2 LYR-001: a line has one position only"));
}

TEST_F(ALayer, HasFeaturesWithoutAGeometryWhichAreCounted) {
    const std::string feature = R"({"type":"Feature","properties":{},"geometry":null})";

    EXPECT_THAT(CheckJson(feature), ElementsAre("1 LYR-004: the feature has no geometry"));
    EXPECT_THAT(CheckJson(feature + "," + feature),
                ElementsAre("0 LYR-004: 2 of 2 features have no geometry; the first one is 1"));
}

TEST_F(ALayer, HasColumnsOfSeveralTypes) {
    EXPECT_THAT(CheckJson(R"({"type":"Feature","properties":{"n":1},"geometry":
        {"type":"Point","coordinates":[1,2]}},{"type":"Feature","properties":{"n":"x"},"geometry":
        {"type":"Point","coordinates":[1,2]}})"),
                ElementsAre("0 LYR-008: the column n has 1 text and 1 value of other types"));
}

TEST_F(ALayer, ThatCannotBeReadIsAFinding) {
    folder_.Write("a.geojson", "{");
    folder_.Write("a.gpkg", "no database");

    EXPECT_THAT(Check("a.geojson"), ElementsAre(HasSubstr("0 MIF-F001: is not valid GeoJSON")));
    EXPECT_THAT(Check("a.gpkg"), ElementsAre(HasSubstr("0 MIF-F001: can't read")));
    EXPECT_THAT(Check("missing.geojson"), ElementsAre(HasSubstr("0 MIF-F001: can't open")));
}

TEST_F(ALayer, ShowsAsManyFindingsOfACodeAsAreWanted) {
    std::string features;
    for (int i = 0; i < 5; ++i) {
        features += std::string(i == 0 ? "" : ",") +
                    R"({"type":"Feature","properties":{},"geometry":{"type":"Point"}})";
    }
    CheckJson(features);

    EXPECT_EQ(Check("a.geojson", 2).size(), 2U);
    EXPECT_EQ(counts_[static_cast<std::size_t>(app::FindingCode::GeometryUnreadable)].found, 5U);
}

TEST_F(ALayer, OfAPackageHasValuesOfOtherTypes) {
    EXPECT_THAT(CheckPackage("INTEGER", "UPDATE places SET x = 'ten' WHERE fid = 2"),
                ElementsAre("2 MIF-R013: the value 'ten' of x is not of the type LargeInt"));
    EXPECT_THAT(CheckPackage("SMALLINT", "UPDATE places SET x = 40000 WHERE fid = 1"),
                ElementsAre("1 MIF-R013: the value 40000 of x is not of the type SmallInt"));
    EXPECT_THAT(CheckPackage("DATE", "UPDATE places SET x = '31.1.2026' WHERE fid = 3"),
                ElementsAre("3 MIF-R013: the value '31.1.2026' of x is not of the type Date"));
    EXPECT_THAT(CheckPackage("DOUBLE", "UPDATE places SET x = 1"), IsEmpty());
}

TEST_F(ALayer, OfAPackageHasValuesThatAreTooLong) {
    EXPECT_THAT(CheckPackage("TEXT(3)", "UPDATE places SET x = CASE fid WHEN 1 THEN 'äöü' ELSE "
                                        "'roads' END WHERE fid < 3"),
                ElementsAre("2 MIF-R014: the value 'roads' of x has 5 characters, and the column "
                            "has 3"));
}

TEST_F(ALayer, OfAPackageHasNumbersThatAreNone) {
    EXPECT_THAT(CheckPackage("DOUBLE", "UPDATE places SET x = 9e999 WHERE fid = 2"),
                ElementsAre(HasSubstr("2 LYR-006: the value of x is ")));
}

TEST_F(ALayer, OfAPackageHasTextsThatAreNotUtf8) {
    EXPECT_THAT(CheckPackage("TEXT", "UPDATE places SET x = CAST(x'61FF' AS TEXT) WHERE fid = 2"),
                ElementsAre("2 LYR-005: the value 'a\xEF\xBF\xBD' of x is not UTF-8"));
}

TEST_F(ALayer, OfAPackageHasBytes) {
    EXPECT_THAT(
        CheckPackage("BLOB", "UPDATE places SET x = x'6162' WHERE fid = 2"),
        ElementsAre("2 LYR-007: the value of x is 2 bytes that are neither text nor number"));
}

TEST_F(ALayer, OfAPackageHasDamagedGeometries) {
    EXPECT_THAT(CheckPackage("TEXT", "UPDATE places SET geom = x'4750' WHERE fid = 2"),
                ElementsAre("2 LYR-001: the geometry ends too early"));
}

TEST_F(ALayer, OfAPackageHasPlacesOutsideTheAreaOfItsSystem) {
    EXPECT_THAT(CheckPackage("TEXT",
                             "INSERT INTO gpkg_spatial_ref_sys (srs_name, srs_id, organization, "
                             "organization_coordsys_id, definition) VALUES ('Estonia', 3301, "
                             "'EPSG', 3301, 'undefined');"
                             "UPDATE gpkg_geometry_columns SET srs_id = 3301;"
                             "UPDATE gpkg_contents SET srs_id = 3301;"
                             "DELETE FROM places WHERE fid > 1"),
                ElementsAre(HasSubstr("1 LYR-003: (24, 59) lies outside the area of the coordinate "
                                      "system, longitude 2")));
}

}  // namespace
