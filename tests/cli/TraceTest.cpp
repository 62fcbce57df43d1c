#include "tests/cli/CliRun.h"
#include "tests/support/FileSizeLimit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using cli::Result;
using cli::Sandbox;

struct SampleRow {
    std::string name;  // letters and digits
    std::string file;  // below samples/, without its extension
    int exitCode = 0;
};

std::ostream& operator<<(std::ostream& out, const SampleRow& row) {
    return out << row.name;
}

class TraceOfASample : public testing::TestWithParam<SampleRow> {};

// The trace without the message that names the file by its path.
std::string GoldenPath(const std::string& file) {
    std::string flat = file;
    for (char& c : flat) {
        c = c == '/' ? '-' : c;
    }
    return std::string(QOLF_TEST_GOLDEN) + "/trace/" + flat + ".jsonl";
}

TEST_P(TraceOfASample, IsByteForByteTheGoldenOne) {
    const Sandbox sandbox;
    std::filesystem::create_directory_symlink(QOLF_SAMPLES, sandbox.Path("samples"));

    const Result result =
        sandbox.Qolf({"trace", "--no-store", "samples/" + GetParam().file + ".mif"});

    EXPECT_EQ(result.exitCode, GetParam().exitCode);
    if (std::getenv("UPDATE_GOLDENS") != nullptr) {
        std::ofstream(GoldenPath(GetParam().file), std::ios::binary) << result.out;
    }
    EXPECT_EQ(result.out, cli::BytesOf(GoldenPath(GetParam().file)));
}

const SampleRow kSamples[] = {
    {"Objects", "objects"},
    {"Styles", "styles"},
    {"Texts", "texts"},
    {"Attributes", "attributes"},
    {"Island", "island"},
    {"IslandWays", "island-ways"},
    {"IslandPlaces", "island-places"},
    {"RealNonearthMix", "real/nonearth_mix"},
    {"RealCyrillic", "real/cyrillic"},
    {"RealFieldTypes", "real/field_types_v900"},
    {"RealLambert", "real/lambert_ntf"},
    {"RealRidge", "real/utm_ridge"},
    {"RealPlaces", "real/osm_places"},
    {"RealWater", "real/osm_water"},
    {"RealUnknownProjection", "real/finnish_kkj", 1},
};

INSTANTIATE_TEST_SUITE_P(, TraceOfASample, testing::ValuesIn(kSamples),
                         [](const auto& row) { return row.param.name; });

TEST(Trace, OfAMissingFileEndsWithTheThrowAndExitCode1) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"trace", "--no-store", "missing.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.out.find("\"call\":\"ThrowErrorMsg\",\"source\":\"CMifReader\",\"line\":946,"
                              "\"message\":\"Can't import 'missing.mif'.  Failed opening specified "
                              "file\""),
              std::string::npos);
    EXPECT_TRUE(result.out.ends_with("{\"call\":\"ProgressEnd\"}\n"));
}

TEST(Trace, OfAnArcInABoxWithoutWidthEndsWell) {
    const Sandbox sandbox;
    sandbox.Write("arc.mif", "Version 300\nDelimiter \",\"\nData\nArc 0 0 0 2\n0 90\n");

    const Result result = sandbox.Qolf({"trace", "--no-store", "arc.mif"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.out.find("{\"type\":\"TrPolyline\",\"vertices\":[[0,1,0],"), std::string::npos)
        << result.out;
}

TEST(Trace, HandsTheOptionStringToTheFilterAsItStands) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"trace", "--no-store", "--option-string",
                                        "AreasToCurves=1;Defaults", cli::Sample("objects.mif")});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(
        result.out.find("{\"call\":\"GetStringOption\",\"options\":\"AreasToCurves=1;Defaults\","
                        "\"name\":\"Defaults\"}"),
        std::string::npos);
    EXPECT_EQ(result.out.find("TrPolygon"), std::string::npos);
}

TEST(Trace, OfAFolderIsAnErrorAndNoCrash) {
    const Sandbox sandbox;
    std::filesystem::create_directory(sandbox.Path("folder.mif"));

    EXPECT_EQ(sandbox.Qolf({"trace", "--no-store", "folder.mif"}).exitCode, 1);
}

// Imports a file, and exports what came of it under another name.
void WriteAgain(const Sandbox& sandbox, const std::string& from, const std::string& to) {
    const Result trace = sandbox.Qolf({"trace", "--no-store", from});
    ASSERT_EQ(trace.exitCode, 0) << trace.err;
    const Result replay = sandbox.Qolf({"replay", "--no-store", "-", to}, trace.out);
    ASSERT_EQ(replay.exitCode, 0) << replay.err;
}

class FileWithoutBrushes : public testing::TestWithParam<SampleRow> {};

TEST_P(FileWithoutBrushes, WrittenAgainIsTheSame) {
    const Sandbox sandbox;
    WriteAgain(sandbox, cli::Sample(GetParam().file + ".mif"), "b.mif");

    WriteAgain(sandbox, "b.mif", "c.mif");

    EXPECT_EQ(sandbox.Read("b.mid"), sandbox.Read("c.mid"));
    EXPECT_EQ(sandbox.Read("b.mif"), sandbox.Read("c.mif"));
}

INSTANTIATE_TEST_SUITE_P(, FileWithoutBrushes,
                         testing::Values(SampleRow{"Ways", "island-ways"},
                                         SampleRow{"Ridge", "real/utm_ridge"},
                                         SampleRow{"Places", "island-places"}),
                         [](const auto& row) { return row.param.name; });

class FileWithBrushes : public testing::TestWithParam<SampleRow> {};

// Kept: an opaque back colour is written as none, and none is read as a transparent white, which
// is written as three values: the clause has its first form again after two rounds.
TEST_P(FileWithBrushes, WrittenTwiceMoreIsTheSame) {
    const Sandbox sandbox;
    WriteAgain(sandbox, cli::Sample(GetParam().file + ".mif"), "b.mif");
    WriteAgain(sandbox, "b.mif", "c.mif");

    WriteAgain(sandbox, "c.mif", "d.mif");

    EXPECT_NE(sandbox.Read("b.mif"), sandbox.Read("c.mif"));
    EXPECT_EQ(sandbox.Read("b.mif"), sandbox.Read("d.mif"));
    EXPECT_EQ(sandbox.Read("b.mid"), sandbox.Read("d.mid"));
}

INSTANTIATE_TEST_SUITE_P(, FileWithBrushes,
                         testing::Values(SampleRow{"Island", "island"},
                                         SampleRow{"NonearthMix", "real/nonearth_mix"},
                                         SampleRow{"Lambert", "real/lambert_ntf"},
                                         SampleRow{"Water", "real/osm_water"}),
                         [](const auto& row) { return row.param.name; });

TEST(Replay, OfALineThatIsNoJsonNamesTheLineAndLeavesNothing) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"replay", "--no-store", "-", "out.mif"},
                     "{\"type\":\"TrPolyline\",\"vertices\":[[0,0,0],[1,1,0]]}\nnonsense\n");

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("line 2"), std::string::npos) << result.err;
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(Replay, OfAnUnknownTypeNamesTheLineAndLeavesNothing) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"replay", "--no-store", "-", "out.mif"}, "{\"type\":\"TrCloud\"}\n");

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("line 1"), std::string::npos) << result.err;
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(Replay, KeepsAnExistingFileUnlessToldOtherwise) {
    const Sandbox sandbox;
    sandbox.Write("out.mif", "mine");

    const Result result =
        sandbox.Qolf({"replay", "--no-store", "-", "out.mif"},
                     "{\"type\":\"TrPolyline\",\"vertices\":[[0,0,0],[1,1,0]]}\n");

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("--overwrite"), std::string::npos) << result.err;
    EXPECT_EQ(sandbox.Read("out.mif"), "mine");
}

TEST(Replay, TracesTheCallsOfTheExportFilterAndItsResults) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"replay", "--no-store", "--trace", "-", "out.mif"},
                     "{\"type\":\"TrInitGraphicsImp\"}\n"
                     "{\"type\":\"TrPolyline\",\"vertices\":[[0,0,0],[1,1,0]]}\n");

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("{\"call\":\"GetOption\",\"name\":\"AreasToCurves\""))
        << result.out;
    EXPECT_TRUE(result.out.ends_with(
        "{\"result\":{\"BeginExport\":0,\"ExportObject\":[0,0],\"EndExport\":0}}\n"))
        << result.out;
}

TEST(Replay, TracesAnExportWithoutGraphicObjectsWithTheAnswerOne) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"replay", "--no-store", "--trace", "-", "out.mif"}, "{\"type\":\"TrPen\"}\n");

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(result.out.ends_with(
        "{\"call\":\"ProgressEnd\"}\n"
        "{\"result\":{\"BeginExport\":0,\"ExportObject\":[0],\"EndExport\":1}}\n"))
        << result.out;
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(Replay, TracesAFailedWriteAsTheLastCallButTheEndOfTheProgress) {
    const Sandbox sandbox;
    std::string vertices = "[0,0,0]";
    for (int count = 0; count < 20'000; ++count) {
        vertices += ",[0.1,0.2,0]";
    }
    sandbox.Write("in.jsonl", "{\"type\":\"TrPolyline\",\"vertices\":[" + vertices + "]}\n");
    const support::FileSizeLimit limit(32 * 1024);

    const Result result = sandbox.Qolf({"replay", "--no-store", "--trace", "in.jsonl", "out.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: out.mif: can't write: File too large\n");
    EXPECT_TRUE(result.out.ends_with(
        "{\"call\":\"Throw_ERR_FILE_WRITE\",\"source\":\"MifExportFilter\",\"line\":402,"
        "\"texts\":[\"out.mif\",\"File write error\"]}\n{\"call\":\"ProgressEnd\"}\n"))
        << result.out;
    EXPECT_EQ(sandbox.Names(), std::vector<std::string>{"in.jsonl"});
}

}  // namespace
