// What users ask of attributes: --where, --select, info --stats.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;
using Json = nlohmann::json;

// The names of the features that a conversion lets through, one after another.
std::string NamesAfter(const Sandbox& sandbox, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"convert", "--to", "geojsonl"});
    arguments.emplace_back("-");
    const Result result = sandbox.Qolf(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    std::string names;
    for (std::size_t at = 0; at < result.out.size(); at = result.out.find('\n', at) + 1) {
        const std::string line = result.out.substr(at, result.out.find('\n', at) - at);
        names += Json::parse(line).at("properties").at("name").get<std::string>() + ";";
    }
    return names;
}

TEST(AQuestionOfConvert, LeavesTheObjectsOfWhichItIsTrue) {
    const Sandbox sandbox;

    EXPECT_EQ(NamesAfter(sandbox, {"--where", "kind = 'road' and name like 's%'",
                                   cli::Sample("island-ways.mif")}),
              "South Road;");
}

TEST(AQuestionOfConvert, MayBeAboutColumnsThatAreNotWritten) {
    const Sandbox sandbox;

    EXPECT_EQ(NamesAfter(sandbox, {"--where", "AREA_KM2 > 100", "--select", "NAME",
                                   cli::Sample("island.mif")}),
              "main island;");
}

TEST(AQuestionOfConvert, GivesTheSameFromEveryFormat) {
    const Sandbox sandbox;
    const std::string question = "area_km2 between 2 and 50 and kind <> 'land'";
    const std::string expected =
        NamesAfter(sandbox, {"--where", question, cli::Sample("island.mif")});
    static_cast<void>(sandbox.Qolf({"convert", cli::Sample("island.mif"), "i.gpkg"}));
    static_cast<void>(sandbox.Qolf({"convert", cli::Sample("island.mif"), "i.geojson"}));

    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(NamesAfter(sandbox, {"--where", question, "i.gpkg"}), expected);
    EXPECT_EQ(NamesAfter(sandbox, {"--where", question, "i.geojson"}), expected);
}

TEST(AQuestionOfConvert, ThatIsNoExpressionShowsThePlaceAndWritesNothing) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"convert", "--where", "area_km2 > and kind", cli::Sample("island.mif"), "o.mif"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err, "qolf: error: --where: near \"and\": syntax error\n"
                          "qolf: error:   area_km2 > and kind\n"
                          "qolf: error:              ^\n");
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(AQuestionOfConvert, NamesTheColumnThatWasMeant) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--where", "areakm2 > 1", cli::Sample("island.mif"), "o.geojson"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("there is no column \"areakm2\"; did you mean \"area_km2\"? The "
                              "columns are: name, kind, area_km2"),
              std::string::npos)
        << result.err;
}

TEST(AQuestionOfConvert, ReachesNoFile) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--where", "1 in (select 1 from pragma_database_list)",
                      cli::Sample("island.mif"), "o.geojson"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("only the columns of the layer"), std::string::npos) << result.err;
}

TEST(AQuestionOfConvert, SaysSoWhenNothingIsLeft) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"convert", "--where", "area_km2 > 1e9", cli::Sample("island.mif"), "o.geojson"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.err.find("island.mif: no object meets --where; an empty layer is written"),
              std::string::npos)
        << result.err;
}

TEST(TheSelection, MayBeGivenSeveralTimesAndInAnyCase) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--to", "geojsonl", "--limit", "1", "--select", "KIND,Area_km2",
                      "--select", "name", cli::Sample("island.mif"), "-"});

    EXPECT_EQ(result.out.find("{\"type\":\"Feature\",\"properties\":{\"kind\":\"land\","
                              "\"area_km2\":512.4,\"name\":\"main island\"}"),
              0U)
        << result.out;
}

TEST(AQuestionOfDraw, KeepsObjectsOutOfThePicture) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"draw", "--where", "paved = 'nonsense'", cli::Sample("island-ways.mif"), "o.svg"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("no object to draw"), std::string::npos) << result.err;
}

TEST(AQuestionOfDraw, LeavesLayersWithoutItsColumnsWholeAndSaysSo) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"draw", "--where", "paved", cli::Sample("island.mif"),
                                        cli::Sample("island-ways.mif"), "o.svg"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.err.find("island.mif: lacks a column of --where; drawn whole"),
              std::string::npos)
        << result.err;
}

TEST(AQuestionOfDraw, FailsForAColumnThatNoLayerHas) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"draw", "--where", "pavedd", cli::Sample("island.mif"),
                                        cli::Sample("island-ways.mif"), "o.svg"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("did you mean \"paved\""), std::string::npos) << result.err;
    EXPECT_EQ(result.err.find("drawn whole"), std::string::npos) << result.err;
}

TEST(StatisticsOfInfo, AreATable) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\nColumns 2\n"
                           "  Name Char(10)\n  People Integer\nData\nPoint 1 2\nPoint 3 -1\n"
                           "Line 0 0 5 5\n");
    sandbox.Write("a.mid", "\"b\",10\n\"\",\n\"a\",-5\n");

    const Result result = sandbox.Qolf({"info", "--stats", "a.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "a.mif\n"
                          "  Layer a: 3 objects\n"
                          "    points  2  x 1 to 3, y -1 to 2\n"
                          "    lines   1  x 0 to 5, y 0 to 5\n"
                          "    column  type     filled  distinct  minimum  maximum  mean\n"
                          "    Name    Char          2         2        a        b\n"
                          "    People  Integer       2         2       -5       10   2.5\n");
}

TEST(StatisticsOfInfo, AreOneDocumentForAProgram) {
    const Sandbox sandbox;
    static_cast<void>(sandbox.Qolf(
        {"convert", cli::Sample("island.mif"), cli::Sample("island-ways.mif"), "i.gpkg"}));

    const Result result = sandbox.Qolf({"info", "--stats", "--json", "i.gpkg", "no.mif"});

    EXPECT_EQ(result.exitCode, 1);
    const Json files = Json::parse(result.out).at("files");
    EXPECT_EQ(files.at(1).at("layers"), Json::array());
    EXPECT_TRUE(files.at(1).at("error").is_string());
    const Json layer = files.at(0).at("layers").at(1);
    EXPECT_EQ(layer.at("layer"), "island-ways");
    EXPECT_EQ(layer.at("features"), 7);
    EXPECT_EQ(layer.at("extent"), layer.at("objects").at(0).at("extent"));
    EXPECT_EQ(layer.at("objects").at(0).at("kind"), "lines");
    EXPECT_EQ(layer.at("columns").at(2),
              Json::parse(R"({"name":"paved","type":"Logical","filled":7,"distinct":2,
                              "minimum":false,"maximum":true,"mean":null})"));
}

TEST(StatisticsOfInfo, AreThoseOfTheObjectsThatAQuestionLeaves) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"info", "--stats", "--json", "--where", "area_km2 > 100", cli::Sample("island.mif")});

    const Json layer = Json::parse(result.out).at("files").at(0).at("layers").at(0);
    EXPECT_EQ(layer.at("features"), 1);
    EXPECT_EQ(layer.at("columns").at(0).at("minimum"), "main island");
}

TEST(StatisticsOfInfo, AreNeededForAQuestion) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"info", "--where", "a", cli::Sample("island.mif")});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("--where needs --stats"), std::string::npos) << result.err;
}

}  // namespace
