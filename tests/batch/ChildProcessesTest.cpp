// Processes beside one another: their messages, their ends, and signals.
#include "app/batch/ChildProcesses.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <stdexcept>

#include <unistd.h>

namespace {

std::string NoTask(std::size_t /*number*/) {
    return "";
}

class RunChildren : public testing::Test {
protected:
    // Runs shell scripts, at most parallel at a time.
    int Run(const std::vector<std::string>& scripts, std::size_t parallel = 2) {
        results_.assign(scripts.size(), {});
        return app::RunChildren(
            scripts.size(), parallel,
            [&](std::size_t number) {
                execl("/bin/sh", "sh", "-c", scripts[number].c_str(), nullptr);
                return 127;
            },
            NoTask,
            [&](std::size_t number, const app::ChildResult& result) {
                order_.push_back(number);
                results_[number] = result;
            });
    }

    std::vector<app::ChildResult> results_;
    std::vector<std::size_t> order_;
};

TEST_F(RunChildren, GivesExitCodesAndMessages) {
    Run({"echo one >&2", "echo two >&2; exit 3"});

    EXPECT_EQ(results_[0].exitCode, 0);
    EXPECT_EQ(results_[0].messages, "one\n");
    EXPECT_EQ(results_[1].exitCode, 3);
    EXPECT_EQ(results_[1].messages, "two\n");
}

TEST_F(RunChildren, TellsTheSignalThatEndedAProgram) {
    Run({"kill -9 $$"});

    EXPECT_EQ(results_[0].signal, SIGKILL);
}

TEST_F(RunChildren, GivesNothingOnStandardInput) {
    Run({"cat >&2"});

    EXPECT_EQ(results_[0].messages, "");
}

TEST_F(RunChildren, RunsMoreProgramsThanAtATime) {
    Run(std::vector<std::string>(20, "echo x >&2"), 3);

    EXPECT_EQ(order_.size(), 20U);
    EXPECT_TRUE(std::all_of(results_.begin(), results_.end(), [](const app::ChildResult& result) {
        return result.messages == "x\n";
    }));
}

TEST_F(RunChildren, RunsProgramsBesideOneAnother) {
    const support::TemporaryFolder folder;
    const std::string pipe = (folder.path() / "pipe").string();

    // Each waits for the other, so one at a time would never end.
    Run({"mkfifo " + pipe + "; echo hello > " + pipe,
         "while ! [ -p " + pipe + " ]; do sleep 0.01; done; cat " + pipe + " >&2"});

    EXPECT_EQ(results_[1].messages, "hello\n");
}

TEST_F(RunChildren, DrainsMoreMessagesThanAPipeHolds) {
    Run({"head -c 300000 /dev/zero | tr '\\0' 'x' >&2"});

    EXPECT_EQ(results_[0].messages.size(), 300000U);
}

TEST_F(RunChildren, ChangesNothingInThisProcess) {
    int value = 1;

    app::RunChildren(
        1, 1,
        [&](std::size_t) {
            value = 2;
            return 5;
        },
        NoTask, [&](std::size_t, const app::ChildResult& result) { results_.push_back(result); });

    EXPECT_EQ(value, 1);
    EXPECT_EQ(results_.front().exitCode, 5);
}

TEST_F(RunChildren, TellsAnExceptionAsACrash) {
    app::RunChildren(
        1, 1, [](std::size_t) -> int { throw std::runtime_error("lost"); }, NoTask,
        [&](std::size_t, const app::ChildResult& result) { results_.push_back(result); });

    EXPECT_EQ(results_.front().signal, SIGABRT);
}

TEST_F(RunChildren, PassesASignalOnAndStartsNothingMore) {
    const std::string scripts = "kill -TERM $PPID; exec sleep 60";

    const int signalNumber = Run({scripts, "true", "true"}, 1);

    EXPECT_EQ(signalNumber, SIGTERM);
    EXPECT_EQ(results_[0].signal, SIGTERM);
    EXPECT_EQ(order_, std::vector<std::size_t>{0});
}

TEST_F(RunChildren, LeavesTheSignalsAsTheyWere) {
    struct sigaction before {};
    sigaction(SIGTERM, nullptr, &before);

    Run({"true"});

    struct sigaction after {};
    sigaction(SIGTERM, nullptr, &after);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
}

}  // namespace
