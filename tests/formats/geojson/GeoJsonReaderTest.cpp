#include "app/formats/geojson/GeoJsonReader.h"

#include "app/base/Errors.h"
#include "app/crs/Reprojection.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::GeometryKind;
using app::Value;

std::string FeatureOf(const std::string& geometry, const std::string& properties = "{}") {
    return R"({"type":"Feature","properties":)" + properties + R"(,"geometry":)" + geometry + "}";
}

std::string PointOf(const std::string& properties = "{}") {
    return FeatureOf(R"({"type":"Point","coordinates":[1,2]})", properties);
}

std::string CollectionOf(const std::string& features) {
    return R"({"type":"FeatureCollection","features":[)" + features + "]}";
}

class GeoJsonReader : public testing::Test {
protected:
    std::string Path() const { return (folder_.path() / "in.geojson").string(); }

    app::LayerFacts FactsOf(const std::string& text) {
        folder_.Write("in.geojson", text);
        return app::GeoJsonReader(Path()).Begin(0, messages_.Reporter());
    }

    std::vector<app::Feature> FeaturesOf(const std::string& text) {
        folder_.Write("in.geojson", text);
        app::GeoJsonReader reader(Path());
        static_cast<void>(reader.Begin(0, messages_.Reporter()));
        std::vector<app::Feature> features;
        reader.Read(messages_.Reporter(), [&](app::Feature& feature) {
            features.push_back(feature);
            return true;
        });
        return features;
    }

    std::string ErrorOf(const std::string& text) {
        try {
            FeaturesOf(text);
        } catch (const app::Failure& failure) {
            return failure.what();
        }
        return "none";
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

TEST_F(GeoJsonReader, KnowsTheLayerByTheNameOfTheFile) {
    const app::LayerFacts facts = FactsOf(CollectionOf(PointOf()));

    EXPECT_EQ(facts.name, "in");
    EXPECT_TRUE(app::IsWgs84(*facts.system));
    EXPECT_FALSE(facts.knownExtent);
    EXPECT_FALSE(facts.pair);
}

TEST_F(GeoJsonReader, TakesTheBoxOfTheWholeAsTheExtent) {
    const std::string rest = R"("features":[)" + PointOf() + "]}";

    EXPECT_EQ(FactsOf(R"({"type":"FeatureCollection","bbox":[1,2,3,4],)" + rest).knownExtent,
              (shr::Box2d{1, 2, 3, 4}));
    EXPECT_EQ(FactsOf(R"({"type":"FeatureCollection","bbox":[1,2,9,3,4,9],)" + rest).knownExtent,
              (shr::Box2d{1, 2, 3, 4}));
    EXPECT_FALSE(FactsOf(R"({"type":"FeatureCollection","bbox":[1,2,3],)" + rest).knownExtent);
}

TEST_F(GeoJsonReader, MakesColumnsOfPropertiesInFirstSeenOrder) {
    const app::LayerFacts facts =
        FactsOf(CollectionOf(PointOf(R"({"b":1,"a":"x"})") + "," + PointOf(R"({"c":true,"b":2})")));

    ASSERT_EQ(facts.columns.size(), 3U);
    EXPECT_EQ(facts.columns[0].name, "b");
    EXPECT_EQ(facts.columns[1].name, "a");
    EXPECT_EQ(facts.columns[2].name, "c");
}

struct KindRow {
    const char* name;
    const char* first;
    const char* second;
    ColumnKind expected;
};

std::ostream& operator<<(std::ostream& out, const KindRow& row) {
    return out << row.name;
}

class KindOfAProperty : public GeoJsonReader, public testing::WithParamInterface<KindRow> {};

TEST_P(KindOfAProperty, HoldsAllItsValues) {
    const auto properties = [](const char* value) { return R"({"p":)" + std::string(value) + "}"; };
    const app::LayerFacts facts = FactsOf(CollectionOf(PointOf(properties(GetParam().first)) + "," +
                                                       PointOf(properties(GetParam().second))));

    EXPECT_EQ(facts.columns.front().kind, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    , KindOfAProperty,
    testing::Values(KindRow{"WholeNumbers", "1", "-2", ColumnKind::LargeInt},
                    KindRow{"Numbers", "1", "2.5", ColumnKind::Float},
                    KindRow{"Truths", "true", "false", ColumnKind::Logical},
                    KindRow{"Texts", "\"a\"", "\"b\"", ColumnKind::Char},
                    KindRow{"Dates", "\"2026-01-31\"", "\"1999-12-01\"", ColumnKind::Date},
                    KindRow{"DatesAndTexts", "\"2026-01-31\"", "\"soon\"", ColumnKind::Char},
                    KindRow{"DatesAndMoments", "\"2026-01-31\"", "\"2026-01-31T10:11:12\"",
                            ColumnKind::Char},
                    KindRow{"Times", "\"10:11:12\"", "\"23:59:59.5\"", ColumnKind::Time},
                    KindRow{"Moments", "\"2026-01-31T10:11:12\"", "\"2026-01-31T10:11:12.345Z\"",
                            ColumnKind::DateTime},
                    KindRow{"NumbersAndTexts", "1", "\"b\"", ColumnKind::Char},
                    KindRow{"NumbersAndTruths", "1", "true", ColumnKind::Char},
                    KindRow{"NullAndNumbers", "null", "1", ColumnKind::LargeInt},
                    KindRow{"Nulls", "null", "null", ColumnKind::Char},
                    KindRow{"Objects", "{}", "[1]", ColumnKind::Char}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(GeoJsonReader, GivesValuesInTheOrderOfTheColumns) {
    const std::vector<app::Feature> features = FeaturesOf(
        CollectionOf(PointOf(R"({"a":1,"b":"x","c":1.5,"d":true,"e":null,"f":{"g":[1,2]}})") + "," +
                     PointOf(R"({"b":"y"})")));

    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[0].values,
              (std::vector<Value>{std::int64_t{1}, std::string("x"), 1.5, true, std::monostate(),
                                  std::string(R"({"g":[1,2]})")}));
    EXPECT_EQ(features[1].values[1], Value(std::string("y")));
    EXPECT_EQ(features[1].values[0], Value(std::monostate()));
    EXPECT_EQ(features[1].number, 2U);
}

TEST_F(GeoJsonReader, KeepsWholeNumbersBeyondTheLargestAsTheirText) {
    EXPECT_EQ(FeaturesOf(CollectionOf(PointOf(R"({"a":18446744073709551615})")))[0].values[0],
              Value(std::string("18446744073709551615")));
}

struct FramingRow {
    const char* name;
    std::string text;
    std::size_t count;
};

std::ostream& operator<<(std::ostream& out, const FramingRow& row) {
    return out << row.name;
}

class FramingOfGeoJson : public GeoJsonReader, public testing::WithParamInterface<FramingRow> {};

TEST_P(FramingOfGeoJson, IsSeenByTheContent) {
    EXPECT_EQ(FeaturesOf(GetParam().text).size(), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(
    , FramingOfGeoJson,
    testing::Values(FramingRow{"Collection", CollectionOf(PointOf() + "," + PointOf()), 2},
                    FramingRow{"Feature", PointOf(), 1},
                    FramingRow{"Geometry", R"({"type":"Point","coordinates":[1,2]})", 1},
                    FramingRow{"FeatureOnLines",
                               "{\n\"type\":\"Feature\",\n\"properties\":{},\n"
                               "\"geometry\":{\"type\":\"Point\","
                               "\"coordinates\":[1,2]}}\n",
                               1},
                    FramingRow{"Lines", PointOf() + "\n\n" + PointOf() + "\r\n", 2},
                    FramingRow{"LinesOfGeometries",
                               "{\"type\":\"Point\",\"coordinates\":[1,2]}\n" + PointOf(), 2},
                    FramingRow{"Sequence", "\x1E" + PointOf() + "\n\x1E" + PointOf() + "\n", 2},
                    FramingRow{"SequenceWithABlank", "\x1E\n\x1E" + PointOf(), 1},
                    FramingRow{"CollectionsOnLines",
                               CollectionOf(PointOf()) + "\n" + CollectionOf(PointOf()), 2}),
    [](const auto& row) { return std::string(row.param.name); });

struct GeometryRow {
    const char* name;
    const char* geometry;
    GeometryKind kind;
    std::size_t points;
    std::size_t parts;
    std::size_t members = 0;
};

std::ostream& operator<<(std::ostream& out, const GeometryRow& row) {
    return out << row.name;
}

class GeometryOfGeoJson : public GeoJsonReader, public testing::WithParamInterface<GeometryRow> {};

TEST_P(GeometryOfGeoJson, BecomesOneFeature) {
    const std::vector<app::Feature> features =
        FeaturesOf(CollectionOf(FeatureOf(GetParam().geometry, R"({"id":7})")));

    ASSERT_EQ(features.size(), 1U);
    const app::Geometry& geometry = features.front().geometry;
    EXPECT_EQ(geometry.kind, GetParam().kind);
    EXPECT_EQ(geometry.points.size(), GetParam().points);
    EXPECT_EQ(geometry.partSizes.size(), GetParam().parts);
    EXPECT_EQ(geometry.isMulti, std::string(GetParam().name).starts_with("Multi") &&
                                    geometry.kind != GeometryKind::Region);
    EXPECT_EQ(features.front().members.size(), GetParam().members);
    EXPECT_EQ(features.front().values.front(), Value(std::int64_t{7}));
}

INSTANTIATE_TEST_SUITE_P(
    , GeometryOfGeoJson,
    testing::Values(
        GeometryRow{"Point", R"({"type":"Point","coordinates":[1,2,3]})", GeometryKind::Points, 1,
                    0},
        GeometryRow{"MultiPoint", R"({"type":"MultiPoint","coordinates":[[1,2],[3,4]]})",
                    GeometryKind::Points, 2, 0},
        GeometryRow{"LineString", R"({"type":"LineString","coordinates":[[1,2],[3,4]]})",
                    GeometryKind::Line, 2, 0},
        GeometryRow{
            "MultiLineString",
            R"({"type":"MultiLineString","coordinates":[[[1,2],[3,4]],[],[[5,6],[7,8],[9,9]]]})",
            GeometryKind::Line, 5, 2},
        GeometryRow{
            "Polygon",
            R"({"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,0]],[[4,2],[6,2],[6,3],[4,2]]]})",
            GeometryKind::Region, 8, 2},
        GeometryRow{
            "MultiPolygon",
            R"({"type":"MultiPolygon","coordinates":[[[[0,0],[9,0],[9,9],[0,0]]],[[[4,2],[6,2],[6,3],[4,2]]]]})",
            GeometryKind::Region, 8, 2},
        GeometryRow{
            "Collection",
            R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},{"type":"GeometryCollection","geometries":[{"type":"LineString","coordinates":[[1,2],[3,4]]}]},{"type":"Point","coordinates":[]},null]})",
            GeometryKind::Collection, 0, 0, 2},
        GeometryRow{"EmptyCollection", R"({"type":"GeometryCollection","geometries":[]})",
                    GeometryKind::None, 0, 0},
        GeometryRow{"EmptyPolygon", R"({"type":"Polygon","coordinates":[]})", GeometryKind::None, 0,
                    0},
        GeometryRow{"Null", "null", GeometryKind::None, 0, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(GeoJsonReader, KeepsFeaturesWithoutGeometryInTheirPlace) {
    const std::vector<app::Feature> features =
        FeaturesOf(CollectionOf(FeatureOf("null") + "," + PointOf()));

    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[0].geometry.kind, GeometryKind::None);
    EXPECT_EQ(messages_.Text(), "");
}

TEST_F(GeoJsonReader, WarnsOfAnInputWithoutFeatures) {
    EXPECT_EQ(FeaturesOf(CollectionOf("")).size(), 0U);

    EXPECT_EQ(messages_.Text(), "qolf: warning: " + Path() + ": holds no features\n");
}

TEST_F(GeoJsonReader, StopsWhenTheSinkHasEnough) {
    folder_.Write("in.geojson", CollectionOf(PointOf() + "," + PointOf() + "," + PointOf()));
    app::GeoJsonReader reader(Path());
    static_cast<void>(reader.Begin(0, messages_.Reporter()));
    int count = 0;

    reader.Read(messages_.Reporter(), [&count](app::Feature&) { return ++count < 2; });

    EXPECT_EQ(count, 2);
}

TEST_F(GeoJsonReader, ReadsAsOftenAsWanted) {
    folder_.Write("in.geojson", PointOf() + "\n" + PointOf());
    app::GeoJsonReader reader(Path());
    static_cast<void>(reader.Begin(0, messages_.Reporter()));
    int count = 0;
    const auto counting = [&count](app::Feature&) { return ++count > 0; };

    reader.Read(messages_.Reporter(), counting);
    reader.Read(messages_.Reporter(), counting);

    EXPECT_EQ(count, 4);
}

TEST_F(GeoJsonReader, RefusesAFileThatIsNotThere) {
    try {
        const app::GeoJsonReader reader((folder_.path() / "none.geojson").string());
        FAIL() << "the file is not missed";
    } catch (const app::Failure& failure) {
        EXPECT_EQ(std::string(failure.what()), (folder_.path() / "none.geojson").string() +
                                                   ": can't open: No such file or directory");
    }
}

struct StyleRow {
    const char* name;
    const char* geometry;
    const char* properties;
    app::Style style;
};

std::ostream& operator<<(std::ostream& out, const StyleRow& row) {
    return out << row.name;
}

class StyleOfGeoJson : public GeoJsonReader, public testing::WithParamInterface<StyleRow> {};

TEST_P(StyleOfGeoJson, IsWhatThePropertiesSay) {
    const std::vector<app::Feature> features =
        FeaturesOf(CollectionOf(FeatureOf(GetParam().geometry, GetParam().properties)));

    EXPECT_EQ(features.front().geometry.style, GetParam().style);
    EXPECT_EQ(features.front().values.empty(), std::string(GetParam().properties) == "{}");
}

constexpr const char* kPoint = R"({"type":"Point","coordinates":[1,2]})";
constexpr const char* kLine = R"({"type":"LineString","coordinates":[[1,2],[3,4]]})";
constexpr const char* kArea = R"({"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,0]]]})";

app::Style PenStyle(int width, int pattern, std::uint32_t color) {
    app::Style style;
    style.pen = app::Pen{width, pattern, color};
    return style;
}

app::Style BrushStyle(int pattern, std::uint32_t fore) {
    app::Style style;
    style.brush = app::Brush{pattern, fore};
    return style;
}

app::Style SymbolStyle(std::uint32_t color, int size, int shape = 34) {
    app::Style style;
    style.symbol = app::Symbol{.shape = shape, .color = color, .size = size};
    return style;
}

INSTANTIATE_TEST_SUITE_P(
    , StyleOfGeoJson,
    testing::Values(
        StyleRow{"Nothing", kLine, "{}", {}},
        StyleRow{"Stroke", kLine, R"({"stroke":"#ff8000","stroke-width":3})",
                 PenStyle(3, 2, 0xFF8000)},
        StyleRow{"ShortColor", kLine, R"({"stroke":"#f80","stroke-width":"1"})",
                 PenStyle(1, 2, 0xFF8800)},
        StyleRow{"StrokeAlone", kLine, R"({"stroke":"000080"})", PenStyle(2, 2, 0x000080)},
        StyleRow{"WidthAlone", kLine, R"({"stroke-width":1.5})", PenStyle(21, 2, 0x555555)},
        StyleRow{"WideStroke", kLine, R"({"stroke-width":20})", PenStyle(160, 2, 0x555555)},
        StyleRow{"InvisibleStroke", kLine, R"({"stroke":"#000000","stroke-opacity":0})",
                 PenStyle(2, 1, 0)},
        StyleRow{"WhatIsNoColor", kLine, R"({"stroke":"red","stroke-width":null})", {}},
        StyleRow{"NoFillOfALine", kLine, R"({"fill":"#ff0000","marker-color":"#ff0000"})", {}},
        StyleRow{"Fill", kArea, R"({"fill":"#ff0000"})", BrushStyle(2, 0xFF0000)},
        StyleRow{"NoFill", kArea, R"({"fill":"#ff0000","fill-opacity":0})",
                 BrushStyle(1, 0xFF0000)},
        StyleRow{"ThinFill", kArea, R"({"fill":"#ff0000","fill-opacity":0.2})",
                 BrushStyle(5, 0xFF0000)},
        StyleRow{"HalfFill", kArea, R"({"fill":"#ff0000","fill-opacity":0.5})",
                 BrushStyle(8, 0xFF0000)},
        StyleRow{"NearlySolidFill", kArea, R"({"fill":"#ff0000","fill-opacity":0.8})",
                 BrushStyle(2, 0xFF0000)},
        StyleRow{"Marker", kPoint, R"({"marker-color":"#00f","marker-size":"large"})",
                 SymbolStyle(0x0000FF, 18)},
        StyleRow{"SizeAlone", kPoint, R"({"marker-size":"small"})", SymbolStyle(0x7E7E7E, 8)},
        StyleRow{"ColorAlone", kPoint, R"({"marker-color":"#0000ff"})", SymbolStyle(0x0000FF, 12)},
        StyleRow{"Shape", kPoint, R"({"marker-symbol":"triangle-stroked"})",
                 SymbolStyle(0x7E7E7E, 12, 42)},
        StyleRow{"IconWithAColor", kPoint, R"({"marker-symbol":"bus","marker-color":"#0000ff"})",
                 SymbolStyle(0x0000FF, 12)},
        StyleRow{"IconAlone", kPoint, R"({"marker-symbol":"bus"})", {}}),
    [](const auto& row) { return std::string(row.param.name); });

struct FaultRow {
    const char* name;
    std::string text;
    const char* reason;  // behind the file's name
};

std::ostream& operator<<(std::ostream& out, const FaultRow& row) {
    return out << row.name;
}

class FaultOfGeoJson : public GeoJsonReader, public testing::WithParamInterface<FaultRow> {};

TEST_P(FaultOfGeoJson, IsNamedWithItsFeature) {
    const std::string error = ErrorOf(GetParam().text);

    EXPECT_TRUE(error.starts_with(Path() + ": " + GetParam().reason)) << error;
}

INSTANTIATE_TEST_SUITE_P(
    , FaultOfGeoJson,
    testing::Values(
        FaultRow{"NoJson", "{", "is not valid GeoJSON: parse error"},
        FaultRow{"BrokenLine", PointOf() + "\n{\n" + PointOf(),
                 "is not valid GeoJSON: parse error"},
        FaultRow{"NoObject", CollectionOf(PointOf() + ",7"),
                 "\"features\" holds 7, which is not an object"},
        FaultRow{"NoObjectOnALine", PointOf() + "\n" + CollectionOf("[]"),
                 "feature 2 is not an object"},
        FaultRow{"NoFeatures", R"({"type":"FeatureCollection","features":{}})",
                 "the FeatureCollection has no array \"features\""},
        FaultRow{"NoGeometryObject", CollectionOf(FeatureOf("7")),
                 "feature 1: the geometry is not an object"},
        FaultRow{
            "UnknownType",
            CollectionOf(PointOf() + "," + FeatureOf(R"({"type":"Circle","coordinates":[1,2]})")),
            "feature 2: GeoJSON has no geometry type \"Circle\""},
        FaultRow{"NoCoordinates", CollectionOf(FeatureOf(R"({"type":"Point"})")),
                 "feature 1: the geometry has no array \"coordinates\""},
        FaultRow{"ShortPosition", CollectionOf(FeatureOf(R"({"type":"Point","coordinates":[1]})")),
                 "feature 1: a position is not an array of two or more numbers"},
        FaultRow{"TextAsNumber",
                 CollectionOf(FeatureOf(R"({"type":"Point","coordinates":["1",2]})")),
                 "feature 1: a position is not an array of two or more numbers"},
        FaultRow{"FlatLine",
                 CollectionOf(FeatureOf(R"({"type":"LineString","coordinates":[1,2]})")),
                 "feature 1: a position is not an array of two or more numbers"},
        FaultRow{"FlatPolygon",
                 CollectionOf(FeatureOf(R"({"type":"Polygon","coordinates":[1,2]})")),
                 "feature 1: the coordinates are not nested as the geometry's type asks"},
        FaultRow{"LineOfOnePosition",
                 CollectionOf(FeatureOf(R"({"type":"LineString","coordinates":[[1,2]]})")),
                 "feature 1: a line has one position only"},
        FaultRow{"DeepNesting",
                 CollectionOf(PointOf(R"({"a":)" + std::string(1100, '[') + std::string(1100, ']') +
                                      "}")),
                 "is nested deeper than 1000 levels"}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
