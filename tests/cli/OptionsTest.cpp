#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using cli::Result;
using cli::Sandbox;

// A terminal of its own, with real keys and a screen to read.
class Terminal {
public:
    explicit Terminal(const Sandbox& sandbox, const std::string& arguments)
        : name_(sandbox.Path("tmux").string()) {
        Tmux("new-session -d -x 80 -y 24 \"env HOME=" + sandbox.Path(".home").string() +
             " XDG_CONFIG_HOME=" + sandbox.Path(".home").string() + " " QOLF_COMMAND " " +
             arguments + " ; echo ended with \\$? ; sleep 60\"");
    }
    ~Terminal() { Tmux("kill-server"); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void Press(const std::string& keys) const { Tmux("send-keys " + keys); }

    // Waits until the screen shows the text; the screen as it is after ten seconds if it doesn't.
    std::string ScreenWith(const std::string& text) const {
        std::string screen;
        for (int attempt = 0; attempt < 100; ++attempt) {
            screen = Tmux("capture-pane -p");
            if (screen.find(text) != std::string::npos) {
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return screen;
    }

private:
    std::string Tmux(const std::string& arguments) const {
        const std::string command =
            "LC_ALL=C.UTF-8 tmux -S " + name_ + " -f /dev/null " + arguments + " 2>/dev/null";
        std::string output;
        FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> buffer;
        for (std::size_t size = 0;
             (size = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
            output.append(buffer.data(), size);
        }
        pclose(pipe);
        return output;
    }

    std::string name_;  // of the server's socket
};

TEST(Options, AreListedWithTheirDefaults) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"options"});

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.out.find("RenderText     yes  export: take texts (default)\n"),
              std::string::npos)
        << result.out;
}

TEST(Options, ThatAreSetHoldForTheNextRun) {
    const Sandbox sandbox;

    EXPECT_EQ(sandbox.Qolf({"options", "set", "ignorestyles=yes"}).exitCode, 0);

    const Result trace = sandbox.Qolf({"trace", cli::Sample("objects.mif")});
    EXPECT_NE(trace.out.find("\"name\":\"IgnoreStyles\",\"value\":true"), std::string::npos);
}

TEST(Options, AreForgottenByReset) {
    const Sandbox sandbox;
    sandbox.Qolf({"options", "set", "RenderText=no"});

    EXPECT_EQ(sandbox.Qolf({"options", "reset"}).exitCode, 0);

    EXPECT_NE(sandbox.Qolf({"options"}).out.find("RenderText     yes"), std::string::npos);
}

TEST(Options, OfAnotherNameAreAUsageError) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"options", "set", "Colours=no"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("\"Colours\""), std::string::npos);
}

TEST(Options, WithoutAValueAreAUsageError) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"options", "set", "RenderText"});

    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(
        sandbox.Qolf({"options"}).out.find("RenderText     yes  export: take texts (default)"),
        std::string::npos);
}

// Everything that can be stored, otherwise than by default.
void StoreAll(const Sandbox& sandbox) {
    const Result result = sandbox.Qolf({"options", "set", "AreasToCurves=yes", "IgnoreStyles=yes",
                                        "RenderText=no", "RenderMarkers=no"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
}

// A command line, and the file that it makes; empty: it prints.
struct StoredOptionsRow {
    std::string name;
    std::vector<std::string> arguments;
    std::string output;
};

std::string Outcome(const Sandbox& sandbox, const StoredOptionsRow& row) {
    const Result result = sandbox.Qolf(row.arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result.out + result.err + sandbox.Read(row.output);
}

class WithAllOptionsStored : public testing::TestWithParam<StoredOptionsRow> {};

TEST_P(WithAllOptionsStored, TheOutputIsTheSame) {
    const Sandbox without;
    const Sandbox with;
    StoreAll(with);

    const std::string expected = Outcome(without, GetParam());

    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(Outcome(with, GetParam()), expected);
}

// Texts, points, areas and their styles are in this file.
const std::string kObjects = cli::Sample("objects.mif");

INSTANTIATE_TEST_SUITE_P(
    , WithAllOptionsStored,
    testing::Values(
        StoredOptionsRow{"OfAConversionToMif", {"convert", kObjects, "a.mif"}, "a.mif"},
        StoredOptionsRow{
            "OfAConversionToGeoJson", {"convert", "--styles", kObjects, "a.geojson"}, "a.geojson"},
        StoredOptionsRow{"OfAConversionWithAnOptionString",
                         {"convert", "--option-string", "RenderText=0", kObjects, "a.mif"},
                         "a.mif"},
        StoredOptionsRow{"OfABatch",
                         {"convert", "--to", "geojsonl", "--output-dir", "out", kObjects},
                         "out/objects.geojsonl"},
        StoredOptionsRow{"OfADrawing", {"draw", kObjects, "a.svg"}, "a.svg"},
        StoredOptionsRow{"OfADrawingAsIs", {"draw", "--as-is", kObjects, "a.svg"}, "a.svg"},
        StoredOptionsRow{"OfInfo", {"info", "--count", kObjects}, ""},
        StoredOptionsRow{"OfInfoAsIs", {"info", "--count", "--as-is", kObjects}, ""},
        StoredOptionsRow{"OfACheck", {"check", "--json", kObjects}, ""}),
    [](const auto& row) { return row.param.name; });

TEST(StoredOptions, ArriveInAPackageUnheard) {
    const Sandbox without;
    const Sandbox with;
    StoreAll(with);
    const auto package = [](const Sandbox& sandbox) {
        sandbox.Qolf({"convert", kObjects, "a.gpkg"});
        return sandbox.Qolf({"convert", "a.gpkg", "-"}).out;
    };

    EXPECT_NE(package(without).find("\"Feature\""), std::string::npos);
    EXPECT_EQ(package(with), package(without));
}

TEST(StoredOptions, StayAsTheyAreWhenAConversionHasItsOwn) {
    const Sandbox sandbox;
    sandbox.Qolf({"options", "set", "RenderText=yes"});

    sandbox.Qolf({"convert", "--option-string", "RenderText=0", kObjects, "a.mif"});

    EXPECT_NE(sandbox.Qolf({"options"}).out.find("RenderText     yes  export: take texts\n"),
              std::string::npos);
}

TEST(StoredOptions, ActOnTheModulesOwnExport) {
    const Sandbox without;
    const Sandbox with;
    StoreAll(with);
    const std::vector<std::string> arguments = {"convert", "--as-is", kObjects, "a.mif"};

    without.Qolf(arguments);
    with.Qolf(arguments);

    EXPECT_NE(without.Read("a.mif").find("TEXT"), std::string::npos);
    EXPECT_NE(without.Read("a.mif").find("REGION"), std::string::npos);
    EXPECT_EQ(with.Read("a.mif").find("TEXT"), std::string::npos);
    EXPECT_EQ(with.Read("a.mif").find("REGION"), std::string::npos);
    EXPECT_NE(with.Read("a.mif").find("PLINE"), std::string::npos);
}

TEST(StoredOptions, ActOnTheModulesOwnImport) {
    const Sandbox without;
    const Sandbox with;
    StoreAll(with);
    const std::vector<std::string> arguments = {"convert", "--as-is", cli::Sample("island.mif"),
                                                "-"};

    EXPECT_NE(without.Qolf(arguments).out.find("\"Polygon\""), std::string::npos);
    EXPECT_EQ(with.Qolf(arguments).out.find("\"type\":\"Polygon\""), std::string::npos);
}

TEST(StoredOptions, AreLeftOutOfTheModulesOwnRunsByNoStore) {
    const Sandbox without;
    const Sandbox with;
    StoreAll(with);
    const std::vector<std::string> arguments = {"convert", "--as-is", "--no-store", kObjects,
                                                "a.mif"};

    without.Qolf(arguments);
    with.Qolf(arguments);

    EXPECT_EQ(with.Read("a.mif"), without.Read("a.mif"));
}

TEST(OptionsPage, WithoutATerminalSaysWhatToDoInstead) {
    const Sandbox sandbox;

    const Result result = sandbox.Qolf({"options", "export"});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("qolf options set"), std::string::npos);
}

TEST(ExportPage, StoresWhatIsCheckedWhenOkIsPressed) {
    const Sandbox sandbox;
    const Terminal terminal(sandbox, "options export");
    EXPECT_NE(terminal.ScreenWith("MIF Options").find("[*] Render text"), std::string::npos);

    terminal.Press("Space");
    EXPECT_NE(terminal.ScreenWith("[*] Write").find("[*] Write areas as curves"),
              std::string::npos);
    terminal.Press("Tab Tab Tab Tab Enter");

    EXPECT_NE(terminal.ScreenWith("ended").find("ended with 0"), std::string::npos);
    EXPECT_NE(sandbox.Qolf({"options"}).out.find("AreasToCurves  yes"), std::string::npos);
}

TEST(ExportPage, BringsTheDefaultsBackAndChangesNothingWhenCancelled) {
    const Sandbox sandbox;
    sandbox.Qolf({"options", "set", "RenderText=no"});
    const Terminal terminal(sandbox, "options export");
    EXPECT_NE(terminal.ScreenWith("MIF Options").find("[ ] Render text"), std::string::npos);

    terminal.Press("Tab Tab Tab Enter");
    EXPECT_NE(terminal.ScreenWith("[*] Render text").find("[*] Render text"), std::string::npos);
    terminal.Press("Escape");

    EXPECT_NE(terminal.ScreenWith("ended").find("ended with 0"), std::string::npos);
    EXPECT_NE(sandbox.Qolf({"options"}).out.find("RenderText     no"), std::string::npos);
}

TEST(ImportPage, StoresWhatIsCheckedWhenOkIsPressed) {
    const Sandbox sandbox;
    const Terminal terminal(sandbox, "options import");
    EXPECT_NE(terminal.ScreenWith("Ignore styles").find("[ ] Ignore styles"), std::string::npos);

    terminal.Press("Tab Space");
    EXPECT_NE(terminal.ScreenWith("[*] Ignore").find("[*] Ignore styles"), std::string::npos);
    terminal.Press("Tab Tab Enter");

    EXPECT_NE(terminal.ScreenWith("ended").find("ended with 0"), std::string::npos);
    EXPECT_NE(sandbox.Qolf({"options"}).out.find("IgnoreStyles   yes"), std::string::npos);
}

TEST(ImportPage, ShowsHelpByItsKey) {
    const Sandbox sandbox;
    const Terminal terminal(sandbox, "options import");
    EXPECT_NE(terminal.ScreenWith("Ignore styles").find("Import Options"), std::string::npos);

    terminal.Press("F1");

    EXPECT_NE(terminal.ScreenWith("left out").find("Help"), std::string::npos);
}

}  // namespace
