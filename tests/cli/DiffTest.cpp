// qolf diff: what it prints, and its exit status.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;
using Json = nlohmann::json;

class DiffOfFiles : public testing::Test {
protected:
    void Write(const std::string& name, const std::string& objects, const std::string& rows,
               const std::string& columns = "Columns 2\n  id Integer\n  name Char(20)\n") {
        sandbox_.Write(name + ".mif", "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n" +
                                          columns + "Data\n" + objects);
        sandbox_.Write(name + ".mid", rows);
    }

    void WriteBoth() {
        Write("a", "Point 1 2\nPoint 3 4\nLine 0 0 1 1\n", "1,\"x\"\n2,\"y\"\n3,\"z\"\n");
        Write("b", "Point 1 2\nPoint 3 4.5\nPoint 9 9\n", "1,\"x\"\n2,\"w\"\n4,\"n\"\n");
    }

    Result Diff(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "diff");
        return sandbox_.Qolf(arguments);
    }

    Sandbox sandbox_;
};

TEST_F(DiffOfFiles, ThatAreTheSamePrintsNothing) {
    Write("a", "Point 1 2\n", "1,\"x\"\n");
    Write("b", "Point 1 2\n", "1,\"x\"\n");

    const Result result = Diff({"a.mif", "b.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "qolf: note: b.mif: the same: 1 object\n");
}

TEST_F(DiffOfFiles, ComparesThemInTheirOrder) {
    WriteBoth();

    const Result result = Diff({"a.mif", "b.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "a: a.mif\n"
                          "b: b.mif\n"
                          "changed 2: name: \"y\" -> \"w\"; moved by 0.5\n"
                          "changed 3: id: 3 -> 4; name: \"z\" -> \"n\"; kind: line -> point\n"
                          "0 added, 0 removed, 2 changed, 1 the same\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(DiffOfFiles, ComparesThemByAKey) {
    WriteBoth();

    const Result result = Diff({"--key", "ID", "a.mif", "b.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "a: a.mif\n"
                          "b: b.mif\n"
                          "changed id 2: name: \"y\" -> \"w\"; moved by 0.5\n"
                          "added id 4: point at 9 9; name \"n\"\n"
                          "removed id 3: line of 2 vertices; name \"z\"\n"
                          "1 added, 1 removed, 1 changed, 1 the same\n");
}

TEST_F(DiffOfFiles, PrintsAsManyAsIsWanted) {
    WriteBoth();

    const Result result = Diff({"--key", "id", "--max", "1", "a.mif", "b.mif"});

    EXPECT_EQ(result.out, "a: a.mif\n"
                          "b: b.mif\n"
                          "changed id 2: name: \"y\" -> \"w\"; moved by 0.5\n"
                          "and 2 more; --max 0 prints all\n"
                          "1 added, 1 removed, 1 changed, 1 the same\n");
}

TEST_F(DiffOfFiles, IsOneDocumentForAProgram) {
    WriteBoth();

    const Result result = Diff({"--json", "--key", "id", "a.mif", "b.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(Json::parse(result.out), Json::parse(R"({
      "a":"a.mif","b":"b.mif","layersOnlyInA":[],"layersOnlyInB":[],"isSame":false,
      "layers":[{"a":"a.mif","b":"b.mif","columnsOnlyInA":[],"columnsOnlyInB":[],
        "added":1,"removed":1,"changed":1,"same":1,
        "differences":[
          {"change":"changed","numberInA":2,"numberInB":2,"key":2,"geometry":"moved by 0.5",
           "values":{"name":{"a":"y","b":"w"}}},
          {"change":"added","number":3,"geometry":"point at 9 9","values":{"id":4,"name":"n"}},
          {"change":"removed","number":3,"geometry":"line of 2 vertices",
           "values":{"id":3,"name":"z"}}]}]})"));
}

TEST_F(DiffOfFiles, IsADocumentWhenTheyAreTheSame) {
    Write("a", "Point 1 2\n", "1,\"x\"\n");

    const Result result = Diff({"--json", "a.mif", "a.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(Json::parse(result.out).at("isSame"), true);
    EXPECT_EQ(Json::parse(result.out).at("layers").at(0).at("same"), 1);
}

TEST_F(DiffOfFiles, NamesColumnsThatOneOfThemLacks) {
    Write("a", "Point 1 2\n", "1,\"x\"\n");
    Write("b", "Point 1 2\n", "\"x\",1.5\n", "Columns 2\n  Name Char(20)\n  width Float\n");

    const Result result = Diff({"a.mif", "b.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "a: a.mif\n"
                          "b: b.mif\n"
                          "columns only in a.mif: id\n"
                          "columns only in b.mif: width\n"
                          "0 added, 0 removed, 0 changed, 1 the same\n");
    EXPECT_EQ(Diff({"--select", "NAME", "a.mif", "b.mif"}).exitCode, 0);
}

TEST_F(DiffOfFiles, TakesNearCoordinatesForTheSameWhenTold) {
    WriteBoth();

    EXPECT_EQ(Diff({"--tolerance", "0.5", "--select", "id", "--where", "id = 2", "a.mif", "b.mif"})
                  .exitCode,
              0);
    EXPECT_EQ(Diff({"--tolerance", "0.49", "--select", "id", "--where", "id = 2", "a.mif", "b.mif"})
                  .exitCode,
              1);
}

struct ConversionRow {
    const char* name;
    const char* file;
    std::vector<std::string> options;
    const char* output;
};

std::ostream& operator<<(std::ostream& out, const ConversionRow& row) {
    return out << row.name;
}

class AConvertedFile : public testing::TestWithParam<ConversionRow> {};

TEST_P(AConvertedFile, IsTheSameAsItsSource) {
    const Sandbox sandbox;
    const std::string source = cli::Sample(GetParam().file);
    std::vector<std::string> arguments = {"convert", source, GetParam().output};
    arguments.insert(arguments.begin() + 1, GetParam().options.begin(), GetParam().options.end());
    ASSERT_EQ(sandbox.Qolf(arguments).exitCode, 0);

    const Result result = sandbox.Qolf({"diff", source, GetParam().output});

    EXPECT_EQ(result.exitCode, 0) << result.out << result.err;
    EXPECT_EQ(result.out, "");
}

INSTANTIATE_TEST_SUITE_P(
    , AConvertedFile,
    testing::Values(ConversionRow{"AsGeoJson", "island.mif", {}, "o.geojson"},
                    ConversionRow{"AsAPackage", "island.mif", {}, "o.gpkg"},
                    ConversionRow{"AsLines", "island-ways.mif", {}, "o.geojsonl"},
                    ConversionRow{
                        "InAnotherSystem", "island.mif", {"--crs", "EPSG:3301"}, "o.gpkg"},
                    ConversionRow{"FromMetresToDegrees", "real/utm_ridge.mif", {}, "o.geojson"},
                    ConversionRow{"AsAPair", "real/cyrillic.mif", {}, "o.mif"},
                    ConversionRow{"AsAPackageOfPoints", "real/osm_places.mif", {}, "o.gpkg"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(DiffOfFiles, ComparesLayersOfOneName) {
    static_cast<void>(sandbox_.Qolf(
        {"convert", cli::Sample("island.mif"), cli::Sample("island-ways.mif"), "a.gpkg"}));
    static_cast<void>(sandbox_.Qolf({"convert", "--where", "name <> 'South Road'",
                                     cli::Sample("island-ways.mif"), "ways.mif"}));
    static_cast<void>(sandbox_.Qolf({"convert", "--layer", "island-ways", "ways.mif", "w.gpkg"}));
    static_cast<void>(
        sandbox_.Qolf({"convert", "w.gpkg", cli::Sample("island-places.mif"), "b.gpkg"}));

    const Result result = Diff({"--key", "name", "a.gpkg", "b.gpkg"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out.substr(0, result.out.find("region"))
                  .find("layers only in a.gpkg: island\n"
                        "layers only in b.gpkg: "
                        "island-places\n"
                        "a: a.gpkg, layer island-ways\n"
                        "b: b.gpkg, layer island-ways\n"
                        "removed name \"South Road\": "),
              0U)
        << result.out;
    EXPECT_NE(result.out.find("0 added, 1 removed, 0 changed, 6 the same\n"), std::string::npos)
        << result.out;
}

TEST_F(DiffOfFiles, TakesALayerOfAPackageForAFile) {
    static_cast<void>(sandbox_.Qolf(
        {"convert", cli::Sample("island.mif"), cli::Sample("island-ways.mif"), "a.gpkg"}));

    EXPECT_EQ(Diff({"--layer", "island-ways", "a.gpkg", cli::Sample("island-ways.mif")}).exitCode,
              0);
}

TEST_F(DiffOfFiles, HintsAtAKeyWhenMostHasChanged) {
    Write("a", "Point 1 2\nPoint 3 4\n", "1,\"x\"\n2,\"y\"\n");
    Write("b", "Point 9 9\nPoint 1 2\nPoint 3 4\n", "0,\"n\"\n1,\"x\"\n2,\"y\"\n");

    const Result result = Diff({"a.mif", "b.mif"});

    EXPECT_NE(result.err.find("--key COLUMN"), std::string::npos) << result.err;
    EXPECT_NE(Diff({"--key", "id", "a.mif", "b.mif"}).out.find("1 added, 0 removed, 0 changed, 2"),
              std::string::npos);
}

TEST_F(DiffOfFiles, SaysWhenAKeyIsNotUnique) {
    Write("a", "Point 1 2\nPoint 3 4\n", "1,\"x\"\n1,\"y\"\n");

    const Result result = Diff({"--key", "id", "a.mif", "a.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.err.find("a.mif: 1 object has the key of another; those are compared in their "
                              "order"),
              std::string::npos)
        << result.err;
}

struct TroubleRow {
    const char* name;
    std::vector<std::string> arguments;
    const char* message;
};

std::ostream& operator<<(std::ostream& out, const TroubleRow& row) {
    return out << row.name;
}

class TroubleOfDiff : public testing::TestWithParam<TroubleRow> {};

TEST_P(TroubleOfDiff, HasExitStatus2) {
    const Sandbox sandbox;
    std::vector<std::string> arguments = {"diff"};
    for (const std::string& argument : GetParam().arguments) {
        arguments.push_back(argument == "island" ? cli::Sample("island.mif") : argument);
    }

    const Result result = sandbox.Qolf(arguments);

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find(GetParam().message), std::string::npos) << result.err;
}

INSTANTIATE_TEST_SUITE_P(
    , TroubleOfDiff,
    testing::Values(TroubleRow{"AFileThatThereIsNot", {"island", "no.mif"}, "no.mif"},
                    TroubleRow{"OneFile", {"island"}, "b is missing"},
                    TroubleRow{"NoFormat", {"island", "a.xyz"}, "a.xyz"},
                    TroubleRow{"AColumnThatThereIsNot",
                               {"--key", "nmae", "island", "island"},
                               "--key: there is no column \"nmae\"; did you mean \"name\"?"},
                    TroubleRow{"ALessThanNoTolerance",
                               {"--tolerance", "-1", "island", "island"},
                               "--tolerance must be 0 or more"},
                    TroubleRow{"TwoStandardInputs", {"-", "-"}, "only one of the files"},
                    TroubleRow{"AFaultyQuestion",
                               {"--where", "name >", "island", "island"},
                               "the expression ends too early"}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
