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
    EXPECT_TRUE(app::IsWgs84(facts.system.get()));
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

INSTANTIATE_TEST_SUITE_P(, KindOfAProperty,
                         testing::Values(KindRow{"WholeNumbers", "1", "-2", ColumnKind::LargeInt},
                                         KindRow{"Numbers", "1", "2.5", ColumnKind::Float},
                                         KindRow{"Truths", "true", "false", ColumnKind::Logical},
                                         KindRow{"Texts", "\"a\"", "\"b\"", ColumnKind::Char},
                                         KindRow{"NumbersAndTexts", "1", "\"b\"", ColumnKind::Char},
                                         KindRow{"NumbersAndTruths", "1", "true", ColumnKind::Char},
                                         KindRow{"NullAndNumbers", "null", "1",
                                                 ColumnKind::LargeInt},
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
    std::size_t features;
    std::size_t points;  // of the last feature
    std::size_t parts;   // of the last feature
};

std::ostream& operator<<(std::ostream& out, const GeometryRow& row) {
    return out << row.name;
}

class GeometryOfGeoJson : public GeoJsonReader, public testing::WithParamInterface<GeometryRow> {};

TEST_P(GeometryOfGeoJson, BecomesFeatures) {
    const std::vector<app::Feature> features =
        FeaturesOf(CollectionOf(FeatureOf(GetParam().geometry, R"({"id":7})")));

    ASSERT_EQ(features.size(), GetParam().features);
    const app::Geometry& last = features.back().geometry;
    EXPECT_EQ(last.kind, GetParam().kind);
    EXPECT_EQ(last.points.size(), GetParam().points);
    EXPECT_EQ(last.partSizes.size(), GetParam().parts);
    EXPECT_EQ(features.back().values.front(), Value(std::int64_t{7}));
}

INSTANTIATE_TEST_SUITE_P(
    , GeometryOfGeoJson,
    testing::Values(
        GeometryRow{"Point", R"({"type":"Point","coordinates":[1,2,3]})", GeometryKind::Points, 1,
                    1, 0},
        GeometryRow{"MultiPoint", R"({"type":"MultiPoint","coordinates":[[1,2],[3,4]]})",
                    GeometryKind::Points, 1, 2, 0},
        GeometryRow{"LineString", R"({"type":"LineString","coordinates":[[1,2],[3,4]]})",
                    GeometryKind::Line, 1, 2, 0},
        GeometryRow{
            "MultiLineString",
            R"({"type":"MultiLineString","coordinates":[[[1,2],[3,4]],[[5,6],[7,8],[9,9]]]})",
            GeometryKind::Line, 2, 3, 0},
        GeometryRow{
            "Polygon",
            R"({"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,0]],[[4,2],[6,2],[6,3],[4,2]]]})",
            GeometryKind::Region, 1, 8, 2},
        GeometryRow{
            "MultiPolygon",
            R"({"type":"MultiPolygon","coordinates":[[[[0,0],[9,0],[9,9],[0,0]]],[[[4,2],[6,2],[6,3],[4,2]]]]})",
            GeometryKind::Region, 1, 8, 2},
        GeometryRow{
            "Collection",
            R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},{"type":"LineString","coordinates":[[1,2],[3,4]]}]})",
            GeometryKind::Line, 2, 2, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(GeoJsonReader, LeavesOutFeaturesWithoutGeometryAndCountsThem) {
    const std::string empty = R"({"type":"Polygon","coordinates":[]})";

    EXPECT_EQ(FeaturesOf(CollectionOf(FeatureOf("null") + "," + FeatureOf(empty) + "," + PointOf()))
                  .size(),
              1U);

    EXPECT_EQ(messages_.Text(),
              "qolf: warning: " + Path() + ": 2 features have no geometry and was left out\n");
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
        FaultRow{"NoJson", "{", "is no valid GeoJSON: parse error"},
        FaultRow{"BrokenLine", PointOf() + "\n{\n" + PointOf(), "is no valid GeoJSON: parse error"},
        FaultRow{"NoObject", CollectionOf(PointOf() + ",7"),
                 "\"features\" holds 7, which is no object"},
        FaultRow{"NoObjectOnALine", PointOf() + "\n" + CollectionOf("[]"),
                 "feature 2 is no object"},
        FaultRow{"NoFeatures", R"({"type":"FeatureCollection","features":{}})",
                 "the FeatureCollection has no array \"features\""},
        FaultRow{"NoGeometryObject", CollectionOf(FeatureOf("7")),
                 "feature 1: the geometry is no object"},
        FaultRow{
            "UnknownType",
            CollectionOf(PointOf() + "," + FeatureOf(R"({"type":"Circle","coordinates":[1,2]})")),
            "feature 2: the geometry type \"Circle\" is none of GeoJSON's"},
        FaultRow{"NoCoordinates", CollectionOf(FeatureOf(R"({"type":"Point"})")),
                 "feature 1: the geometry has no array \"coordinates\""},
        FaultRow{"ShortPosition", CollectionOf(FeatureOf(R"({"type":"Point","coordinates":[1]})")),
                 "feature 1: a position is no array of two or more numbers"},
        FaultRow{"TextAsNumber",
                 CollectionOf(FeatureOf(R"({"type":"Point","coordinates":["1",2]})")),
                 "feature 1: a position is no array of two or more numbers"},
        FaultRow{"FlatLine",
                 CollectionOf(FeatureOf(R"({"type":"LineString","coordinates":[1,2]})")),
                 "feature 1: a position is no array of two or more numbers"},
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
