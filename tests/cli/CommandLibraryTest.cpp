// The commands that live in a library of their own, and those that do without it.
#include "tests/cli/CliRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

using testing::HasSubstr;
using testing::Not;

// The command in a folder with the module and the host library alone.
class CommandWithoutItsLibrary : public testing::Test {
protected:
    CommandWithoutItsLibrary() {
        std::filesystem::create_directory(sandbox_.Path("bin"));
        for (const char* name : {"qolf", "qolf.so", "libqolfhost.so.0"}) {
            std::filesystem::copy_file(cli::Command().parent_path() / name,
                                       sandbox_.Path("bin") / name);
        }
    }

    // Puts a library in its place that is another.
    void PutModuleInItsPlace() {
        std::filesystem::copy_file(sandbox_.Path("bin/qolf.so"),
                                   sandbox_.Path("bin/qolf-commands.so"));
    }

    cli::Result Qolf(const std::vector<std::string>& arguments) {
        return sandbox_.Run(sandbox_.Path("bin/qolf").string(), arguments);
    }

    std::string Folder() const { return sandbox_.Path("bin").string(); }

private:
    cli::Sandbox sandbox_;
};

TEST(ACommand, LoadsNoLargeLibraryAtItsStart) {
    const cli::Sandbox sandbox;

    const cli::Result result = sandbox.Run("/usr/bin/ldd", {cli::Command().string()});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.out, HasSubstr("libqolfhost"));
    for (const char* library : {"proj", "cairo", "geos", "sqlite", "newt", "curl"}) {
        EXPECT_THAT(result.out, Not(HasSubstr(library)));
    }
}

TEST_F(CommandWithoutItsLibrary, SaysWhatAFileHolds) {
    const cli::Result result = Qolf({"info", cli::Sample("objects.mif")});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.out, HasSubstr("EPSG       32635 WGS 84 / UTM zone 35N"));
    EXPECT_EQ(result.err, "");
}

TEST_F(CommandWithoutItsLibrary, TracesAFile) {
    const cli::Result result = Qolf({"-q", "trace", "--no-store", cli::Sample("objects.mif")});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
}

TEST_F(CommandWithoutItsLibrary, NamesThePlacesWhereOtherCommandsWereLookedFor) {
    const cli::Result result = Qolf({"convert", "a.mif", "b.geojson"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(
        result.err,
        HasSubstr("qolf: error: qolf-commands.so was not found; looked for\nqolf: error:   " +
                  Folder() + "/qolf-commands.so\n"));
}

TEST_F(CommandWithoutItsLibrary, SaysSoInsteadOfLeavingOutWhatOnlyTheLibraryKnows) {
    const cli::Result result = Qolf({"info", "--json", cli::Sample("objects.mif")});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, HasSubstr("qolf-commands.so was not found"));
}

TEST_F(CommandWithoutItsLibrary, RefusesALibraryThatIsNotItsOwn) {
    PutModuleInItsPlace();

    const cli::Result result = Qolf({"--help"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "qolf: error: " + Folder() +
                              "/qolf-commands.so: belongs to another version of qolf\n");
}

}  // namespace
