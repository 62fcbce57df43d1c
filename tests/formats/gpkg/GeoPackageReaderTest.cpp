// Reading packages: our own, and others with what ours never hold.
#include "app/formats/gpkg/GeoPackageReader.h"

#include "app/base/Errors.h"
#include "app/crs/Reprojection.h"
#include "app/sqlite/Sqlite.h"
#include "tests/formats/gpkg/Package.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using app::ColumnKind;
using app::GeometryKind;
using gpkg_test::Package;
using support::Column;
using support::LineThrough;
using support::PointAt;
using support::PointsAt;
using support::RegionOf;
using support::Square;

class GeoPackageReader : public Package {
protected:
    std::vector<app::Feature> Read(const std::string& layer = "") {
        app::GeoPackageReader reader(Path());
        std::vector<app::Feature> features;
        static_cast<void>(reader.Begin(reader.LayerNamed(layer), TheReporter()));
        reader.Read(TheReporter(), [&](app::Feature& feature) {
            features.push_back(feature);
            return true;
        });
        return features;
    }

    std::string ErrorOf(const std::string& layer = "") {
        try {
            Read(layer);
        } catch (const app::Failure& failure) {
            return failure.what();
        }
        return "none";
    }

    void WriteTwoLayers() {
        Writer().BeginLayer("roads", {}, app::Wgs84Reference());
        Write(LineThrough({{0, 0}, {1, 1}}));
        Writer().BeginLayer("places", {}, app::Wgs84Reference());
        Write(PointAt(1, 2));
        Writer().Finish();
    }
};

TEST_F(GeoPackageReader, GivesBackPointsLinesAndRegions) {
    const auto region =
        RegionOf({{{0, 0}, {9, 0}, {9, 9}, {0, 0}}, {{4, 2}, {6, 2}, {6, 3}, {4, 2}}});
    WriteLayer(
        {PointAt(0.1, 1e300), PointsAt({{1, 2}, {3, 4}}), LineThrough({{0, 0}, {1, 1}}), region});

    const std::vector<app::Feature> features = Read();

    ASSERT_EQ(features.size(), 4U);
    EXPECT_EQ(features[0].geometry.points, (std::vector<shr::Vec2d>{{0.1, 1e300}}));
    EXPECT_EQ(features[1].geometry.points, (std::vector<shr::Vec2d>{{1, 2}, {3, 4}}));
    EXPECT_EQ(features[2].geometry.kind, GeometryKind::Line);
    EXPECT_EQ(features[2].geometry.points, (std::vector<shr::Vec2d>{{0, 0}, {1, 1}}));
    EXPECT_EQ(features[3].geometry.kind, GeometryKind::Region);
    EXPECT_EQ(features[3].geometry.points, region.geometry.points);
    EXPECT_EQ(features[3].geometry.partSizes, region.geometry.partSizes);
}

TEST_F(GeoPackageReader, GivesPromotedGeometriesAsOfSeveralParts) {
    WriteLayer({PointAt(1, 2), PointsAt({{3, 4}, {5, 6}})});

    const std::vector<app::Feature> features = Read();

    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[0].geometry.points, (std::vector<shr::Vec2d>{{1, 2}}));
    EXPECT_TRUE(features[0].geometry.isMulti);
}

TEST_F(GeoPackageReader, KeepsSeveralLinesAndCollectionsAsOneFeatureEach) {
    app::Feature lines = LineThrough({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}});
    lines.geometry.partSizes = {2, 3};
    lines.geometry.isMulti = true;
    app::Feature collection;
    collection.geometry.kind = GeometryKind::Collection;
    collection.members = {PointAt(1, 2).geometry, LineThrough({{0, 0}, {1, 1}}).geometry};
    WriteLayer({lines, collection});

    const std::vector<app::Feature> features = Read();

    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[0].geometry, lines.geometry);
    EXPECT_EQ(features[1].geometry.kind, GeometryKind::Collection);
    ASSERT_EQ(features[1].members.size(), 2U);
    EXPECT_EQ(features[1].members[0], collection.members[0]);
    EXPECT_EQ(features[1].members[1].points, collection.members[1].points);
}

TEST_F(GeoPackageReader, NumbersFeaturesFromOne) {
    WriteLayer({PointAt(1, 2), PointAt(3, 4)});

    EXPECT_EQ(Read().back().number, 2U);
}

TEST_F(GeoPackageReader, GivesBackTypedValues) {
    const std::vector<app::Value> values{std::int64_t{-7},
                                         std::int64_t{9007199254740993},
                                         0.5,
                                         std::string("gr\xC3\xBCn"),
                                         std::string("2024-01-31"),
                                         std::string("2024-01-31T01:02:03.004"),
                                         true,
                                         std::monostate()};
    const std::vector<app::LayerColumn> columns{
        Column("A", ColumnKind::Integer), Column("B", ColumnKind::LargeInt),
        Column("C", ColumnKind::Float),   Column("D", ColumnKind::Char, 8),
        Column("E", ColumnKind::Date),    Column("F", ColumnKind::DateTime),
        Column("G", ColumnKind::Logical), Column("H", ColumnKind::SmallInt)};
    WriteLayer({PointAt(1, 2, values)}, columns);

    EXPECT_EQ(Read().front().values, values);
}

TEST_F(GeoPackageReader, TellsTheColumnsOfALayer) {
    WriteLayer({}, {Column("A", ColumnKind::SmallInt), Column("B", ColumnKind::Char, 8),
                    Column("C", ColumnKind::Decimal), Column("D", ColumnKind::Logical)});

    const app::GeoPackageReader reader(Path());

    const std::vector<app::LayerColumn>& columns = reader.Layers().front().columns;
    ASSERT_EQ(columns.size(), 4U);
    EXPECT_EQ(columns[0].name, "A");
    EXPECT_EQ(columns[0].kind, ColumnKind::SmallInt);
    EXPECT_EQ(columns[1].kind, ColumnKind::Char);
    EXPECT_EQ(columns[1].width, 8);
    EXPECT_EQ(columns[2].kind, ColumnKind::Float);
    EXPECT_EQ(columns[3].kind, ColumnKind::Logical);
}

TEST_F(GeoPackageReader, TellsTheSystemOfALayer) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(app::GeoPackageReader(Path()).Layers().front().reference.code, 4326);
}

TEST_F(GeoPackageReader, KnowsNoSystemOfAnUndefinedOne) {
    WriteLayer({PointAt(1, 2)}, {}, {});

    EXPECT_TRUE(app::GeoPackageReader(Path()).Layers().front().reference.IsUndefined());
}

TEST_F(GeoPackageReader, KeepsRowsWithoutGeometryInTheirPlace) {
    WriteLayer({PointAt(1, 2), app::Feature(), PointAt(3, 4)});

    const std::vector<app::Feature> features = Read();

    ASSERT_EQ(features.size(), 3U);
    EXPECT_EQ(features[1].geometry.kind, GeometryKind::None);
    EXPECT_EQ(features[2].geometry.points, (std::vector<shr::Vec2d>{{3, 4}}));
}

TEST_F(GeoPackageReader, StopsWhenTheSinkHasEnough) {
    WriteLayer({PointAt(1, 2), PointAt(3, 4), PointAt(5, 6)});
    app::GeoPackageReader reader(Path());
    static_cast<void>(reader.Begin(0, TheReporter()));
    int count = 0;

    reader.Read(TheReporter(), [&count](app::Feature&) { return ++count < 2; });

    EXPECT_EQ(count, 2);
}

TEST_F(GeoPackageReader, ReadsALayerAsOftenAsWanted) {
    WriteLayer({PointAt(1, 2), PointAt(3, 4)});
    app::GeoPackageReader reader(Path());
    static_cast<void>(reader.Begin(0, TheReporter()));
    int count = 0;
    const auto counting = [&count](app::Feature&) { return ++count > 0; };

    reader.Read(TheReporter(), counting);
    reader.Read(TheReporter(), counting);

    EXPECT_EQ(count, 4);
}

TEST_F(GeoPackageReader, TellsTheFactsOfALayer) {
    WriteLayer({PointAt(1, 2)}, {Column("A", ColumnKind::SmallInt)});
    app::GeoPackageReader reader(Path());

    const app::LayerFacts facts = reader.Begin(0, TheReporter());

    EXPECT_EQ(facts.name, "layer");
    ASSERT_EQ(facts.columns.size(), 1U);
    EXPECT_EQ(facts.columns.front().name, "A");
    EXPECT_TRUE(app::IsWgs84(*facts.system));
    EXPECT_FALSE(facts.pair);
}

TEST_F(GeoPackageReader, ReadsALayerByItsName) {
    WriteTwoLayers();

    EXPECT_EQ(Read("places").front().geometry.kind, GeometryKind::Points);
}

TEST_F(GeoPackageReader, AsksWhichOfSeveralLayers) {
    WriteTwoLayers();

    EXPECT_EQ(ErrorOf(), Path().string() +
                             ": holds several layers; choose with --layer, or merge them with "
                             "--merge, or write a file each with --output-dir: "
                             "roads, places");
}

TEST_F(GeoPackageReader, NamesTheLayersThatAreThere) {
    WriteTwoLayers();

    EXPECT_EQ(ErrorOf("rivers"),
              Path().string() + ": holds no layer rivers; it has: roads, places");
}

TEST_F(GeoPackageReader, RefusesAFileThatIsNoDatabase) {
    Folder().Write("out.gpkg", "not a database, but a text of some length");

    EXPECT_EQ(ErrorOf(), Path().string() + ": can't read: file is not a database");
}

TEST_F(GeoPackageReader, RefusesAFileThatIsNotThere) {
    EXPECT_EQ(ErrorOf(), Path().string() + ": can't read: unable to open database file");
}

TEST_F(GeoPackageReader, RefusesADatabaseThatIsNoPackage) {
    Folder().Write("out.gpkg", "");

    EXPECT_EQ(ErrorOf(), Path().string() + ": is a database, but no GeoPackage with features: it "
                                           "has no table gpkg_geometry_columns");
}

TEST_F(GeoPackageReader, RefusesAPackageWithoutLayers) {
    WriteLayer({});
    Query("DELETE FROM gpkg_contents");

    EXPECT_EQ(ErrorOf(), Path().string() + ": holds no layer with features");
}

TEST_F(GeoPackageReader, NamesTheRowOfABrokenGeometry) {
    WriteLayer({PointAt(1, 2), PointAt(3, 4)});
    Query("DROP TRIGGER rtree_layer_geom_update1; DROP TRIGGER rtree_layer_geom_update2");
    Query("UPDATE layer SET geom = x'4750' WHERE fid = 2");

    EXPECT_EQ(ErrorOf(), Path().string() + ": layer layer, row 2: the geometry ends too early");
}

TEST_F(GeoPackageReader, RefusesALayerWithoutItsGeometryColumn) {
    WriteLayer({PointAt(1, 2)});
    Query("UPDATE gpkg_geometry_columns SET column_name = 'shape'");

    EXPECT_EQ(ErrorOf(), Path().string() + ": the layer layer has no column shape");
}

TEST_F(GeoPackageReader, TakesATableNameThatIsSqlAsAName) {
    Writer().BeginLayer("x\"; DROP TABLE gpkg_contents; --", {}, app::Wgs84Reference());
    Write(PointAt(1, 2));
    Writer().Finish();

    EXPECT_EQ(Read().size(), 1U);
    EXPECT_EQ(Query("SELECT count(*) FROM gpkg_contents"), "1");
}

// As a full disk is for SQLite; the words are those of every other output.
TEST(ADatabase, OnAFullDiskSaysThatThereIsNoSpaceLeft) {
    const support::TemporaryFolder folder;
    app::SqliteDatabase database(folder.path() / "a.gpkg", app::SqliteDatabase::Mode::Create,
                                 "a.gpkg");
    database.Execute("PRAGMA max_page_count = 2; CREATE TABLE t (text)");
    try {
        database.Execute("INSERT INTO t VALUES (hex(zeroblob(100000)))");
        FAIL() << "more was written than there is space for";
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(), "a.gpkg: can't write: No space left on device");
    }
}

}  // namespace
