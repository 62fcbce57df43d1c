// Runs of a stand-in for the command: what is reported, counted, left out and redone.
#include "app/batch/BatchRun.h"

#include "app/base/Errors.h"
#include "app/base/TempFolder.h"
#include "app/base/platform/System.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

// The number of a process that is no longer there.
pid_t EndedProcess() {
    const pid_t process = fork();
    if (process == 0) {
        _exit(0);
    }
    waitpid(process, nullptr, 0);
    return process;
}

std::string PrivateFolderOf(pid_t process) {
    return ".qolf-" + std::to_string(process) + "-" + app::HostName() + "-AbCdEf";
}

class BatchRun : public testing::Test {
protected:
    BatchRun() : messages_(std::tmpfile()) { options_.convert = Convert; }
    ~BatchRun() override { std::fclose(messages_); }

    // An input with that text and its place in the batch.
    void Add(const std::string& name, const std::string& text) {
        folder_.Write(name + ".mif", text);
        std::filesystem::last_write_time(folder_.path() / (name + ".mif"),
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::seconds(60));
        options_.items.push_back(
            {folder_.path() / (name + ".mif"), folder_.path() / "out" / (name + ".gpkg")});
    }

    // Copies the input; what is said and how it ends is written in the input.
    static app::ConvertedItem Convert(const app::BatchItem& item, app::IfExists ifExists,
                                      app::Reporter& reporter) {
        std::stringstream text;
        text << std::ifstream(item.input).rdbuf();
        if (ifExists == app::IfExists::Refuse && std::filesystem::exists(item.output)) {
            throw app::Failure(item.output.string() + ": exists");
        }
        const std::map<std::string, std::function<int()>> endings = {
            {"fail", []() -> int { throw app::Failure("first line\nsecond line"); }},
            {"memory", []() -> int { throw std::bad_alloc(); }},
            {"mute", [] { return 7; }},
            {"interrupt",
             [] {  // as Ctrl-C does: all processes of the terminal get it
                 std::signal(SIGTERM, SIG_IGN);
                 kill(getppid(), SIGINT);
                 return std::raise(SIGINT);
             }},
            {"crash", [&item] {
                 const app::TempFolder left(item.output.parent_path());
                 std::ofstream(left.File("half")) << "done";
                 return std::raise(SIGKILL);
             }}};
        if (const auto ending = endings.find(text.str()); ending != endings.end()) {
            return {ending->second()};
        }
        if (text.str() == "warn") {
            reporter.Warning(item.input.string() + ": careful");
        }
        std::ofstream(item.output) << text.str();
        return {0, text.str().size()};
    }

    int Run() {
        app::Reporter reporter(messages_, /*isTerminal=*/false, /*useColor=*/false);
        return app::RunBatch(options_, reporter);
    }

    // A folder with a file in it.
    void Leave(const std::string& name) {
        std::filesystem::create_directories(folder_.path() / name);
        folder_.Write(name + "/half", "half");
    }

    std::vector<std::string> NamesInOutput() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path() / "out")) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    std::string Messages() {
        std::fflush(messages_);
        std::rewind(messages_);
        std::string text;
        for (int c = std::getc(messages_); c != EOF; c = std::getc(messages_)) {
            text += static_cast<char>(c);
        }
        const std::string prefix = (folder_.path() / "").string();
        for (auto at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
            text.erase(at, prefix.size());
        }
        return text;
    }

    support::TemporaryFolder folder_;
    app::BatchOptions options_;
    std::FILE* messages_;
};

TEST_F(BatchRun, ConvertsEveryFileIntoAFolderThatItMakes) {
    Add("a", "one");
    Add("b", "two");

    EXPECT_EQ(Run(), 0);

    EXPECT_EQ(folder_.Read("out/a.gpkg"), "one");
    EXPECT_EQ(folder_.Read("out/b.gpkg"), "two");
    EXPECT_EQ(Messages(), "qolf: note: converted 2 of 2 files\n");
}

TEST_F(BatchRun, ReportsAFailureInOneLineAndConvertsTheRest) {
    Add("a", "fail");
    Add("b", "two");

    EXPECT_EQ(Run(), 1);

    EXPECT_EQ(folder_.Read("out/b.gpkg"), "two");
    EXPECT_EQ(Messages(), "qolf: error: a.mif: first line second line\n"
                          "qolf: note: converted 1 of 2 files, 1 failed\n");
}

TEST_F(BatchRun, ReportsAFailureWithoutAWord) {
    Add("a", "mute");

    Run();

    EXPECT_EQ(Messages(), "qolf: error: a.mif: ended with exit code 7\n"
                          "qolf: note: converted 0 of 1 file, 1 failed\n");
}

TEST_F(BatchRun, ReportsACrash) {
    Add("a", "crash");

    EXPECT_EQ(Run(), 1);

    EXPECT_EQ(Messages(), "qolf: error: a.mif: ended by signal 9\n"
                          "qolf: note: converted 0 of 1 file, 1 failed\n");
}

TEST_F(BatchRun, ReportsAnEndOfMemory) {
    Add("a", "memory");

    EXPECT_EQ(Run(), 1);

    EXPECT_EQ(Messages(), "qolf: error: a.mif: out of memory\n"
                          "qolf: note: converted 0 of 1 file, 1 failed\n");
}

TEST_F(BatchRun, PassesWarningsOn) {
    Add("a", "warn");

    EXPECT_EQ(Run(), 0);

    EXPECT_EQ(Messages(), "qolf: warning: a.mif: careful\n"
                          "qolf: note: converted 1 of 1 file\n");
}

TEST_F(BatchRun, ReplacesNothingUnasked) {
    Add("a", "one");
    Run();

    EXPECT_EQ(Run(), 1);

    EXPECT_EQ(Messages(), "qolf: note: converted 1 of 1 file\n"
                          "qolf: error: out/a.gpkg: exists\n"
                          "qolf: note: converted 0 of 1 file, 1 failed\n");
}

TEST_F(BatchRun, ReplacesWhatIsThereWhenAsked) {
    Add("a", "one");
    Run();
    folder_.Write("a.mif", "two");
    options_.ifExists = app::IfExists::Overwrite;

    EXPECT_EQ(Run(), 0);

    EXPECT_EQ(folder_.Read("out/a.gpkg"), "two");
}

TEST_F(BatchRun, ResumedLeavesOutWhatIsDone) {
    Add("a", "one");
    Run();
    Add("b", "two");
    folder_.Write("out/a.gpkg", "done before");
    options_.resume = true;

    EXPECT_EQ(Run(), 0);

    EXPECT_EQ(folder_.Read("out/a.gpkg"), "done before");
    EXPECT_EQ(folder_.Read("out/b.gpkg"), "two");
    EXPECT_EQ(Messages(), "qolf: note: converted 1 of 1 file\n"
                          "qolf: note: converted 1 of 2 files, 1 done before\n");
}

TEST_F(BatchRun, ResumedRedoesWhatIsOlderThanItsInput) {
    Add("a", "one");
    Run();
    std::filesystem::last_write_time(folder_.path() / "out/a.gpkg",
                                     std::filesystem::file_time_type::clock::now() -
                                         std::chrono::seconds(120));
    folder_.Write("a.mif", "two");
    options_.resume = true;

    EXPECT_EQ(Run(), 0);

    EXPECT_EQ(folder_.Read("out/a.gpkg"), "two");
}

TEST_F(BatchRun, LeavesNothingOfAProcessThatWasKilled) {
    Add("a", "crash");

    Run();

    EXPECT_TRUE(std::filesystem::is_empty(folder_.path() / "out"));
}

TEST_F(BatchRun, ResumedRemovesWhatAKilledRunHasLeft) {
    Add("a", "one");
    const std::string left = "out/" + PrivateFolderOf(EndedProcess());
    Leave(left);
    options_.resume = true;

    EXPECT_EQ(Run(), 0);

    EXPECT_FALSE(folder_.Has(left));
    EXPECT_EQ(folder_.Read("out/a.gpkg"), "one");
}

TEST_F(BatchRun, ThatIsNotResumedLeavesEverythingThere) {
    Add("a", "one");
    const std::string left = "out/" + PrivateFolderOf(EndedProcess());
    Leave(left);

    EXPECT_EQ(Run(), 0);

    EXPECT_TRUE(folder_.Has(left));
}

TEST_F(BatchRun, ResumedLeavesFoldersOfOtherRunsAndOtherNamesAlone) {
    Add("a", "one");
    const std::vector<std::string> others = {PrivateFolderOf(getpid()),
                                             ".qolf--1-abcdef",
                                             ".qolf-0-abcdef",
                                             ".qolf-12",
                                             ".qolf-notes",
                                             "mine"};
    std::for_each(others.begin(), others.end(), [this](const auto& name) { Leave("out/" + name); });
    options_.resume = true;

    EXPECT_EQ(Run(), 0);

    std::vector<std::string> left = others;
    left.push_back("a.gpkg");
    EXPECT_THAT(NamesInOutput(), testing::UnorderedElementsAreArray(left));
}

TEST_F(BatchRun, ResumedLeavesFoldersOfOtherMachinesAlone) {
    Add("a", "one");
    const std::string other = "out/.qolf-" + std::to_string(EndedProcess()) + "-elsewhere-AbCdEf";
    Leave(other);
    options_.resume = true;

    EXPECT_EQ(Run(), 0);

    EXPECT_TRUE(folder_.Has(other));
}

TEST_F(BatchRun, ResumedRemovesWhatItsOwnOutputsLeftOnOtherMachines) {
    Add("a", "one");
    const std::string other = "out/.qolf-" + std::to_string(getpid()) + "-elsewhere-AbCdEf";
    Leave(other);
    folder_.Write(other + "/a.gpkg", "half");
    options_.resume = true;
    options_.ownsOutputs = true;

    EXPECT_EQ(Run(), 0);

    EXPECT_FALSE(folder_.Has(other));
    EXPECT_EQ(folder_.Read("out/a.gpkg"), "one");
}

TEST_F(BatchRun, TellsHowEachFileEnded) {
    Add("a", "one");
    Add("b", "fail");
    Add("c", "crash");
    std::map<std::string, app::BatchOutcome> ends;
    options_.onEnd = [&ends](const app::BatchItem& item, const app::BatchOutcome& outcome) {
        ends[item.input.filename().string()] = outcome;
    };

    Run();

    EXPECT_EQ(ends.at("a.mif").features, 3U);
    EXPECT_EQ(ends.at("a.mif").error, "");
    EXPECT_GT(ends.at("a.mif").seconds, 0.0);
    EXPECT_EQ(ends.at("b.mif").features, std::nullopt);
    EXPECT_EQ(ends.at("b.mif").error, "first line second line");
    EXPECT_EQ(ends.at("c.mif").error, "ended by signal 9");
}

TEST_F(BatchRun, LeavesNoPrivateFolderAfterASignal) {
    Add("a", "interrupt");
    const auto run = [this] {
        const app::TempFolder unpacked(folder_.path() / "temporary");
        std::ofstream(unpacked.File("a.mif")) << "one";
        Run();
    };
    std::filesystem::create_directory(folder_.path() / "temporary");

    EXPECT_EXIT(run(), testing::KilledBySignal(SIGINT), "");

    EXPECT_TRUE(std::filesystem::is_empty(folder_.path() / "temporary"));
}

TEST_F(BatchRun, TellsNothingOfFilesThatASignalBrokeOff) {
    Add("a", "interrupt");
    options_.onEnd = [this](const app::BatchItem&, const app::BatchOutcome&) {
        folder_.Write("told", "");
    };

    EXPECT_EXIT(Run(), testing::KilledBySignal(SIGINT), "");

    EXPECT_FALSE(folder_.Has("told"));
}

TEST_F(BatchRun, SaysWhyAFolderCannotBeMade) {
    Add("a", "one");
    folder_.Write("out", "a file");

    EXPECT_THROW(Run(), app::Failure);
}

}  // namespace
