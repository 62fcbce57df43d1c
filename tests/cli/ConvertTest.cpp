#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;
using Json = nlohmann::ordered_json;
using testing::Test;

// Converts and gives the parsed collection.
Json GeoJsonOf(const Sandbox& sandbox, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "convert");
    arguments.emplace_back("-");
    const Result result = sandbox.Qolf(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return Json::parse(result.out, nullptr, /*allow_exceptions=*/false);
}

TEST(ConvertToGeoJson, GivesLongitudeAndLatitudeOfWgs84) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {cli::Sample("real/utm_ridge.mif")});

    const Json first = json["features"][0]["geometry"]["coordinates"][0];
    EXPECT_NEAR(first[0].get<double>(), 174.744879866, 1e-8);
    EXPECT_NEAR(first[1].get<double>(), -34.516343497, 1e-8);
}

TEST(ConvertToGeoJson, KeepsTheFilesOwnCoordinatesWhenTold) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {"--crs", "keep", cli::Sample("real/utm_ridge.mif")});

    EXPECT_EQ(json["features"][0]["geometry"]["coordinates"][0],
              Json::parse("[292993.78,6178281.37]"));
}

TEST(ConvertToGeoJson, ReadsTheTextsInTheHeadersCharset) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {cli::Sample("real/cyrillic.mif")});

    EXPECT_EQ(json["features"][0]["properties"]["Поле_А"], "Значение А");
}

struct CharsetRow {
    std::string name;
    std::string charset;
    std::string bytes;
    std::string text;  // UTF-8
};

std::ostream& operator<<(std::ostream& out, const CharsetRow& row) {
    return out << row.name;
}

class TextOfACharset : public testing::TestWithParam<CharsetRow> {};

TEST_P(TextOfACharset, IsThisTextInGeoJson) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCharset \"" + GetParam().charset +
                               "\"\nDelimiter \",\"\nCoordSys Nonearth Units \"m\"\n"
                               "Columns 1\n  N Char(20)\nData\nPoint 1 2\n");
    sandbox.Write("a.mid", "\"" + GetParam().bytes + "\"\n");

    const Json json = GeoJsonOf(sandbox, {"a.mif"});

    EXPECT_EQ(json["features"][0]["properties"]["N"], GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , TextOfACharset,
    testing::Values(CharsetRow{"Latin1", "WindowsLatin1", "caf\xE9", "caf\u00E9"},
                    CharsetRow{"Latin2", "WindowsLatin2",
                               "\xA3\xF3"
                               "d\x9F",
                               "\u0141\u00F3d\u017A"},
                    CharsetRow{"Cyrillic", "WindowsCyrillic", "\xCC\xE8\xF0", "\u041C\u0438\u0440"},
                    CharsetRow{"Japanese", "WindowsJapanese", "\x93\x8C\x8B\x9E", "\u6771\u4EAC"},
                    CharsetRow{"Utf8", "UTF-8", "\xC5\x81\xC3\xB3", "\u0141\u00F3"},
                    CharsetRow{"UnknownIsLatin1", "Klingon", "caf\xE9", "caf\u00E9"}),
    [](const auto& row) { return row.param.name; });

TEST(ConvertToGeoJson, ReadsTheTextsInAnotherEncodingWhenTold) {
    const Sandbox sandbox;

    const Json json =
        GeoJsonOf(sandbox, {"--encoding", "UTF-8", cli::Sample("real/osm_water.mif")});

    EXPECT_NE(json.dump().find("Llac d'Engolasters"), std::string::npos);
}

TEST(ConvertToGeoJson, TypesTheValuesByTheColumns) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {cli::Sample("attributes.mif")});

    EXPECT_EQ(json["features"][0]["properties"],
              Json::parse(R"({"Name":"Main St; North","Count":1,"Small":2,"Large":3,"Value":4.5,
                  "Price":6.7,"Day":"2026-01-01","Hour":"10:11:12.000",
                  "Moment":"2026-01-01T10:11:12.000","Done":true})"));
    EXPECT_TRUE(json["features"][1]["properties"]["Count"].is_null());
}

TEST(ConvertToGeoJson, KeepsTheAttributesBehindAClauseThatSwallowsALine) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {cli::Sample("real/osm_places.mif")});

    EXPECT_EQ(json["features"][0]["properties"]["name"], "Andorra la Vella");
}

TEST(ConvertToGeoJson, LosesThemAsTheModuleDoesWithAsIs) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {"--as-is", cli::Sample("real/osm_places.mif")});

    EXPECT_TRUE(json["features"][0]["properties"].empty());
}

TEST(ConvertToGeoJson, MakesHolesOfRingsInsideRings) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCharset \"Neutral\"\nCoordSys Nonearth Units \"m\"\nData\n"
                           "Region 3\n4\n0 0\n0 9\n9 9\n9 0\n4\n3 3\n6 3\n6 6\n3 6\n"
                           "4\n20 20\n29 20\n29 29\n20 29\n");

    const Json json = GeoJsonOf(sandbox, {"a.mif"});

    EXPECT_EQ(json["features"][0]["geometry"], Json::parse(R"({"type":"MultiPolygon","coordinates":[
                  [[[0,0],[9,0],[9,9],[0,9],[0,0]],[[3,3],[3,6],[6,6],[6,3],[3,3]]],
                  [[[20,20],[29,20],[29,29],[20,29],[20,20]]]]})"));
}

TEST(ConvertToGeoJson, MakesPointsOfTextsWithTheirProperties) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {cli::Sample("texts.mif")});

    const Json turned = json["features"][2];
    EXPECT_EQ(turned["geometry"]["type"], "Point");
    EXPECT_EQ(turned["properties"]["text"], "turned");
    EXPECT_EQ(turned["properties"]["font"], "Arial");
    EXPECT_NEAR(turned["properties"]["angle"].get<double>(), 45.9, 1e-9);
    EXPECT_EQ(turned["properties"]["justify"], "right");
}

TEST(ConvertToGeoJson, AddsSimpleStylesWhenTold) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {"--styles", cli::Sample("real/cyrillic.mif")});

    EXPECT_EQ(json["features"][2]["properties"]["stroke"], "#000000");
    EXPECT_EQ(json["features"][2]["properties"]["fill"], "#ffffff");
}

TEST(ConvertToGeoJson, SelectsColumnsBoxAndNumber) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {"--select", "name,code", "--bbox", "1.5,42.5,1.6,42.6",
                                          "--limit", "2", cli::Sample("real/osm_places.mif")});

    ASSERT_EQ(json["features"].size(), 2U);
    EXPECT_EQ(json["features"][1]["properties"], Json::parse(R"({"name":"Ordino","code":1002})"));
}

TEST(ConvertToGeoJson, NamesTheColumnsThereAreForOneThereIsNot) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"convert", "--select", "nome", cli::Sample("real/osm_places.mif"), "out.geojson"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("osm_id, code, fclass, population, name"), std::string::npos);
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(ConvertToGeoJson, TakesTheCornersOfTheBoxInAnyOrder) {
    const Sandbox sandbox;
    const std::string in = cli::Sample("island-places.mif");

    const Json ordered = GeoJsonOf(sandbox, {"--bbox", "23,58.4,23.5,58.6", in});
    const Json reversed = GeoJsonOf(sandbox, {"--bbox", "23.5,58.6,23,58.4", in});

    EXPECT_FALSE(ordered["features"].empty());
    EXPECT_EQ(ordered, reversed);
}

TEST(ConvertToGeoJson, SaysSoWhenNothingMeetsTheBox) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--bbox", "1,2,3,4", cli::Sample("island-places.mif"), "-"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(Json::parse(result.out)["features"].size(), 0U);
    EXPECT_EQ(result.err, "qolf: warning: " + cli::Sample("island-places.mif") +
                              ": no object meets --bbox, whose numbers are coordinates of the "
                              "output; an empty layer is written\n");
}

TEST(ConvertToGeoJson, TakesNothingWithALimitOfNone) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--limit", "0", cli::Sample("island-places.mif"), "-"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              "{\"type\":\"FeatureCollection\",\"name\":\"island-places\",\"features\":[\n]}\n");
    EXPECT_EQ(result.err, "");
}

TEST(ConvertToGeoJson, WritesAFeatureALine) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", cli::Sample("real/cyrillic.mif"), "out.geojsonl"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    const std::string text = sandbox.Read("out.geojsonl");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
    EXPECT_TRUE(Json::accept(text.substr(0, text.find('\n'))));
}

TEST(ConvertToGeoJson, WritesATextSequence) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", cli::Sample("real/cyrillic.mif"), "out.geojsons"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    const std::string text = sandbox.Read("out.geojsons");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\x1E'), 3);
    EXPECT_EQ(text.front(), '\x1E');
}

TEST(ConvertToGeoJson, SaysSoWhenAFileHoldsNoObjects) {
    const Sandbox sandbox;

    sandbox.Write("a.mif", "Version 300\nColumns 0\nData\n");

    const Result result = sandbox.Qolf({"convert", "a.mif", "out.geojson"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.err.find("holds no objects"), std::string::npos);
    EXPECT_EQ(Json::parse(sandbox.Read("out.geojson"))["features"].size(), 0U);
}

TEST(ConvertPair, KeepsTheLatitudeOfAnAzimuthalProjectionAtAnyLatitude) {
    const Sandbox sandbox;
    sandbox.Write("a.mif",
                  "Version 650\nCharset \"Neutral\"\n"
                  "CoordSys Earth Projection 29, 104, \"m\", 10, 52, 90\nData\nPoint 1 2\n");

    const Result result = sandbox.Qolf({"convert", "--no-store", "a.mif", "b.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(sandbox.Read("b.mif").find(", 104, \"m\", 10, 52, 90\n"), std::string::npos)
        << sandbox.Read("b.mif");
}

struct UnitRow {
    std::string name;
    std::string unit;
    double metres;
};

std::ostream& operator<<(std::ostream& out, const UnitRow& row) {
    return out << row.name;
}

class UnitOfAClause : public testing::TestWithParam<UnitRow> {};

TEST_P(UnitOfAClause, IsUnderstoodAlsoWhereTheModuleTakesMetres) {
    const Sandbox sandbox;
    sandbox.Write("a.mif",
                  "Version 300\nCharset \"Neutral\"\nCoordSys Earth Projection 8, 104, \"" +
                      GetParam().unit + "\", 27, 0, 1, 500, 0\nData\nPoint 500 65\n");

    const Json json = GeoJsonOf(sandbox, {"a.mif"});

    constexpr double kMetresPerDegree = 110574.0;  // of latitude at the equator
    const Json position = json["features"][0]["geometry"]["coordinates"];
    EXPECT_NEAR(position[0].get<double>(), 27.0, 1e-9);
    EXPECT_NEAR(position[1].get<double>() * kMetresPerDegree / (65 * GetParam().metres), 1.0, 1e-3);
}

INSTANTIATE_TEST_SUITE_P(
    , UnitOfAClause,
    testing::Values(UnitRow{"Metres", "m", 1.0}, UnitRow{"SurveyFeet", "survey ft", 0.3048006},
                    UnitRow{"ANumber", "0.001", 1000.0}, UnitRow{"Kilometres", "km", 1000.0},
                    UnitRow{"InternationalFeet", "ft", 0.3048}, UnitRow{"Miles", "mi", 1609.344}),
    [](const auto& row) { return row.param.name; });

TEST(ConvertToGeoJson, SaysWhatBecameOfAFaultyProjection) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCharset \"Neutral\"\nCoordSys Earth Projection 8, 104, "
                           "\"m\", 27, 95, 0.9996, 500000, 0\nData\nPoint 1 2\n");

    const Result result = sandbox.Qolf({"convert", "a.mif", "a.geojson"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.err.find("the origin latitude 95 of the projection \"Transverse Mercator\" is "
                              "missing or out of range; the coordinates stay as they are"),
              std::string::npos)
        << result.err;
}

TEST(ConvertWithAnAssumedSystem, ReadsTheGeometryWhateverTheClauseSays) {
    const Sandbox sandbox;

    const Json json =
        GeoJsonOf(sandbox, {"--assume-crs", "EPSG:2393", cli::Sample("real/finnish_kkj.mif")});

    const Json position = json["features"][0]["geometry"]["coordinates"][0][0];
    EXPECT_NEAR(position[0].get<double>(), 30.0, 1.0);
    EXPECT_NEAR(position[1].get<double>(), 65.7, 0.3);
}

TEST(ConvertWithAnAssumedSystem, WritesItIntoAPair) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"convert", "--assume-crs", "EPSG:32635", cli::Sample("real/finnish_kkj.mif"), "out.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(sandbox.Read("out.mif").find("Projection 8, 104, \"m\", 27, 0, 0.9996, 500000, 0"),
              std::string::npos);
}

TEST(ConvertToGeoJson, KeepsObjectsWithoutAPlace) {
    const Sandbox sandbox;

    const Json json = GeoJsonOf(sandbox, {cli::Sample("real/field_types_v900.mif")});

    ASSERT_EQ(json["features"].size(), 2U);
    EXPECT_EQ(json["features"][0]["geometry"], nullptr);
}

TEST(ConvertWithFix, ReadsAsItDoesWithout) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCharset \"Neutral\"\nCoordSys Nonearth Units \"m\"\nData\n"
                           "Pline\n2\n1 2\n3 4\n");

    const Json plain = GeoJsonOf(sandbox, {"a.mif"});
    const Json json = GeoJsonOf(sandbox, {"--fix", "a.mif"});

    EXPECT_EQ(plain["features"][0]["geometry"]["coordinates"], Json::parse("[[1,2],[3,4]]"));
    EXPECT_EQ(json, plain);
}

TEST(ConvertPair, LeavesOutTextsAndPointsWhenTold) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--no-store", "--no-render-text", "--no-render-markers",
                      cli::Sample("objects.mif"), "out.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(sandbox.Read("out.mif").find("Text"), std::string::npos);
    EXPECT_EQ(sandbox.Read("out.mif").find("\nPoint"), std::string::npos);
}

TEST(ConvertPair, WritesAreasAsCurvesWhenToldAndForgetsItAfterwards) {
    const Sandbox sandbox;
    const std::string in = cli::Sample("real/lambert_ntf.mif");

    EXPECT_EQ(sandbox.Qolf({"convert", "--areas-to-curves", in, "a.mif"}).exitCode, 0);
    EXPECT_EQ(sandbox.Qolf({"convert", in, "b.mif"}).exitCode, 0);

    EXPECT_NE(sandbox.Read("a.mif").find("Pline 6"), std::string::npos);
    EXPECT_NE(sandbox.Read("b.mif").find("Region 1"), std::string::npos);
}

TEST(ConvertToAPackage, MakesALayerOfEachFileAndReadsThemBack) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"convert", cli::Sample("island.mif"), cli::Sample("island-ways.mif"), "maps.gpkg"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    const Json direct = GeoJsonOf(sandbox, {cli::Sample("island-ways.mif")});
    const Json back = GeoJsonOf(sandbox, {"--layer", "island-ways", "maps.gpkg"});
    ASSERT_EQ(back["features"].size(), direct["features"].size());
    EXPECT_EQ(back["features"][0], direct["features"][0]);
}

TEST(ConvertToAPackage, TellsTheNameOfALayerWhoseOwnIsTaken) {
    const Sandbox sandbox;
    const std::string in = cli::Sample("island-ways.mif");

    const Result result = sandbox.Qolf({"convert", in, in, "maps.gpkg"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "qolf: note: maps.gpkg: layer island-ways is called island-ways_2\n");
    EXPECT_EQ(GeoJsonOf(sandbox, {"--layer", "island-ways_2", "maps.gpkg"})["features"].size(), 7U);
}

struct UsageRow {
    std::string name;
    std::vector<std::string> arguments;
    int exitCode;
    std::string says;
};

std::ostream& operator<<(std::ostream& out, const UsageRow& row) {
    return out << row.name;
}

class ConvertRefuses : public testing::TestWithParam<UsageRow> {};

TEST_P(ConvertRefuses, WithAReasonAndWithoutAnOutput) {
    const Sandbox sandbox;
    sandbox.Write("there.geojson", "mine");
    sandbox.Write("empty.mif", "");

    const Result result = sandbox.Qolf(GetParam().arguments);

    EXPECT_EQ(result.exitCode, GetParam().exitCode);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(result.err.starts_with("qolf: error: ")) << result.err;
    EXPECT_NE(result.err.find(GetParam().says), std::string::npos) << result.err;
    EXPECT_EQ(sandbox.Names(), (std::vector<std::string>{"empty.mif", "there.geojson"}));
    EXPECT_EQ(sandbox.Read("there.geojson"), "mine");
}

INSTANTIATE_TEST_SUITE_P(
    , ConvertRefuses,
    testing::Values(
        UsageRow{"AWrongExtension", {"convert", "empty.mif", "out.shp"}, 2, ".mif, .geojson"},
        UsageRow{"AMissingFile", {"convert", "missing.mif", "out.geojson"}, 1, "missing.mif"},
        UsageRow{"AnEmptyFile", {"convert", "empty.mif", "out.geojson"}, 1, "empty.mif"},
        UsageRow{
            "AFolderThatIsNotThere", {"convert", "empty.mif", "no/such/out.geojson"}, 1, "no/such"},
        UsageRow{"AnExistingOutput", {"convert", "empty.mif", "there.geojson"}, 1, "--overwrite"},
        UsageRow{"AMissingOutput", {"convert", "empty.mif"}, 2, "an input and an output"},
        UsageRow{"AMifPairOnAStream", {"convert", "--to", "mif", "empty.mif", "-"}, 2, "two files"},
        UsageRow{"AnUnknownFormat", {"convert", "--to", "shp", "empty.mif", "-"}, 2, "gpkg"},
        UsageRow{"ABoxOfThree",
                 {"convert", "--bbox", "1,2,3", "empty.mif", "o.geojson"},
                 2,
                 "four numbers"},
        UsageRow{"AnExtensionThatIsNoMap", {"convert", "there.txt", "o.geojson"}, 2, "there.txt"},
        UsageRow{"AFolder", {"convert", ".", "o.geojson"}, 2, ".: is a folder; --output-dir"},
        UsageRow{"StylesOfAPair",
                 {"convert", "--styles", "empty.mif", "o.mif"},
                 2,
                 "--styles is for GeoJSON"},
        UsageRow{"APackageOnAStream",
                 {"convert", "--to", "gpkg", "empty.mif", "-"},
                 2,
                 "can't go to standard output"},
        UsageRow{"SeveralInputsForOneFile",
                 {"convert", "empty.mif", "there.geojson", "o.geojson"},
                 2,
                 "only as a GeoPackage"},
        UsageRow{"AnOutputFolderWithoutAFormat",
                 {"convert", "--output-dir", "o", "empty.mif"},
                 2,
                 "needs --to"},
        UsageRow{"AnUnknownColumn",
                 {"convert", "--select", "nix", cli::Sample("island.mif"), "o.geojson"},
                 2,
                 "island.mif: --select: there is no column \"nix\"; the columns are: name, kind, "
                 "area_km2"},
        UsageRow{
            "ANegativeLimit", {"convert", "--limit", "-1", "empty.mif", "o.mif"}, 2, "--limit"},
        UsageRow{"TooFewSegments", {"convert", "--segments", "1", "empty.mif", "o.mif"}, 2, "4 to"},
        UsageRow{"NoJobs",
                 {"convert", "--jobs", "0", "--to", "mif", "--output-dir", "o", "empty.mif"},
                 2,
                 "1 to 256"},
        UsageRow{"JobsWithoutAFolder",
                 {"convert", "--jobs", "2", "empty.mif", "o.geojson"},
                 2,
                 "--jobs needs --output-dir"},
        UsageRow{"ResumingWithoutAFolder",
                 {"convert", "--resume", "empty.mif", "o.geojson"},
                 2,
                 "--resume needs --output-dir"},
        UsageRow{"AnUnknownEncoding",
                 {"convert", "--encoding", "EBCDIC-XY", "empty.mif", "o.geojson"},
                 2,
                 "EBCDIC-XY"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
