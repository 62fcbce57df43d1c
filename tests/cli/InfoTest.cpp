// qolf info on files that are right, odd and broken.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace {

using cli::Result;
using cli::Sandbox;
using Json = nlohmann::json;

constexpr const char* kSwallowed = "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                                   "CoordSys Earth Projection 1, 104\nColumns 1\n  A Char(5)\n"
                                   "Data\n\nPoint 1 2\n";

Json InfoOf(const Sandbox& sandbox, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"info", "--json"});
    const Result result = sandbox.Qolf(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.err.find("error"), std::string::npos) << result.err;
    return Json::parse(result.out).at("files").at(0);
}

TEST(Info, AnswersWhatTheSlotsAndTheHeaderSay) {
    const Sandbox sandbox;

    const Json info = InfoOf(sandbox, {cli::Sample("real/utm_ridge.mif")});

    EXPECT_EQ(info.at("canImport"), true);
    EXPECT_EQ(info.at("version"), 300);
    EXPECT_EQ(info.at("charset"), "Neutral");
    EXPECT_EQ(info.at("codePage"), "CP1252");
    EXPECT_EQ(info.at("delimiter"), ",");
    EXPECT_EQ(info.at("earth"), true);
    EXPECT_EQ(info.at("mid"), true);
    EXPECT_EQ(info.at("fileSize"), 4939);
    EXPECT_FALSE(info.contains("objects"));
}

TEST(Info, NamesTheTypesOfTheColumns) {
    const Sandbox sandbox;

    const Json columns = InfoOf(sandbox, {"--count", cli::Sample("attributes.mif")}).at("columns");

    EXPECT_EQ(columns.at(0).at("type"), "Char");
}

TEST(Info, CountsObjectsVerticesExtentAndRows) {
    const Sandbox sandbox;

    const Json info = InfoOf(sandbox, {"--count", cli::Sample("real/osm_places.mif")});

    EXPECT_EQ(info.at("objects").at("total"), 118);
    EXPECT_EQ(info.at("objects").at("points"), 118);
    EXPECT_EQ(info.at("vertices"), 118);
    EXPECT_EQ(info.at("rows"), 118);
    EXPECT_EQ(info.at("extent"), Json::parse("[1.418893,42.4322803,1.7746355,42.6532059]"));
}

TEST(Info, TakesCareOfAColumnsLineThatTheModuleWouldSwallow) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", kSwallowed);

    const Json info = InfoOf(sandbox, {"a.mif"});

    EXPECT_EQ(info.at("careTaken"), true);
    EXPECT_EQ(info.at("columns").size(), 1U);
    EXPECT_EQ(info.at("fileSize"), std::string(kSwallowed).size());
}

struct SwallowingRow {
    std::string name;  // letters and digits
    std::string clause;
};

class AClauseThatSwallows : public testing::TestWithParam<SwallowingRow> {};

TEST_P(AClauseThatSwallows, TheNextLineLosesNoColumn) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n" +
                               GetParam().clause +
                               "\nColumns 2\n  A Char(5)\n  B Integer\nData\n\nPoint 1 2\n");

    const Json info = InfoOf(sandbox, {"a.mif"});

    EXPECT_EQ(info.at("careTaken"), true);
    ASSERT_EQ(info.at("columns").size(), 2U);
    EXPECT_EQ(info.at("columns").at(1).at("type"), "Integer");
}

TEST_P(AClauseThatSwallows, ADataLineStopsNoImport) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCharset \"WindowsLatin1\"\nColumns 1\n  A Char(5)\n" +
                               GetParam().clause + "\nData\n\nPoint 1 2\n");

    const Json info = InfoOf(sandbox, {"--count", "a.mif"});

    EXPECT_EQ(info.at("columns").size(), 1U);
    EXPECT_EQ(info.at("objects").at("total"), 1);
}

const SwallowingRow kSwallowing[] = {
    {"DatumAlone", "CoordSys Earth Projection 1, 104"},
    {"EarthAlone", "CoordSys Earth"},
    {"AlbersWithoutAzimuth", "CoordSys Earth Projection 9, 62, \"m\", -96, 23, 29.5, 45.5, 0, 0"},
    {"OneParameterOfFive", "CoordSys Earth Projection 8, 104, \"m\", 27"},
    {"NoUnitAndNoParameter", "CoordSys Earth Projection 8, 104"},
    {"OneShiftTooFew", "CoordSys Earth Projection 1, 999, 0, 1, 2"},
    {"CommaAtTheEnd", "CoordSys Earth Projection 8, 104, \"m\", 27, 0, 1,"},
};
INSTANTIATE_TEST_SUITE_P(, AClauseThatSwallows, testing::ValuesIn(kSwallowing),
                         [](const auto& row) { return row.param.name; });

TEST(Info, ShowsWhatTheModuleSeesWithAsIs) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", kSwallowed);

    const Json info = InfoOf(sandbox, {"--as-is", "a.mif"});

    EXPECT_EQ(info.at("careTaken"), false);
    EXPECT_TRUE(info.at("columns").empty());
}

TEST(Info, FindsAMidInAnotherCaseAndDoesWithoutOne) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", kSwallowed);
    EXPECT_EQ(InfoOf(sandbox, {"--count", "a.mif"}).at("rows"), nullptr);

    sandbox.Write("A.MID", "\"x\"\n\"y\"");

    EXPECT_EQ(InfoOf(sandbox, {"--count", "a.mif"}).at("rows"), 2);
}

TEST(Info, LeavesNoOptionsBehind) {
    const Sandbox sandbox;

    sandbox.Qolf({"info", "--count", cli::Sample("objects.mif")});

    EXPECT_FALSE(std::filesystem::exists(sandbox.Path(".home/qolf/options.txt")));
}

TEST(Info, GoesOnBehindAFileThatCantBeReadAndFails) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"info", "missing.mif", cli::Sample("texts.mif")});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: missing.mif: can't open: No such file or directory\n");
    EXPECT_TRUE(result.out.starts_with(cli::Sample("texts.mif") + "\n")) << result.out;
}

struct BrokenRow {
    std::string name;  // letters and digits
    std::string text;
    std::string error;
};

class InfoOfABrokenFile : public testing::TestWithParam<BrokenRow> {};

TEST_P(InfoOfABrokenFile, GivesTheModulesReasonAndWhatToDoWithAsIs) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", GetParam().text);

    const Result result = sandbox.Qolf({"info", "--as-is", "a.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "qolf: error: Can't import 'a.mif'.  " + GetParam().error + "\n");
}

const std::string kCheckSaysMore = "'qolf check a.mif' says more.";
const std::string kClauseRefused =
    "Unrecognized/invalid parameters while parsing COORDSYS section of file header. ";

const BrokenRow kBroken[] = {
    {"Empty", "", "End of file encountered while reading file header. " + kCheckSaysMore},
    {"NoVersion", "Charset \"Neutral\"\nData\n",
     "VERSION section missing from file header. " + kCheckSaysMore},
    {"NothingElse", "Version 300\nData\n", "Corrupt or incomplete file header. " + kCheckSaysMore},
    {"NoCommaBehindTheProjection", "Version 300\nCoordSys Earth Projection 8\nData\n",
     kClauseRefused + kCheckSaysMore},
};
INSTANTIATE_TEST_SUITE_P(, InfoOfABrokenFile, testing::ValuesIn(kBroken),
                         [](const auto& row) { return row.param.name; });

struct ProjectionRow {
    std::string name;
    std::string clause;
    std::string said;    // by info
    std::string advice;  // of info --as-is
};
void PrintTo(const ProjectionRow& row, std::ostream* out) {
    *out << row.name;
}

class InfoOfAProjectionThatTheModuleLacks : public testing::TestWithParam<ProjectionRow> {
protected:
    static void WriteTo(const Sandbox& sandbox) {
        sandbox.Write("a.mif", "Version 300\n" + GetParam().clause + "\nData\nPoint 1 2\n");
    }
};

TEST_P(InfoOfAProjectionThatTheModuleLacks, SaysHowItIsRead) {
    const Sandbox sandbox;
    WriteTo(sandbox);

    const Result result = sandbox.Qolf({"info", "a.mif"});

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.out.find(GetParam().said), std::string::npos) << result.out;
    EXPECT_NE(result.out.find(GetParam().clause), std::string::npos) << result.out;
}

TEST_P(InfoOfAProjectionThatTheModuleLacks, GivesTheModulesReasonAsItIs) {
    const Sandbox sandbox;
    WriteTo(sandbox);

    const Result result = sandbox.Qolf({"info", "--as-is", "a.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err,
              "qolf: error: Can't import 'a.mif'.  " + kClauseRefused + GetParam().advice + "\n");
}

const ProjectionRow kProjections[] = {
    {"WithAnotherLayout", "CoordSys Earth Projection 2, 104, \"m\", 5, 30",
     "+proj=cea +lon_0=5 +lat_ts=30",
     "Projection code 2 is Cylindrical Equal Area. 'qolf convert' and 'qolf draw' read it."},
    {"WithAnEqual", "CoordSys Earth Projection 24, 1016, \"m\", 27, 0, 1, 3500000, 0",
     "2393 KKJ / Finland Uniform Coordinate System",
     "Projection code 24 is the Finnish KKJ variant of Transverse Mercator (Gauss-Kruger). 'qolf "
     "convert' and 'qolf draw' read it."},
    {"ThatNobodyKnows", "CoordSys Earth Projection 777, 104, \"m\", 5",
     "projection code 777 is not known in this format, and its coordinates can't be "
     "placed",
     "Projection code 777 is not known in this format. 'qolf convert' reads the "
     "geometry; name the coordinate system with --assume-crs EPSG:…."},
};
INSTANTIATE_TEST_SUITE_P(, InfoOfAProjectionThatTheModuleLacks, testing::ValuesIn(kProjections),
                         [](const auto& row) { return row.param.name; });

TEST(Info, SaysAllThatAHeaderHoldsThenWhatIsWrongWithIt) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Charset \"WindowsLatin1\"\nCoordSys Earth Projection 8\nColumns 1\n"
                           "  street name Char(9)\n");

    const Result result = sandbox.Qolf({"info", "a.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.out.find("  Clause     CoordSys Earth Projection 8\n"), std::string::npos);
    EXPECT_NE(result.out.find("    street name  Char(9)\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("the CoordSys clause ends at its projection code"),
              std::string::npos);
    EXPECT_EQ(result.err, "qolf: warning: a.mif: the header ends without the line Data\n");
}

TEST(Info, GoesOnBehindAClauseThatSwallowsTheDataLine) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCoordSys Earth Projection 8, 104, \"m\", 20, 0 Bounds\n"
                           "Columns 1\n  a Char(9)\nData\n");

    const Result result = sandbox.Qolf({"info", "a.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.out.find("    a  Char(9)\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  the scale factor 0 of the projection \"Transverse Mercator\" is "
                              "missing or out of range\n"),
              std::string::npos)
        << result.out;
    EXPECT_EQ(result.err, "");
}

TEST(Info, DescribesTheSystemThatIsNamedInPlaceOfTheClause) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nCoordSys Earth Projection 777, 104, \"m\", 20\n"
                           "Columns 1\n  a Char(9)\nData\n");

    const Json facts = InfoOf(sandbox, {"--assume-crs", "EPSG:3301", "a.mif"});

    EXPECT_EQ(facts.at("epsg"), 3301);
    EXPECT_EQ(facts.at("crsName"), "Estonian Coordinate System of 1997");
    EXPECT_EQ(facts.at("earth"), true);
}

TEST(Info, RefusesAnAssumedSystemThatIsNone) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", kSwallowed);

    const Result result = sandbox.Qolf({"info", "--assume-crs", "EPSG:1", "a.mif"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("--assume-crs EPSG:1: "), std::string::npos) << result.err;
}

TEST(Info, HasEveryFileInItsDocument) {
    const Sandbox sandbox;
    sandbox.Write("zip.mif", "PK\x03\x04");
    sandbox.Write("a.mif", kSwallowed);

    const Result result = sandbox.Qolf({"info", "--json", "zip.mif", "a.mif"});

    EXPECT_EQ(result.exitCode, 1);
    const Json files = Json::parse(result.out).at("files");
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files.at(0).at("file"), "zip.mif");
    EXPECT_EQ(files.at(0).at("error"), "zip.mif: is not a MIF file: it looks like a zip archive");
    EXPECT_EQ(files.at(1).at("columns").size(), 1U);
}

TEST(Info, OfAFolderWithoutMapsIsAnError) {
    const Sandbox sandbox;
    std::filesystem::create_directory(sandbox.Path("folder.mif"));

    const Result result = sandbox.Qolf({"info", "folder.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: folder.mif: holds no map\n");
}

}  // namespace
