// Several layers: of a package, of several inputs, and as one.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;
using Json = nlohmann::json;
using Names = std::vector<std::string>;

// A package with the layers island, island-ways and island-places.
void MakePackage(const Sandbox& sandbox) {
    const Result result =
        sandbox.Qolf({"convert", cli::Sample("island.mif"), cli::Sample("island-ways.mif"),
                      cli::Sample("island-places.mif"), "in.gpkg"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
}

Names LayersOf(const Sandbox& sandbox, const std::string& package) {
    const Result result = sandbox.Qolf({"info", "--stats", "--json", package});
    Names names;
    const Json document = Json::parse(result.out);
    for (const Json& layer : document.at("files").at(0).at("layers")) {
        names.push_back(layer.at("layer").get<std::string>());
    }
    return names;
}

std::string Pair(const std::string& coordSys, const std::string& columns,
                 const std::string& objects) {
    return "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n" + coordSys + columns +
           "Data\n" + objects;
}

TEST(APackageOfSeveralLayers, BecomesAPairEachInAFolder) {
    const Sandbox sandbox;
    MakePackage(sandbox);

    const Result result =
        sandbox.Qolf({"convert", "--to", "mif", "--output-dir", "out", "in.gpkg"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.err.find("converted 3 of 3 files"), std::string::npos) << result.err;
    for (const char* const name : {"island", "island-ways", "island-places"}) {
        EXPECT_NE(sandbox.Read(std::string("out/") + name + ".mif"), "") << name;
        EXPECT_NE(sandbox.Read(std::string("out/") + name + ".mid"), "") << name;
    }
}

TEST(APackageOfSeveralLayers, BecomesAFileForEachThatIsChosen) {
    const Sandbox sandbox;
    MakePackage(sandbox);

    const Result result = sandbox.Qolf({"convert", "--to", "geojson", "--output-dir", "out",
                                        "--layer", "Island,island-ways", "in.gpkg"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(sandbox.Read("out/island.geojson"), "");
    EXPECT_NE(sandbox.Read("out/island-ways.geojson"), "");
    EXPECT_EQ(sandbox.Read("out/island-places.geojson"), "");
}

TEST(APackageOfSeveralLayers, GoesOnAfterAnInterruptionLayerByLayer) {
    const Sandbox sandbox;
    MakePackage(sandbox);
    const Names arguments = {"convert", "--to",     "mif",    "--output-dir",
                             "out",     "--resume", "in.gpkg"};
    static_cast<void>(sandbox.Qolf(arguments));
    std::filesystem::remove(sandbox.Path("out/island-ways.mif"));

    const Result result = sandbox.Qolf(arguments);

    EXPECT_NE(result.err.find("converted 1 of 3 files, 2 done before"), std::string::npos)
        << result.err;
}

TEST(APackageOfSeveralLayers, BecomesAPackageOfAllOrOfThoseThatAreChosen) {
    const Sandbox sandbox;
    MakePackage(sandbox);

    EXPECT_EQ(sandbox.Qolf({"convert", "in.gpkg", "all.gpkg"}).exitCode, 0);
    EXPECT_EQ(
        sandbox
            .Qolf({"convert", "--layer", "island-ways", "--layer", "island", "in.gpkg", "two.gpkg"})
            .exitCode,
        0);

    EXPECT_EQ(LayersOf(sandbox, "all.gpkg"), (Names{"island", "island-ways", "island-places"}));
    EXPECT_EQ(LayersOf(sandbox, "two.gpkg"), (Names{"island-ways", "island"}));
}

TEST(APackageOfSeveralLayers, IsNotOnePairUnlessALayerIsChosen) {
    const Sandbox sandbox;
    MakePackage(sandbox);

    const Result all = sandbox.Qolf({"convert", "in.gpkg", "o.mif"});
    const Result two =
        sandbox.Qolf({"convert", "--layer", "island,island-ways", "in.gpkg", "o.mif"});
    const Result one = sandbox.Qolf({"convert", "--layer", "ISLAND", "in.gpkg", "o.mif"});

    EXPECT_EQ(all.exitCode, 2);
    EXPECT_NE(all.err.find("choose with --layer, or merge them with --merge, or write a file each "
                           "with --output-dir: island, island-ways, island-places"),
              std::string::npos)
        << all.err;
    EXPECT_EQ(two.exitCode, 2);
    EXPECT_NE(two.err.find("as one layer with --merge"), std::string::npos) << two.err;
    EXPECT_EQ(one.exitCode, 0) << one.err;
}

TEST(SeveralInputs, BecomeOneLayerWithAllColumns) {
    const Sandbox sandbox;
    sandbox.Write("north.mif", Pair("CoordSys Earth Projection 1, 104\n",
                                    "Columns 2\n  Name Char(5)\n  Lanes SmallInt\n",
                                    "Point 24 59\nPoint 25 59\n"));
    sandbox.Write("north.mid", "\"a\",2\n\"b\",4\n");
    sandbox.Write("south.mif", Pair("CoordSys Earth Projection 1, 104\n",
                                    "Columns 2\n  NAME Char(9)\n  Lanes Float\n", "Point 24 58\n"));
    sandbox.Write("south.mid", "\"c\",1.5\n");

    const Result result = sandbox.Qolf(
        {"convert", "--merge", "--source-column", "north.mif", "south.mif", "all.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "qolf: note: column Lanes: SmallInt, Float become Float\n");
    EXPECT_EQ(sandbox.Read("all.mid"),
              "\"a\",2,\"north.mif\"\n\"b\",4,\"north.mif\"\n\"c\",1.5,\"south.mif\"\n");
    const std::string mif = sandbox.Read("all.mif");
    EXPECT_NE(mif.find("Name Char(9)"), std::string::npos) << mif;
    EXPECT_NE(mif.find("CoordSys Earth Projection 1, 104"), std::string::npos) << mif;
}

TEST(SeveralInputs, AreBroughtIntoOneSystem) {
    const Sandbox sandbox;
    ASSERT_EQ(sandbox.Qolf({"convert", "--crs", "EPSG:3301", cli::Sample("island.mif"), "a.mif"})
                  .exitCode,
              0);

    const Result result = sandbox.Qolf({"convert", "--merge", "--to", "geojsonl", "--select",
                                        "name", cli::Sample("island.mif"), "a.mif", "-"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.err.find("a.mif: is moved from "), std::string::npos) << result.err;
    const std::size_t count = std::count(result.out.begin(), result.out.end(), '\n');
    ASSERT_EQ(count, 22U);
    const Json first = Json::parse(result.out.substr(0, result.out.find('\n')));
    std::size_t at = 0;
    for (int i = 0; i < 11; ++i) {
        at = result.out.find('\n', at) + 1;
    }
    const Json moved = Json::parse(result.out.substr(at, result.out.find('\n', at) - at));
    EXPECT_EQ(moved.at("properties"), first.at("properties"));
    EXPECT_NEAR(moved.at("geometry").at("coordinates").at(0).at(0).at(0).get<double>(),
                first.at("geometry").at("coordinates").at(0).at(0).at(0).get<double>(), 1e-7);
}

TEST(SeveralInputs, AreAskedAndSelectedFromAsOneLayer) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--merge", "--source-column", "--to", "geojsonl", "--where",
                      "paved or area_km2 > 100", "--select", "name,area_km2",
                      cli::Sample("island.mif"), cli::Sample("island-ways.mif"), "-"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out.find("{\"type\":\"Feature\",\"properties\":{\"name\":\"main "
                              "island\",\"area_km2\":512.4}"),
              0U)
        << result.out;
    EXPECT_NE(result.out.find("\"name\":\"South Road\",\"area_km2\":null"), std::string::npos)
        << result.out;
    EXPECT_NE(result.err.find("columns that are empty where an input lacks them: area_km2, paved"),
              std::string::npos)
        << result.err;
}

TEST(SeveralInputs, OfOnePackageAreMergedWithTheNamesOfTheirLayers) {
    const Sandbox sandbox;
    MakePackage(sandbox);

    const Result result =
        sandbox.Qolf({"convert", "--merge", "--source-column", "--layer", "island,island-ways",
                      "--select", "source", "in.gpkg", "o.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    const std::string rows = sandbox.Read("o.mid");
    EXPECT_EQ(rows.substr(0, 17), "\"in.gpkg:island\"\n");
    EXPECT_NE(rows.find("\"in.gpkg:island-ways\"\n"), std::string::npos);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 18);
}

TEST(SeveralInputs, KeepTheirLettersWhenTheirCharsetsDiffer) {
    const Sandbox sandbox;
    const auto pair = [](const std::string& charset) {
        return "Version 300\nCharset \"" + charset +
               "\"\nDelimiter \",\"\nColumns 1\n  name Char(20)\nData\nPoint 1 2\nPoint 3 4\n";
    };
    sandbox.Write("a.mif", pair("WindowsLatin1"));
    sandbox.Write("a.mid", "\"\xE4\"\n\"\xF6\"\n");
    sandbox.Write("b.mif", pair("WindowsCyrillic"));
    sandbox.Write("b.mid", "\"\xC4\"\n\"\xC6\"\n");

    const Result result =
        sandbox.Qolf({"convert", "--merge", "--to", "geojsonl", "a.mif", "b.mif", "a.mif", "-"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    std::string names;
    for (std::size_t at = 0; at < result.out.size(); at = result.out.find('\n', at) + 1) {
        names += Json::parse(result.out.substr(at, result.out.find('\n', at) - at))
                     .at("properties")
                     .at("name")
                     .get<std::string>();
    }
    EXPECT_EQ(names, "äöДЖäö");
}

TEST(SeveralInputs, AreNotMergedIntoAFolder) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(
        {"convert", "--merge", "--to", "mif", "--output-dir", "out", cli::Sample("island.mif")});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err, "qolf: error: --merge makes one output, and --output-dir a file each\n");
}

TEST(SeveralInputs, HaveASourceColumnOnlyWhenMerged) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"convert", "--source-column", cli::Sample("island.mif"), "o.mif"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err, "qolf: error: --source-column is for --merge\n");
}

}  // namespace
