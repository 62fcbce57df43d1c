#include "tests/cli/CliRun.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

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
