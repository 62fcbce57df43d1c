// From GeoJSON to pairs, by the whole command.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using cli::Result;
using cli::Sandbox;

std::string CollectionOf(const std::string& features) {
    return R"({"type":"FeatureCollection","features":[)" + features + "]}";
}

std::string FeatureOf(const std::string& geometry, const std::string& properties = "{}") {
    return R"({"type":"Feature","properties":)" + properties + R"(,"geometry":)" + geometry + "}";
}

// The lines behind Data of the file that the GeoJSON becomes.
std::string ObjectsOf(const Sandbox& sandbox, const std::string& geoJson) {
    sandbox.Write("in.geojson", geoJson);
    const Result result = sandbox.Qolf({"convert", "--no-store", "in.geojson", "out.mif"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    const std::string mif = sandbox.Read("out.mif");
    const std::size_t data = mif.find("\nData\n");
    return data == std::string::npos ? mif : mif.substr(data + 6);
}

struct GeometryRow {
    std::string name;
    std::string geometry;
    std::string objects;  // behind Data
};

std::ostream& operator<<(std::ostream& out, const GeometryRow& row) {
    return out << row.name;
}

class GeoJsonGeometry : public testing::TestWithParam<GeometryRow> {};

TEST_P(GeoJsonGeometry, BecomesTheseObjects) {
    const Sandbox sandbox;

    const std::string objects = ObjectsOf(sandbox, CollectionOf(FeatureOf(GetParam().geometry)));

    EXPECT_EQ(objects, GetParam().objects);
}

INSTANTIATE_TEST_SUITE_P(
    , GeoJsonGeometry,
    testing::Values(
        GeometryRow{"Point", R"({"type":"Point","coordinates":[1,2]})", "Point 1 2\n"},
        GeometryRow{"PointWithHeight", R"({"type":"Point","coordinates":[1,2,3]})", "Point 1 2\n"},
        GeometryRow{"MultiPoint", R"({"type":"MultiPoint","coordinates":[[1,2],[3,4]]})",
                    "Multipoint 2\n1 2\n3 4\n"},
        GeometryRow{"LineString", R"({"type":"LineString","coordinates":[[1,2],[3,4]]})",
                    "Line 1 2 3 4\n"},
        GeometryRow{"MultiLineString",
                    R"({"type":"MultiLineString","coordinates":[[[1,2],[3,4]],[[5,6],[7,8]]]})",
                    "Pline Multiple 2\n  2\n1 2\n3 4\n  2\n5 6\n7 8\n"},
        GeometryRow{"PolygonWithHole",
                    R"({"type":"Polygon","coordinates":[[[0,0],[9,0],[9,9],[0,0]],
                        [[1,1],[2,2],[2,1],[1,1]]]})",
                    "Region 2\n  4\n0 0\n9 0\n9 9\n0 0\n  4\n1 1\n2 2\n2 1\n1 1\n"},
        GeometryRow{"MultiPolygon",
                    R"({"type":"MultiPolygon","coordinates":[[[[0,0],[9,0],[9,9],[0,0]]],
                        [[[1,1],[2,1],[2,2],[1,1]]]]})",
                    "Region 2\n  4\n0 0\n9 0\n9 9\n0 0\n  4\n1 1\n2 1\n2 2\n1 1\n"},
        GeometryRow{"GeometryCollection",
                    R"({"type":"GeometryCollection","geometries":[
                        {"type":"Point","coordinates":[1,2]},
                        {"type":"LineString","coordinates":[[1,2],[3,4]]}]})",
                    "Collection 2\nMultipoint 1\n1 2\nPline 2\n1 2\n3 4\n"}),
    [](const auto& row) { return row.param.name; });

TEST(ConvertFromGeoJson, DeclaresLongitudeAndLatitudeOfWgs84) {
    const Sandbox sandbox;
    ObjectsOf(sandbox, CollectionOf(FeatureOf(R"({"type":"Point","coordinates":[1,2]})")));

    EXPECT_NE(
        sandbox.Read("out.mif").find("\nCoordSys Earth Projection 1, 104 Bounds (0, 1) (2, 3)\n"),
        std::string::npos);
}

TEST(ConvertFromGeoJson, TakesPropertiesAsColumnsInFirstSeenOrder) {
    const Sandbox sandbox;
    const std::string point = R"({"type":"Point","coordinates":[1,2]})";
    ObjectsOf(sandbox, CollectionOf(FeatureOf(point, R"({"z":"a","n":1.5,"o":{"k":[1,true]}})") +
                                    "," + FeatureOf(point, R"({"b":false,"z":null})")));

    EXPECT_NE(sandbox.Read("out.mif").find("\nColumns 4\n  z Char(1)\n  n Float\n  o Char(14)\n"
                                           "  b Logical\n"),
              std::string::npos)
        << sandbox.Read("out.mif");
    EXPECT_EQ(sandbox.Read("out.mid"), "\"a\",1.5,\"{\"\"k\"\":[1,true]}\",\n,,,F\n");
}

TEST(ConvertFromGeoJson, KeepsFeaturesWithoutGeometry) {
    const Sandbox sandbox;

    EXPECT_EQ(
        ObjectsOf(sandbox, CollectionOf(FeatureOf("null") + "," +
                                        FeatureOf(R"({"type":"Point","coordinates":[1,2]})"))),
        "None\nPoint 1 2\n");
}

TEST(ConvertFromGeoJson, WritesStylePropertiesAsClauses) {
    const Sandbox sandbox;

    EXPECT_EQ(ObjectsOf(sandbox, CollectionOf(FeatureOf(R"({"type":"Point","coordinates":[1,2]})",
                                                        R"({"marker-color":"#ff0000"})"))),
              "Point 1 2\n    Symbol (34,16711680,12)\n");
}

TEST(ConvertFromGeoJson, RoundsCoordinatesWhenTold) {
    const Sandbox sandbox;
    sandbox.Write("in.geojson",
                  CollectionOf(FeatureOf(R"({"type":"Point","coordinates":[1.23456,-2.99999]})")));

    const Result mif =
        sandbox.Qolf({"convert", "--no-store", "--precision", "3", "in.geojson", "out.mif"});
    const Result json = sandbox.Qolf({"convert", "--precision", "3", "in.geojson", "-"});

    EXPECT_EQ(mif.exitCode, 0) << mif.err;
    EXPECT_NE(sandbox.Read("out.mif").find("\nPoint 1.235 -3\n"), std::string::npos);
    EXPECT_NE(json.out.find("[1.235,-3]"), std::string::npos) << json.out;
}

TEST(ConvertFromGeoJson, WritesTextsInTheEncodingThatIsNamed) {
    const Sandbox sandbox;
    sandbox.Write("in.geojson", CollectionOf(FeatureOf(R"({"type":"Point","coordinates":[1,2]})",
                                                       R"({"name":"caf\u00e9"})")));

    const Result result = sandbox.Qolf(
        {"convert", "--no-store", "--encoding", "windows-1250", "in.geojson", "out.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(sandbox.Read("out.mif").find("\nCharset \"WindowsLatin2\"\n"), std::string::npos);
    EXPECT_EQ(sandbox.Read("out.mid"), "\"caf\xE9\"\n");
}

TEST(ConvertFromGeoJson, ReadsStandardInputAndTextSequences) {
    const Sandbox sandbox;
    const std::string feature = FeatureOf(R"({"type":"Point","coordinates":[1,2]})");

    const Result result = sandbox.Qolf({"convert", "--no-store", "-", "out.mif"},
                                       "\x1E" + feature + "\n\x1E" + feature + "\n");

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(sandbox.Read("out.mif").find("\nPoint 1 2\n"), std::string::npos);
}

TEST(ConvertFromGeoJson, ReadsAFeatureALine) {
    const Sandbox sandbox;
    const std::string feature = FeatureOf(R"({"type":"Point","coordinates":[1,2]})");

    const Result result =
        sandbox.Qolf({"convert", "--no-store", "-", "out.mif"}, feature + "\n" + feature + "\n");

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(sandbox.Read("out.mid"), "1\n2\n");
}

struct FaultyRow {
    std::string name;
    std::string text;
    std::string says;
};

std::ostream& operator<<(std::ostream& out, const FaultyRow& row) {
    return out << row.name;
}

class FaultyGeoJson : public testing::TestWithParam<FaultyRow> {};

TEST_P(FaultyGeoJson, IsAnErrorThatLeavesNothing) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"convert", "--no-store", "-", "out.mif"}, GetParam().text);

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find(GetParam().says), std::string::npos) << result.err;
    EXPECT_TRUE(sandbox.Names().empty());
}

INSTANTIATE_TEST_SUITE_P(
    , FaultyGeoJson,
    testing::Values(
        FaultyRow{"NoJson", "hello", "is not valid GeoJSON"},
        FaultyRow{"Cut", R"({"type":"FeatureCollection","features":[{)", "is not valid GeoJSON"},
        FaultyRow{"UnknownGeometry",
                  CollectionOf(FeatureOf(R"({"type":"Blob","coordinates":[1]})")),
                  "feature 1: GeoJSON has no geometry type \"Blob\""},
        FaultyRow{"NoCoordinates", CollectionOf(FeatureOf(R"({"type":"Point"})")),
                  "has no array \"coordinates\""},
        FaultyRow{"TextForNumber",
                  CollectionOf(FeatureOf(R"({"type":"Point","coordinates":["1",2]})")),
                  "a position is not an array of two or more numbers"},
        FaultyRow{"FlatRing",
                  CollectionOf(FeatureOf(R"({"type":"Polygon","coordinates":[[1,2],[3,4]]})")),
                  "a position is not an array"},
        FaultyRow{"LineOfOnePosition",
                  CollectionOf(FeatureOf(R"({"type":"LineString","coordinates":[[1,2]]})")),
                  "feature 1: a line has one position only"},
        FaultyRow{"TypeThatIsNoText", R"({"type":[1]})", "GeoJSON has no geometry type \"\""},
        FaultyRow{"NestedWithoutEnd",
                  CollectionOf(R"({"type":"Feature","properties":{"a":)" +
                               std::string(200'000, '[') + std::string(200'000, ']') +
                               R"(},"geometry":null})"),
                  "is nested deeper than 1000 levels"}),
    [](const auto& row) { return row.param.name; });

TEST(ConvertFromGeoJson, WritesAProjectedSystemWhenTold) {
    const Sandbox sandbox;
    sandbox.Write("in.geojson",
                  CollectionOf(FeatureOf(R"({"type":"Point","coordinates":[24.75,59.43]})")));

    const Result result =
        sandbox.Qolf({"convert", "--no-store", "--crs", "EPSG:25835", "in.geojson", "out.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(sandbox.Read("out.mif").find(
                  "\nCoordSys Earth Projection 8, 33, \"m\", 27, 0, 0.9996, 500000, 0\n"),
              std::string::npos)
        << sandbox.Read("out.mif");
}

}  // namespace
