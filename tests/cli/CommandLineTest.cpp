// What all subcommands have in common on the command line.
#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using cli::Result;
using cli::Sandbox;

TEST(TheCommandLine, PrintsTheVersionFirst) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"--version"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.out.starts_with("qolf ")) << result.out;
    EXPECT_EQ(result.err, "");
}

class EachCommand : public testing::TestWithParam<const char*> {};

TEST_P(EachCommand, ExplainsItselfWithExamples) {
    const Sandbox sandbox;

    const Result help = sandbox.Qolf({GetParam(), "--help"});

    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_NE(help.out.find("Examples:"), std::string::npos) << help.out;
    EXPECT_NE(sandbox.Qolf({"--help"}).out.find(std::string("\n  ") + GetParam() + " "),
              std::string::npos);
}

TEST_P(EachCommand, ExplainsTheSameUnderHelp) {
    const Sandbox sandbox;

    EXPECT_EQ(sandbox.Qolf({"help", GetParam()}).out, sandbox.Qolf({GetParam(), "--help"}).out);
}

TEST_P(EachCommand, ExplainsTheOptionsOfAllCommands) {
    const Sandbox sandbox;

    const std::string help = sandbox.Qolf({GetParam(), "--help"}).out;

    for (const char* option : {"-q,--quiet", "-v,--verbose", "--progress", "--no-progress"}) {
        EXPECT_NE(help.find(std::string("\n  ") + option + " "), std::string::npos) << option;
    }
}

TEST_P(EachCommand, RefusesAnUnknownOptionWithExitCode2) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({GetParam(), "--no-such-option"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(result.err.starts_with("qolf: error: ")) << result.err;
}

INSTANTIATE_TEST_SUITE_P(, EachCommand,
                         testing::Values("info", "convert", "batch-report", "trace", "replay",
                                         "draw", "check", "options"),
                         [](const auto& row) {
                             std::string name = row.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(TheCommandLine, NamesACommandThatThereIsNot) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"covnert", "a.mif"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.err, "qolf: error: there is no command 'covnert'; did you mean convert?\n");
}

TEST(TheCommandLine, ExplainsItselfWhenNothingIsAsked) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, sandbox.Qolf({"--help"}).out);
}

TEST(TheCommandLine, ExplainsTheProgramUnderHelpAlone) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"help"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, sandbox.Qolf({"--help"}).out);
    EXPECT_NE(result.out.find("Examples:"), std::string::npos) << result.out;
}

struct UsageRow {
    std::string name;  // letters and digits
    std::vector<std::string> arguments;
    std::string error;
};

class AWrongCommandLine : public testing::TestWithParam<UsageRow> {};

TEST_P(AWrongCommandLine, IsToldInALineThatNamesTheHelp) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(GetParam().arguments);

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "qolf: error: " + GetParam().error + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    , AWrongCommandLine,
    testing::Values(
        UsageRow{"OptionsWithoutACommand", {"--quiet"}, "no command is named; see qolf --help"},
        UsageRow{"ACommandLikeNoOther",
                 {"paint", "a.mif"},
                 "there is no command 'paint'; qolf --help lists them"},
        UsageRow{"AMisspeltOption",
                 {"convert", "--overwite", "a.mif", "b.mif"},
                 "convert: there is no option --overwite; did you mean --overwrite?"},
        UsageRow{"AMisspeltOptionWithAValue",
                 {"draw", "--wdith=3", "a.mif", "b.png"},
                 "draw: there is no option --wdith; did you mean --width?"},
        UsageRow{"AMisspeltOptionOfEveryCommand",
                 {"--qiet", "info", "a.mif"},
                 "info: there is no option --qiet; did you mean --quiet?"},
        UsageRow{"ABegunOption",
                 {"info", "--enc", "UTF-8", "a.mif"},
                 "info: there is no option --enc; did you mean --encoding?"},
        UsageRow{"AnOptionWithOneDash",
                 {"info", "-jsno", "a.mif"},
                 "info: there is no option -jsno; did you mean --json?"},
        UsageRow{"AnOptionLikeNoOther",
                 {"info", "--paint", "a.mif"},
                 "info: there is no option --paint; see qolf help info"},
        UsageRow{"AMisspeltCommandOfACommand",
                 {"options", "rest"},
                 "options: there is no command 'rest'; did you mean reset?"},
        UsageRow{"AnArgumentTooMany",
                 {"trace", "a.mif", "b.mif"},
                 "trace: 'b.mif' is one argument too many; see qolf help trace"},
        UsageRow{"AnOptionWithoutItsValue",
                 {"convert", "a.mif", "b.mif", "--crs"},
                 "convert: --crs needs a value: SYSTEM; see qolf help convert"},
        UsageRow{"ANumberBelowNothing",
                 {"convert", "--limit", "-1", "a.mif", "b.mif"},
                 "convert: --limit: takes a whole number, 0 or more, not \"-1\"; see qolf help "
                 "convert"},
        UsageRow{"ANumberOutOfItsRange",
                 {"convert", "--precision", "16", "a.mif", "b.mif"},
                 "convert: --precision: takes a whole number from 0 to 15, not \"16\"; see qolf "
                 "help convert"},
        UsageRow{"AWordForANumber",
                 {"draw", "--width", "wide", "a.mif", "b.png"},
                 "draw: --width takes a number, not \"wide\"; see qolf help draw"},
        UsageRow{"AnOptionWithoutAnother",
                 {"convert", "--jobs", "2", "a.mif", "b.mif"},
                 "convert: --jobs needs --output-dir; see qolf help convert"},
        UsageRow{"InfoOfNothing", {"info"}, "info: no file is named; see qolf help info"},
        UsageRow{
            "ConversionOfNothing", {"convert"}, "convert: no file is named; see qolf help convert"},
        UsageRow{"TraceOfNothing", {"trace"}, "trace: file is missing; see qolf help trace"},
        UsageRow{"ReplayIntoNothing",
                 {"replay", "a.jsonl"},
                 "replay: output is missing; see qolf help replay"},
        UsageRow{"CheckOfNothing", {"check"}, "check needs one or more MIF files"},
        UsageRow{"ABoxOfWords",
                 {"convert", "--bbox", "a,b,c,d", "a.mif", "b.mif"},
                 "convert: --bbox: \"a\" is not a number; see qolf help convert"},
        UsageRow{"HelpForNoCommand",
                 {"help", "me"},
                 "there is no command 'me'; qolf --help lists them"}),
    [](const auto& row) { return row.param.name; });

class AWrongValue : public testing::TestWithParam<UsageRow> {};

TEST_P(AWrongValue, HasTheExitCodeOfAWrongCommandLine) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf(GetParam().arguments);

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find(GetParam().error), std::string::npos) << result.err;
    EXPECT_TRUE(sandbox.Names().empty());
}

INSTANTIATE_TEST_SUITE_P(
    , AWrongValue,
    testing::Values(
        UsageRow{"OfAFormat",
                 {"convert", "--to", "shp", cli::Sample("texts.mif"), "a.x"},
                 "--to shp: the formats are mif"},
        UsageRow{"OfAnExtension",
                 {"convert", cli::Sample("texts.mif"), "a.x"},
                 "a.x: the format follows from the extension"},
        UsageRow{"OfASystem",
                 {"convert", "--crs", "Mars", cli::Sample("texts.mif"), "a.geojson"},
                 "--crs Mars: "},
        UsageRow{"OfAnAssumedSystem",
                 {"draw", "--assume-crs", "EPSG:999999", cli::Sample("texts.mif"), "a.png"},
                 "--assume-crs EPSG:999999: "},
        UsageRow{"OfAnEncoding",
                 {"info", "--encoding", "runes", cli::Sample("texts.mif")},
                 "--encoding runes: "},
        UsageRow{"OfAnOutputsEncoding",
                 {"convert", "--output-encoding", "runes", cli::Sample("texts.mif"), "a.mif"},
                 "encoding runes: "},
        UsageRow{"OfAColumn",
                 {"convert", "--select", "nme", cli::Sample("attributes.mif"), "a.geojson"},
                 "there is no column \"nme\""},
        UsageRow{"OfALabel",
                 {"draw", "--label", "nme", cli::Sample("attributes.mif"), "a.png"},
                 "--label nme: "},
        UsageRow{"OfABox",
                 {"draw", "--bbox", "1,2", cli::Sample("texts.mif"), "a.png"},
                 "--bbox must be "},
        UsageRow{"OfAColor",
                 {"draw", "--background", "sky", cli::Sample("texts.mif"), "a.png"},
                 "--background must be "},
        UsageRow{"OfAPicture",
                 {"draw", "--to", "gif", cli::Sample("texts.mif"), "a.gif"},
                 "--to must be svg, png, pdf or html"},
        UsageRow{"OfAStoredOption", {"options", "set", "RenderText=maybe"}, "RenderText=maybe"},
        UsageRow{"WhereAStoredOptionHasNone",
                 {"options", "set", "RenderText"},
                 "\"RenderText\" lacks a value: RenderText=yes or RenderText=no"}),
    [](const auto& row) { return row.param.name; });

TEST(TheCommandLine, TakesTheOldNameOfToAndHidesIt) {
    const Sandbox sandbox;

    EXPECT_EQ(sandbox.Qolf({"convert", "--format", "gpkg", cli::Sample("texts.mif"), "a"}).exitCode,
              0);
    EXPECT_EQ(sandbox.Qolf({"draw", "--format", "svg", cli::Sample("texts.mif"), "b"}).exitCode, 0);

    for (const char* command : {"convert", "draw"}) {
        const std::string help = sandbox.Qolf({command, "--help"}).out;
        EXPECT_NE(help.find("--to "), std::string::npos);
        EXPECT_EQ(help.find("--format"), std::string::npos);
    }
}

TEST(TheCommandLine, NamesAModuleThatThereIsNot) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"--module", "no-such.so", "info", cli::Sample("texts.mif")});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.starts_with("qolf: error: no-such.so: can't load the filter module: "))
        << result.err;
}

TEST(TheCommandLine, RefusesALibraryThatIsNoModule) {
    const Sandbox sandbox;
    const std::string library = (cli::Command().parent_path() / "libqolfhost.so").string();

    const Result result = sandbox.Qolf({"--module", library, "info", cli::Sample("texts.mif")});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err,
              "qolf: error: " + library + ": is not a filter module: it lacks ImportMIF\n");
}

TEST(TheCommandLine, TakesTheOptionsOfAllCommandsBehindTheCommand) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nColumns 1\n  id Char(9)\n");

    EXPECT_EQ(sandbox.Qolf({"info", "-q", "a.mif"}).err, "");
    EXPECT_TRUE(sandbox.Qolf({"options", "set", "-v", "RenderText=yes"})
                    .err.starts_with("qolf: detail: version "));
}

TEST(TheCommandLine, SaysNothingButErrorsWhenQuiet) {
    const Sandbox sandbox;
    sandbox.Write("a.mif", "Version 300\nColumns 1\n  id Char(9)\n");

    EXPECT_NE(sandbox.Qolf({"info", "a.mif"}).err, "");
    EXPECT_EQ(sandbox.Qolf({"--quiet", "info", "a.mif"}).err, "");
}

TEST(TheCommandLine, TellsVersionAndModuleWhenVerbose) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"--verbose", "info", cli::Sample("texts.mif")});

    EXPECT_TRUE(result.err.starts_with("qolf: detail: version ")) << result.err;
    EXPECT_NE(result.err.find("qolf: detail: module: "), std::string::npos) << result.err;
}

TEST(Trace, IntoAPipeThatNobodyReadsEndsQuietly) {
    const Sandbox sandbox;
    // The shell's own notion of a reader that goes away at once.
    const std::string command = cli::Command().string() + " trace --no-store " +
                                cli::Sample("real/osm_water.mif") + " 2>" +
                                sandbox.Path("err").string() + " | true";

    EXPECT_EQ(std::system(command.c_str()), 0);

    EXPECT_EQ(sandbox.Read("err"), "");
}

// A replay that waits for its standard input and keeps its temporary files in the folder.
pid_t StartWaitingReplay(const Sandbox& sandbox, int& input) {
    int ends[2];
    if (pipe(ends) != 0) {
        throw std::runtime_error("no pipe");
    }
    const std::string folder = sandbox.Path("").string();
    const std::string command = cli::Command().string();
    const pid_t child = fork();
    if (child == 0) {
        setenv("TMPDIR", folder.c_str(), 1);
        dup2(ends[0], 0);
        close(ends[0]);
        close(ends[1]);
        execl(command.c_str(), "qolf", "replay", "--no-store", "-", (folder + "out.mif").c_str(),
              static_cast<char*>(nullptr));
        _exit(127);
    }
    close(ends[0]);
    input = ends[1];
    return child;
}

TEST(AnInterrupt, LeavesNoTemporaryFiles) {
    const Sandbox sandbox;
    int input = -1;
    const pid_t child = StartWaitingReplay(sandbox, input);
    for (int i = 0; i < 500 && sandbox.Names().empty(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ASSERT_FALSE(sandbox.Names().empty());

    kill(child, SIGTERM);
    int status = 0;
    waitpid(child, &status, 0);
    close(input);

    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(Replay, TakesACrLfInputAndEmptyLines) {
    const Sandbox sandbox;

    const Result result =
        sandbox.Qolf({"replay", "--no-store", "-", "out.mif"},
                     "\r\n{\"type\":\"TrPolyline\",\"vertices\":[[0,0,0],[1,1,0]]}\r\n\r\n");

    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(sandbox.Names(), (std::vector<std::string>{"out.mid", "out.mif"}));
}

TEST(Replay, OfNothingSaysSoAndWritesNothing) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"replay", "--no-store", "-", "out.mif"}, "");

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "qolf: warning: standard input: holds no objects that are drawn; nothing "
                          "was written\n");
    EXPECT_TRUE(sandbox.Names().empty());
}

TEST(Replay, ToStandardOutputIsAUsageErrorSinceAPairIsTwoFiles) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"replay", "-", "-"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("two files"), std::string::npos) << result.err;
}

TEST(Replay, ToAnotherExtensionIsAUsageError) {
    const Sandbox sandbox;

    EXPECT_EQ(sandbox.Qolf({"replay", "-", "out.txt"}).exitCode, 2);
}

TEST(Replay, OfAMissingFileNamesIt) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"replay", "missing.jsonl", "out.mif"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: missing.jsonl: can't open: No such file or directory\n");
}

TEST(Replay, IntoAFolderThatThereIsNotSaysSo) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"replay", "-", "no/out.mif"}, "");

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: no/out.mif: can't write: there is no folder no\n");
}

TEST(Replay, GradesPenWidthsAlikeWithAndWithoutTheExtent) {
    // With the extent at once, without it at the end by the bounds of what was written.
    const std::string objects =
        "{\"type\":\"TrInitGraphicsImp\"}\n"
        "{\"type\":\"TrPen\",\"style\":1,\"color\":[0,0,0,255],\"relative\":true,\"width\":1}\n"
        "{\"type\":\"TrPolyline\",\"vertices\":[[0,0,0],[6,8,0]]}\n";
    const Sandbox sandbox;

    sandbox.Qolf({"replay", "--no-store", "--trace", "-", "a.mif"}, objects);
    sandbox.Qolf({"replay", "--no-store", "--no-extent", "-", "b.mif"}, objects);

    EXPECT_NE(sandbox.Read("a.mif").find("PEN (7, 2, 0)"), std::string::npos);
    EXPECT_EQ(sandbox.Read("a.mif"), sandbox.Read("b.mif"));
}

}  // namespace
