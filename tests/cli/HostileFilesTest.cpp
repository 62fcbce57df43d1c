// A file whose names and values aim at what reads them: the disk, the terminal, SQL and markup.
#include "tests/cli/CliRun.h"
#include "tests/cli/OpenWatch.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;
using Json = nlohmann::json;

// "bait" is a file beside the pair: in a unit, column names, a symbol's picture, a font and values.
constexpr const char* kMif = "Version 300\n"
                             "Charset \"bait\"\n"
                             "Delimiter \",\"\n"
                             "CoordSys Earth Projection 1, 104, \"./bait\"\n"
                             "Columns 3\n"
                             "  ../bait Char(60)\n"
                             "  x';DROP_TABLE_in;-- Char(60)\n"
                             "  bait Char(80)\n"
                             "Data\n"
                             "\n"
                             "Point 1 2\n"
                             "    Symbol (\"bait\",255,12,0)\n"
                             "Text\n"
                             "    \"</text><script>x</script>\x1B[31m\"\n"
                             "    1 1 2 2\n"
                             "    Font (\"bait\",0,0,255)\n"
                             "Region 1\n"
                             "  4\n"
                             "1 1\n"
                             "2 1\n"
                             "2 2\n"
                             "1 1\n"
                             "    Pen (1,2,\"bait\")\n";
constexpr const char* kValues =
    "\"../bait\",\"');DROP TABLE 'in';--\",\"\x1B]0;owned\x07</svg>\"\n";

void WriteHostilePair(const Sandbox& sandbox) {
    sandbox.Write("in.mif", kMif);
    std::string rows = std::string(kValues) + kValues + kValues;
    rows.pop_back();  // a missing line end is repaired
    sandbox.Write("in.mid", rows);
}

// What a user may do with a file, with the files that it leaves.
struct WorkRow {
    std::string name;
    std::vector<std::string> arguments;
    std::vector<std::string> outputs;
};

std::ostream& operator<<(std::ostream& out, const WorkRow& row) {
    return out << row.name;
}

std::vector<WorkRow> AllWork() {
    return {{"Info", {"info", "--count", "in.mif"}, {}},
            {"InfoJson", {"info", "--json", "--count", "in.mif"}, {}},
            {"Trace", {"trace", "--no-store", "in.mif"}, {}},
            {"Check", {"check", "in.mif"}, {}},
            {"CheckJson", {"check", "--json", "in.mif"}, {}},
            {"Repair", {"check", "--fix", "out.mif", "in.mif"}, {"out.mid", "out.mif"}},
            {"Svg", {"draw", "in.mif", "out.svg"}, {"out.svg"}},
            {"Png", {"draw", "in.mif", "out.png"}, {"out.png"}},
            {"Pdf", {"draw", "in.mif", "out.pdf"}, {"out.pdf"}},
            {"GeoJson", {"convert", "--styles", "in.mif", "out.geojson"}, {"out.geojson"}},
            {"Stream", {"convert", "in.mif", "-"}, {}},
            {"GeoPackage", {"convert", "in.mif", "out.gpkg"}, {"out.gpkg"}},
            {"Pair", {"convert", "--no-store", "in.mif", "out.mif"}, {"out.mid", "out.mif"}},
            {"Folder",
             {"convert", "--to", "geojson", "--output-dir", "out", "in.mif"},
             {"out", "out/in.geojson"}}};
}

// Everything below the folder, but for what the command keeps for its user.
std::vector<std::string> Tree(const Sandbox& sandbox) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sandbox.Path(""))) {
        const std::string name = entry.path().lexically_relative(sandbox.Path("")).string();
        if (name.front() != '.') {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool IsTerminalControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20 && c != '\n' && c != '\t') || byte == 0x7F;
}

class HostileFile : public testing::TestWithParam<WorkRow> {};

}  // namespace

TEST_P(HostileFile, OpensNoFileThatItNames) {
    const Sandbox sandbox;
    WriteHostilePair(sandbox);
    const std::filesystem::path bait = sandbox.Write("bait", "bait");
    const cli::OpenWatch watch(bait);

    sandbox.Qolf(GetParam().arguments);

    EXPECT_EQ(watch.Count(), 0);
    std::ifstream reader(bait);
    EXPECT_EQ(watch.Count(), 1) << "the watch sees nothing";
}

TEST_P(HostileFile, WritesNothingBesideTheOutput) {
    const Sandbox sandbox;
    WriteHostilePair(sandbox);
    std::vector<std::string> expected = GetParam().outputs;
    expected.insert(expected.end(), {"in.mid", "in.mif"});
    std::sort(expected.begin(), expected.end());

    const Result result = sandbox.Qolf(GetParam().arguments);

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Tree(sandbox), expected);
    EXPECT_EQ(sandbox.Read("in.mif"), kMif);
}

TEST_P(HostileFile, SendsNoControlToTheTerminal) {
    const Sandbox sandbox;
    WriteHostilePair(sandbox);

    const Result result = sandbox.Qolf(GetParam().arguments);

    EXPECT_TRUE(std::none_of(result.out.begin(), result.out.end(), IsTerminalControl));
    EXPECT_TRUE(std::none_of(result.err.begin(), result.err.end(), IsTerminalControl));
}

INSTANTIATE_TEST_SUITE_P(, HostileFile, testing::ValuesIn(AllWork()),
                         [](const auto& row) { return row.param.name; });

TEST(HostileFileInAPackage, StaysNamesAndValues) {
    const Sandbox sandbox;
    WriteHostilePair(sandbox);

    const Result there = sandbox.Qolf({"convert", "in.mif", "out.gpkg"});
    const Result back = sandbox.Qolf({"convert", "out.gpkg", "-"});

    ASSERT_EQ(there.exitCode, 0) << there.err;
    ASSERT_EQ(back.exitCode, 0) << back.err;
    const Json properties = Json::parse(back.out).at("features").at(0).at("properties");
    EXPECT_EQ(properties.at("../bait"), "../bait");
    EXPECT_EQ(properties.at("x';DROP_TABLE_in;--"), "');DROP TABLE 'in';--");
}

TEST(HostileFileAsAPicture, PutsNoMarkupOfItsOwnIntoTheSvg) {
    const Sandbox sandbox;
    WriteHostilePair(sandbox);

    const Result result = sandbox.Qolf({"draw", "in.mif", "out.svg"});

    ASSERT_EQ(result.exitCode, 0) << result.err;
    const std::string svg = sandbox.Read("out.svg");
    EXPECT_EQ(svg.find("<script"), std::string::npos);
    EXPECT_EQ(svg.find("bait"), std::string::npos);
    EXPECT_EQ(svg.find("</svg>"), svg.rfind("</svg>"));
}
