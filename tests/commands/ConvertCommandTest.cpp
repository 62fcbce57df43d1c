// What the command line of convert says in its help and refuses before any work.
#include "app/base/Errors.h"
#include "app/commands/Command.h"
#include "app/formats/Formats.h"
#include "tests/support/KeptMessages.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace app {
void AddConvertCommand(CLI::App& program, CommandContext& context);
}

namespace {

class ConvertCommand : public testing::Test {
protected:
    ConvertCommand() : program_("a program", "qolf"), context_(messages_.Reporter()) {
        app::AddConvertCommand(program_, context_);
    }

    // What the parser objects to; "" when it takes the line.
    std::string Parse(const std::string& line) {
        try {
            program_.parse("convert " + line);
        } catch (const CLI::ParseError& error) {
            return error.what();
        }
        return "";
    }

    std::string Help() { return program_.get_subcommand("convert")->help(); }

    support::KeptMessages messages_;
    CLI::App program_;
    app::CommandContext context_;
};

TEST_F(ConvertCommand, OnlySetsTheWork) {
    EXPECT_EQ(Parse("no-such-file.mif out.geojson"), "");

    EXPECT_TRUE(context_.run);
    EXPECT_EQ(messages_.Text(), "");
}

TEST_F(ConvertCommand, ConvertsOneFileWithoutAnOutputFolder) {
    ASSERT_EQ(Parse("no-such-file.mif"), "");
    try {
        context_.run();
        FAIL() << "one path is not refused";
    } catch (const app::UsageError& error) {
        EXPECT_STREQ(error.what(), "convert needs an input and an output, or --output-dir");
    }
}

TEST_F(ConvertCommand, ConvertsManyIntoAnOutputFolder) {
    ASSERT_EQ(Parse("--output-dir out no-such-file.mif"), "");
    try {
        context_.run();
        FAIL() << "the missing format is not refused";
    } catch (const app::UsageError& error) {
        EXPECT_STREQ(error.what(),
                     "--output-dir needs --to, which names the format of the outputs");
    }
}

TEST_F(ConvertCommand, ListsEveryFormatAndExtensionInItsHelp) {
    const std::string help = Help();
    for (const app::Format& format : app::Formats()) {
        for (const std::string_view extension : format.extensions) {
            EXPECT_NE(help.find(extension), std::string::npos) << extension;
        }
    }
    EXPECT_NE(help.find("Format: " + app::FormatNames()), std::string::npos) << help;
}

struct RefusedLine {
    const char* name;
    const char* line;
    const char* reason;
};

std::ostream& operator<<(std::ostream& out, const RefusedLine& row) {
    return out << row.name;
}

class ConvertCommandLine : public ConvertCommand,
                           public testing::WithParamInterface<RefusedLine> {};

TEST_P(ConvertCommandLine, IsRefusedWithItsReason) {
    const std::string reason = Parse(GetParam().line);

    EXPECT_NE(reason.find(GetParam().reason), std::string::npos) << reason;
    EXPECT_FALSE(context_.run);
}

INSTANTIATE_TEST_SUITE_P(
    , ConvertCommandLine,
    testing::Values(
        RefusedLine{"NoFile", "", "files is required"},
        RefusedLine{"BoxOfThree", "--bbox 1,2,3 a.mif b.gpkg",
                    "takes four numbers: minx,miny,maxx,maxy"},
        RefusedLine{"BoxOfWords", "--bbox 1,2,3,x a.mif b.gpkg", "\"x\" is not a number"},
        RefusedLine{"FewSegments", "--segments 3 a.mif b.gpkg", "--segments"},
        RefusedLine{"JobsWithoutAFolder", "--jobs 2 a.mif b.gpkg", "--output-dir"},
        RefusedLine{"ResumeWithoutAFolder", "--resume a.mif b.gpkg", "--output-dir"},
        RefusedLine{"UnknownOption", "--no-such-option a.mif b.gpkg", "--no-such-option"}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
