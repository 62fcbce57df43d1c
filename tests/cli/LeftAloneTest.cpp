// Inputs are left alone, whatever the output is called.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;

struct OntoRow {
    std::string name;  // letters and digits
    std::vector<std::string> arguments;
};

void PrintTo(const OntoRow& row, std::ostream* out) {
    *out << row.name;
}

// A map, and other names for its files.
class AnInput : public testing::TestWithParam<OntoRow> {};

TEST_P(AnInput, IsNotReplaced) {
    const Sandbox sandbox;
    sandbox.Write("map.mif", cli::BytesOf(cli::Sample("island-places.mif")));
    sandbox.Write("map.mid", cli::BytesOf(cli::Sample("island-places.mid")));
    sandbox.Write("points.geojson", sandbox.Qolf({"convert", "map.mif", "-"}).out);
    sandbox.Write("lines.jsonl", sandbox.Qolf({"trace", "map.mif"}).out);
    std::filesystem::create_symlink("lines.jsonl", sandbox.Path("lines.mif"));
    std::filesystem::create_symlink("map.mif", sandbox.Path("link.mif"));
    std::filesystem::create_symlink("map.mid", sandbox.Path("rows.mid"));
    std::filesystem::create_hard_link(sandbox.Path("map.mif"), sandbox.Path("hard.mif"));
    std::filesystem::create_symlink(".", sandbox.Path("here"));
    const std::vector<std::string> names = sandbox.Names();
    const std::string json = sandbox.Read("points.geojson");

    const Result result = sandbox.Qolf(GetParam().arguments);

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("is the input, which is left alone; choose another name\n"),
              std::string::npos)
        << result.err;
    EXPECT_EQ(sandbox.Names(), names);
    EXPECT_EQ(sandbox.Read("map.mif"), cli::BytesOf(cli::Sample("island-places.mif")));
    EXPECT_EQ(sandbox.Read("map.mid"), cli::BytesOf(cli::Sample("island-places.mid")));
    EXPECT_EQ(sandbox.Read("points.geojson"), json);
}

INSTANTIATE_TEST_SUITE_P(
    , AnInput,
    testing::Values(
        OntoRow{"ByAConversion", {"convert", "--overwrite", "map.mif", "map.mif"}},
        OntoRow{"ByAConversionWithAnotherSystem",
                {"convert", "--overwrite", "--crs", "EPSG:3301", "map.mif", "./map.mif"}},
        OntoRow{"ThroughALink", {"convert", "--overwrite", "map.mif", "link.mif"}},
        OntoRow{"WhichIsReadThroughALink", {"convert", "--overwrite", "link.mif", "map.mif"}},
        OntoRow{"UnderAnotherName", {"convert", "--overwrite", "hard.mif", "map.mif"}},
        OntoRow{"ThroughAFolder", {"convert", "--overwrite", "map.mif", "here/map.mif"}},
        OntoRow{"ByTheRowsOfAPair", {"convert", "--overwrite", "map.mif", "rows.mif"}},
        OntoRow{"WhichIsNamedInCapitals", {"convert", "--overwrite", "MAP.MIF", "map.mif"}},
        OntoRow{"OfGeoJson", {"convert", "--overwrite", "points.geojson", "points.geojson"}},
        OntoRow{"ByAPackage",
                {"convert", "--overwrite", "--to", "gpkg", "map.mif", "points.geojson",
                 "points.geojson"}},
        OntoRow{"ByAPicture", {"draw", "--overwrite", "--format", "png", "map.mif", "map.mif"}},
        OntoRow{"ByAPictureThroughALink",
                {"draw", "--overwrite", "--format", "png", "map.mif", "link.mif"}},
        OntoRow{"ByAReplay", {"replay", "--overwrite", "lines.jsonl", "lines.mif"}},
        OntoRow{"ByARepair", {"check", "--overwrite", "--fix", "map.mif", "map.mif"}},
        OntoRow{"ByARepairThroughALink", {"check", "--overwrite", "--fix", "link.mif", "map.mif"}},
        OntoRow{"ByTheRowsOfARepair", {"check", "--overwrite", "--fix", "rows.mif", "map.mif"}},
        OntoRow{"ByARepairWhenNamedInCapitals",
                {"check", "--overwrite", "--fix", "map.mif", "MAP.MIF"}}),
    [](const auto& row) { return row.param.name; });

TEST(ARepair, BesideTheInputUnderItsNameInCapitalsLeavesItAlone) {
    const Sandbox sandbox;
    sandbox.Write("map.mif", "Version 300\nCharset \"Neutral\"\nData\n\nPoint 1 2");

    const Result result = sandbox.Qolf({"check", "--fix", "MAP.MIF", "map.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(sandbox.Read("map.mif"), "Version 300\nCharset \"Neutral\"\nData\n\nPoint 1 2");
    EXPECT_EQ(sandbox.Read("MAP.MIF"), "Version 300\nCharset \"Neutral\"\nData\n\nPoint 1 2\n");
}

}  // namespace
