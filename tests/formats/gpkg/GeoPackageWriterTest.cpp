// What makes a file a GeoPackage, asked with SQL: each test is a requirement of the standard or a
// promise of the writer.
#include "tests/formats/gpkg/Package.h"

#include "app/base/Errors.h"

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

class GeoPackage : public Package {};

TEST_F(GeoPackage, BeginsWithTheMagicOfTheDatabaseFormat) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Folder().Read("out.gpkg").substr(0, 16), std::string("SQLite format 3\0", 16));
}

TEST_F(GeoPackage, HasTheApplicationId) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("PRAGMA application_id"), std::to_string(0x47504B47));
}

TEST_F(GeoPackage, HasTheVersionOfTheStandard) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("PRAGMA user_version"), "10300");
}

TEST_F(GeoPackage, IsAnIntactDatabase) {
    WriteLayer({PointAt(1, 2), RegionOf({Square(0, 0, 4)}), LineThrough({{0, 0}, {1, 1}})},
               {Column("NAME", ColumnKind::Char, 10)});

    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(GeoPackage, BreaksNoForeignKey) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("PRAGMA foreign_key_check"), "");
}

TEST_F(GeoPackage, HasTheThreeSystemsThatMustBeThere) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT srs_id, organization, organization_coordsys_id "
                    "FROM gpkg_spatial_ref_sys ORDER BY srs_id"),
              "-1|NONE|-1\n0|NONE|0\n4326|EPSG|4326");
}

TEST_F(GeoPackage, DefinesWgs84InWkt) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT substr(definition, 1, 15) FROM gpkg_spatial_ref_sys "
                    "WHERE srs_id = 4326"),
              "GEOGCS[\"WGS 84\"");
}

TEST_F(GeoPackage, DeclaresTheColumnsOfTheTableOfContents) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT name, type, \"notnull\", pk FROM pragma_table_info('gpkg_contents')"),
              "table_name|TEXT|1|1\ndata_type|TEXT|1|0\nidentifier|TEXT|0|0\n"
              "description|TEXT|0|0\nlast_change|DATETIME|1|0\nmin_x|DOUBLE|0|0\n"
              "min_y|DOUBLE|0|0\nmax_x|DOUBLE|0|0\nmax_y|DOUBLE|0|0\nsrs_id|INTEGER|0|0");
}

TEST_F(GeoPackage, DeclaresTheColumnsOfTheTableOfGeometryColumns) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT name, type, \"notnull\", pk "
                    "FROM pragma_table_info('gpkg_geometry_columns')"),
              "table_name|TEXT|1|1\ncolumn_name|TEXT|1|2\ngeometry_type_name|TEXT|1|0\n"
              "srs_id|INTEGER|1|0\nz|TINYINT|1|0\nm|TINYINT|1|0");
}

TEST_F(GeoPackage, DeclaresTheColumnsOfTheTableOfSystems) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT name, type, \"notnull\", pk "
                    "FROM pragma_table_info('gpkg_spatial_ref_sys')"),
              "srs_name|TEXT|1|0\nsrs_id|INTEGER|1|1\norganization|TEXT|1|0\n"
              "organization_coordsys_id|INTEGER|1|0\ndefinition|TEXT|1|0\ndescription|TEXT|0|0");
}

TEST_F(GeoPackage, ListsTheLayerWithItsExtentInTheContents) {
    WriteLayer({PointAt(1, 20), PointAt(-3, 2.5)});

    EXPECT_EQ(Query("SELECT table_name, data_type, identifier, min_x, min_y, max_x, max_y, srs_id "
                    "FROM gpkg_contents"),
              "layer|features|layer|-3.0|2.5|1.0|20.0|4326");
}

TEST_F(GeoPackage, StampsTheLayerWithAnIsoTime) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT last_change GLOB '[0-9]*-[0-9]*-[0-9]*T[0-9]*:[0-9]*:[0-9]*.[0-9]*Z' "
                    "FROM gpkg_contents"),
              "1");
}

TEST_F(GeoPackage, HasNoExtentForALayerWithoutFeatures) {
    WriteLayer({});

    EXPECT_EQ(Query("SELECT min_x, min_y, max_x, max_y FROM gpkg_contents"), "NULL|NULL|NULL|NULL");
}

TEST_F(GeoPackage, RegistersTheGeometryColumnAsOneWithoutHeightsAndMeasures) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT table_name, column_name, geometry_type_name, srs_id, z, m "
                    "FROM gpkg_geometry_columns"),
              "layer|geom|POINT|4326|0|0");
}

TEST_F(GeoPackage, NumbersTheRowsByAnIntegerPrimaryKey) {
    WriteLayer({PointAt(1, 2), PointAt(3, 4)});

    EXPECT_EQ(Query("SELECT name, type, pk FROM pragma_table_info('layer') WHERE pk > 0"),
              "fid|INTEGER|1");
    EXPECT_EQ(Query("SELECT fid FROM layer"), "1\n2");
}

TEST_F(GeoPackage, DeclaresTheGeometryColumnWithTheTypeThatItRegisters) {
    WriteLayer({RegionOf({Square(0, 0, 1)})});

    EXPECT_EQ(Query("SELECT type FROM pragma_table_info('layer') WHERE name = 'geom'"), "POLYGON");
}

TEST_F(GeoPackage, RegistersTheIndexAsAnExtension) {
    WriteLayer({PointAt(1, 2)});

    EXPECT_EQ(Query("SELECT table_name, column_name, extension_name, scope FROM gpkg_extensions"),
              "layer|geom|gpkg_rtree_index|write-only");
}

TEST_F(GeoPackage, WritesBlobsWithTheMagicTheVersionAndTheSystem) {
    WriteLayer({LineThrough({{1, 2}, {3, 4}})});

    EXPECT_EQ(Query("SELECT hex(substr(geom, 1, 8)) FROM layer"), "47500003E6100000");
}

struct TypeRow {
    std::string name;
    std::vector<app::Feature> features;
    std::string type;
};
class ALayer : public Package, public testing::WithParamInterface<TypeRow> {};

TEST_P(ALayer, HasTheGeometryType) {
    WriteLayer(GetParam().features);

    EXPECT_EQ(Query("SELECT geometry_type_name FROM gpkg_geometry_columns"), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    , ALayer,
    testing::Values(
        TypeRow{"OfPoints", {PointAt(1, 2)}, "POINT"},
        TypeRow{"OfMultiPoints", {PointsAt({{1, 2}, {3, 4}})}, "MULTIPOINT"},
        TypeRow{"OfPointsAndMultiPoints",
                {PointAt(1, 2), PointsAt({{1, 2}, {3, 4}}), PointAt(5, 6)},
                "MULTIPOINT"},
        TypeRow{"OfLines", {LineThrough({{0, 0}, {1, 1}})}, "LINESTRING"},
        TypeRow{"OfRegionsOfOneRing", {RegionOf({Square(0, 0, 1)})}, "POLYGON"},
        TypeRow{"OfRegionsWithHoles", {RegionOf({Square(0, 0, 9), Square(1, 1, 1)})}, "POLYGON"},
        TypeRow{"OfRegionsSomeOfSeveralPolygons",
                {RegionOf({Square(0, 0, 1)}), RegionOf({Square(0, 0, 1), Square(5, 5, 1)})},
                "MULTIPOLYGON"},
        TypeRow{"OfSeveralKinds", {PointAt(1, 2), LineThrough({{0, 0}, {1, 1}})}, "GEOMETRY"},
        TypeRow{"OfNothing", {}, "GEOMETRY"}),
    [](const auto& row) { return row.param.name; });

TEST_F(GeoPackage, PromotesSingleGeometriesOfALayerThatHasCollectingOnes) {
    WriteLayer({PointAt(1, 2), PointsAt({{3, 4}, {5, 6}}), PointAt(7, 8)});

    // Header with envelope, byte order and type: 8 + 32 + 1 + 4.
    EXPECT_EQ(Query("SELECT DISTINCT hex(substr(geom, 41, 5)) FROM layer"), "0104000000");
    EXPECT_EQ(Query("SELECT ST_MinX(geom), ST_MaxY(geom) FROM layer"), "1.0|2.0\n3.0|6.0\n7.0|8.0");
}

struct ColumnRow {
    std::string name;
    app::LayerColumn column;
    app::Value value;
    std::string sqlType;
    std::string sqlValue;
};
class AColumn : public Package, public testing::WithParamInterface<ColumnRow> {};

TEST_P(AColumn, HasTypeAndValue) {
    WriteLayer({PointAt(1, 2, {GetParam().value})}, {GetParam().column});

    EXPECT_EQ(Query("SELECT type FROM pragma_table_info('layer') WHERE cid = 2"),
              GetParam().sqlType);
    EXPECT_EQ(Query("SELECT typeof(v) || ' ' || coalesce(v, '') FROM (SELECT \"V\" v FROM layer)"),
              GetParam().sqlValue);
    EXPECT_EQ(Messages(), "");
}

INSTANTIATE_TEST_SUITE_P(
    , AColumn,
    testing::Values(
        ColumnRow{"OfInteger", Column("V", ColumnKind::Integer), std::int64_t{-7}, "INTEGER",
                  "integer -7"},
        ColumnRow{"OfSmallInt", Column("V", ColumnKind::SmallInt), std::int64_t{7}, "SMALLINT",
                  "integer 7"},
        ColumnRow{"OfLargeInt", Column("V", ColumnKind::LargeInt), std::int64_t{9007199254740993},
                  "INTEGER", "integer 9007199254740993"},
        ColumnRow{"OfDecimal", Column("V", ColumnKind::Decimal, 10), 1.25, "DOUBLE", "real 1.25"},
        ColumnRow{"OfFloat", Column("V", ColumnKind::Float), 0.5, "DOUBLE", "real 0.5"},
        ColumnRow{"OfDate", Column("V", ColumnKind::Date), std::string("2024-01-31"), "DATE",
                  "text 2024-01-31"},
        ColumnRow{"OfTime", Column("V", ColumnKind::Time), std::string("23:59:59"), "TEXT",
                  "text 23:59:59"},
        ColumnRow{"OfDateTime", Column("V", ColumnKind::DateTime),
                  std::string("2024-01-31T01:02:03.004"), "DATETIME",
                  "text 2024-01-31T01:02:03.004Z"},
        ColumnRow{"OfDateTimeInSeconds", Column("V", ColumnKind::DateTime),
                  std::string("2024-01-31T01:02:03"), "DATETIME", "text 2024-01-31T01:02:03.000Z"},
        ColumnRow{"OfLogical", Column("V", ColumnKind::Logical), true, "BOOLEAN", "integer 1"},
        ColumnRow{"OfChar", Column("V", ColumnKind::Char, 8), std::string("gr\xC3\xBCn"), "TEXT(8)",
                  "text gr\xC3\xBCn"},
        ColumnRow{"OfCharWithEveryCharacterOfTwoBytes", Column("V", ColumnKind::Char, 2),
                  std::string("\xC3\xBC\xC3\xBC"), "TEXT(2)", "text \xC3\xBC\xC3\xBC"},
        ColumnRow{"OfCharWithoutWidth", Column("V", ColumnKind::Char), std::string(""), "TEXT",
                  "text "},
        ColumnRow{"OfAnUnknownType", Column("V", ColumnKind::Other), std::string("x"), "TEXT",
                  "text x"},
        ColumnRow{"OfNull", Column("V", ColumnKind::Integer), std::monostate(), "INTEGER",
                  "null "}),
    [](const auto& row) { return row.param.name; });

TEST_F(GeoPackage, KeepsAValueThatIsNoneOfItsColumnAndSaysSo) {
    WriteLayer({PointAt(1, 2, {std::string("many")}), PointAt(1, 2, {std::int64_t{3}})},
               {Column("COUNT", ColumnKind::Integer)});

    EXPECT_EQ(Query("SELECT COUNT FROM layer"), "many\n3");
    EXPECT_EQ(Messages(), "qolf: warning: " + Path().string() +
                              ": layer layer: column COUNT: 1 value does not fit the column's "
                              "type; kept as text\n");
}

TEST_F(GeoPackage, KeepsATextThatIsTooLongAndSaysSo) {
    WriteLayer({PointAt(1, 2, {std::string("abcd")}), PointAt(1, 2, {std::string("efgh")})},
               {Column("NAME", ColumnKind::Char, 3)});

    EXPECT_EQ(Query("SELECT NAME FROM layer"), "abcd\nefgh");
    EXPECT_EQ(Messages(), "qolf: warning: " + Path().string() +
                              ": layer layer: column NAME: 2 values do not fit the column's type; "
                              "kept as text\n");
}

TEST_F(GeoPackage, HoldsNoControlCharacters) {
    WriteLayer({PointAt(1, 2, {std::string("a\x1B[2Jb\0c", 8)})}, {Column("T", ColumnKind::Char)});

    EXPECT_EQ(Query("SELECT T FROM layer"), "a\xEF\xBF\xBD[2Jb\xEF\xBF\xBD"
                                            "c");
}

TEST_F(GeoPackage, KeepsLineEndsAndTabsInTexts) {
    WriteLayer({PointAt(1, 2, {std::string("a\tb\r\nc")})}, {Column("T", ColumnKind::Char)});

    EXPECT_EQ(Query("SELECT T FROM layer"), "a\tb\r\nc");
}

TEST_F(GeoPackage, HoldsNoBrokenUtf8) {
    WriteLayer({PointAt(1, 2, {std::string("a\xFF")})}, {Column("T", ColumnKind::Char)});

    EXPECT_EQ(Query("SELECT T FROM layer"), "a\xEF\xBF\xBD");
}

TEST_F(GeoPackage, GivesKeyAndGeometryOtherNamesWhenTheFileHasColumnsOfTheirs) {
    WriteLayer({PointAt(1, 2, {std::int64_t{5}, std::int64_t{6}})},
               {Column("FID", ColumnKind::Integer), Column("Geom", ColumnKind::Integer)});

    EXPECT_EQ(Query("SELECT name FROM pragma_table_info('layer')"), "fid_2\ngeom_2\nFID\nGeom");
    EXPECT_EQ(Query("SELECT column_name FROM gpkg_geometry_columns"), "geom_2");
}

TEST_F(GeoPackage, TellsColumnsApartThatDifferInCaseOnly) {
    WriteLayer({PointAt(1, 2, {std::int64_t{5}, std::int64_t{6}, std::int64_t{7}})},
               {Column("a", ColumnKind::Integer), Column("A", ColumnKind::Integer),
                Column("a_2", ColumnKind::Integer)});

    EXPECT_EQ(Query("SELECT name FROM pragma_table_info('layer') WHERE cid > 1"), "a\nA_2\na_2_2");
    EXPECT_EQ(Query("SELECT a, A_2, a_2_2 FROM layer"), "5|6|7");
}

struct NameRow {
    std::string name;
    std::string wanted;
    std::string table;
};
class ALayerName : public Package, public testing::WithParamInterface<NameRow> {};

TEST_P(ALayerName, BecomesTheTable) {
    Writer().BeginLayer(GetParam().wanted, {Column(GetParam().wanted, ColumnKind::Integer)},
                        app::Wgs84Reference());
    Write(PointAt(1, 2, {std::int64_t{5}}));
    Writer().Finish();

    EXPECT_EQ(Query("SELECT table_name FROM gpkg_contents"), GetParam().table);
    EXPECT_EQ(Query("SELECT count(*) FROM \"rtree_" + GetParam().table + "_geom\""), "1");
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

INSTANTIATE_TEST_SUITE_P(
    , ALayerName,
    testing::Values(NameRow{"WithBlanks", "my roads", "my roads"},
                    NameRow{"OfSqlQuotes", "x'; DROP TABLE gpkg_contents; --",
                            "x'; DROP TABLE gpkg_contents; --"},
                    NameRow{"OfAKeyword", "table", "table"},
                    NameRow{"OfPlaceholders", "ON TABLE GEOM NAME(", "ON TABLE GEOM NAME("},
                    NameRow{"OfThePackagesOwn", "gpkg_contents", "layer_gpkg_contents"},
                    NameRow{"OfTheDatabasesOwn", "SQLITE_master", "layer_SQLITE_master"},
                    NameRow{"OfAnIndex", "rtree_a_geom", "layer_rtree_a_geom"},
                    NameRow{"WithControlCharacters", "a\x1B\nb", "a__b"},
                    NameRow{"OfNothing", "", "layer"}),
    [](const auto& row) { return row.param.name; });

TEST_F(GeoPackage, QuotesADoubleQuoteInNames) {
    Writer().BeginLayer("a\"b", {Column("c\"d", ColumnKind::Integer)}, app::Wgs84Reference());
    Write(PointAt(1, 2, {std::int64_t{5}}));
    Writer().Finish();

    EXPECT_EQ(Query("SELECT \"c\"\"d\" FROM \"a\"\"b\""), "5");
}

TEST_F(GeoPackage, HoldsSeveralLayersOfDifferentNames) {
    Writer().BeginLayer("roads", {}, app::Wgs84Reference());
    Write(LineThrough({{0, 0}, {1, 1}}));
    Writer().BeginLayer("Roads", {}, app::Wgs84Reference());
    Write(PointAt(1, 2));
    Writer().Finish();

    EXPECT_EQ(Query("SELECT table_name, geometry_type_name FROM gpkg_geometry_columns"),
              "roads|LINESTRING\nRoads_2|POINT");
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(GeoPackage, AddsTheColumnsOfTextsWhenTheFirstTextComes) {
    app::Feature text = PointAt(3, 4, {std::int64_t{8}});
    text.geometry.kind = GeometryKind::Text;
    text.geometry.placement = {"Main\nStreet", 45.0, 2.5, app::Justify::Right};
    text.geometry.style.font = app::Font{.name = "Arial", .styleBits = 3};
    WriteLayer({PointAt(1, 2, {std::int64_t{7}}), text, PointAt(5, 6, {std::int64_t{9}})},
               {Column("ID", ColumnKind::Integer)});

    EXPECT_EQ(Query("SELECT ID, text, angle, height, font, justify "
                    "FROM layer"),
              "7|NULL|NULL|NULL|NULL|NULL\n"
              "8|Main\nStreet|45.0|2.5|Arial|right\n"
              "9|NULL|NULL|NULL|NULL|NULL");
    EXPECT_EQ(Query("SELECT geometry_type_name FROM gpkg_geometry_columns"), "POINT");
}

TEST_F(GeoPackage, WritesALineOfSeveralSectionsAsOneMultiLineString) {
    app::Feature line = LineThrough({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}});
    line.geometry.partSizes = {2, 3};
    WriteLayer({line});

    EXPECT_EQ(Query("SELECT ST_MinX(geom), ST_MaxX(geom) FROM layer"), "0.0|4.0");
    EXPECT_EQ(Query("SELECT geometry_type_name FROM gpkg_geometry_columns"), "MULTILINESTRING");
}

TEST_F(GeoPackage, WritesACollectionWithItsMembers) {
    app::Feature collection;
    collection.geometry.kind = GeometryKind::Collection;
    collection.members = {PointAt(9, 9).geometry, LineThrough({{0, 0}, {1, 1}}).geometry};
    WriteLayer({collection});

    EXPECT_EQ(Query("SELECT ST_MinX(geom), ST_MaxX(geom) FROM layer"), "0.0|9.0");
    EXPECT_EQ(Query("SELECT geometry_type_name FROM gpkg_geometry_columns"), "GEOMETRYCOLLECTION");
}

TEST_F(GeoPackage, GivesAFeatureWithoutGeometryARowWithoutAWarning) {
    WriteLayer({PointAt(1, 2), app::Feature()});

    EXPECT_EQ(Query("SELECT fid, typeof(geom) FROM layer"), "1|blob\n2|null");
    EXPECT_EQ(Messages(), "");
}

TEST_F(GeoPackage, GivesARowWithoutGeometryForCoordinatesThatAreNoNumbers) {
    WriteLayer({PointAt(std::nan(""), 2), PointAt(1, 2), PointAt(1, HUGE_VAL)});

    EXPECT_EQ(Query("SELECT fid, typeof(geom) FROM layer"), "1|null\n2|blob\n3|null");
    EXPECT_EQ(Query("SELECT min_x, max_y FROM gpkg_contents"), "1.0|2.0");
    EXPECT_EQ(Messages(), "qolf: warning: " + Path().string() +
                              ": layer layer: 2 objects have coordinates that make no geometry; "
                              "written without geometry\n");
}

TEST_F(GeoPackage, GivesARowWithoutGeometryForARegionThatEnclosesNothing) {
    WriteLayer({RegionOf({{{1, 1}, {2, 2}, {1, 1}}})});

    EXPECT_EQ(Query("SELECT typeof(geom) FROM layer"), "null");
    EXPECT_EQ(Messages(), "qolf: warning: " + Path().string() +
                              ": layer layer: 1 object has coordinates that make no geometry; "
                              "written without geometry\n");
}

TEST_F(GeoPackage, NumbersASystemOfItsOwnFromOneHundredThousand) {
    const app::SpatialReference own{
        .name = "Here", .definition = "LOCAL_CS[\"Here\"]", .description = ""};
    const app::SpatialReference there{
        .name = "There", .definition = "LOCAL_CS[\"There\"]", .description = ""};
    Writer().BeginLayer("a", {}, own);
    Writer().BeginLayer("b", {}, there);
    Writer().BeginLayer("c", {}, own);
    Writer().Finish();

    EXPECT_EQ(Query("SELECT srs_id, organization, definition FROM gpkg_spatial_ref_sys "
                    "WHERE srs_id > 4326"),
              "100000|NONE|LOCAL_CS[\"Here\"]\n100001|NONE|LOCAL_CS[\"There\"]");
    EXPECT_EQ(Query("SELECT srs_id FROM gpkg_contents"), "100000\n100001\n100000");
}

TEST_F(GeoPackage, SaysUndefinedForASystemThatIsNotKnown) {
    WriteLayer({PointAt(1, 2)}, {}, {});

    EXPECT_EQ(Query("SELECT srs_id FROM gpkg_contents"), "-1");
}

TEST_F(GeoPackage, IsNotThereBeforeItIsFinished) {
    Writer().BeginLayer("layer", {}, app::Wgs84Reference());
    Write(PointAt(1, 2));

    EXPECT_FALSE(Folder().Has("out.gpkg"));
}

TEST_F(GeoPackage, DoesNotReplaceAFile) {
    Folder().Write("out.gpkg", "mine");

    EXPECT_THROW(Writer(), app::Failure);
    EXPECT_EQ(Folder().Read("out.gpkg"), "mine");
}

}  // namespace
