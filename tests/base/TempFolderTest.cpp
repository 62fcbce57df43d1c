// Private folders go with all that is in them, also when a signal ends the program.
#include "app/base/TempFolder.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace app {
namespace {

using std::filesystem::path;

void Fill(const path& folder) {
    std::filesystem::create_directories(folder / "deep" / "deeper");
    for (const char* name : {"a", "deep/b", "deep/deeper/c"}) {
        std::ofstream(folder / name) << "x";
    }
}

class APrivateFolder : public testing::Test {
protected:
    bool IsEmpty() const { return std::filesystem::is_empty(folder_.path()); }

    support::TemporaryFolder folder_;
};

TEST_F(APrivateFolder, GoesWithItsObject) {
    {
        const TempFolder made(folder_.path());
        Fill(made.Path());
        EXPECT_FALSE(IsEmpty());
    }
    EXPECT_TRUE(IsEmpty());
}

TEST_F(APrivateFolder, GoesWithASignal) {
    const auto end = [this] {
        const TempFolder made(folder_.path());
        Fill(made.Path());
        for (int i = 0; i < 500; ++i) {
            std::ofstream(made.Path() / "deep" / std::to_string(i)) << "x";
        }
        std::raise(SIGTERM);
    };

    EXPECT_EXIT(end(), testing::KilledBySignal(SIGTERM), "");

    EXPECT_TRUE(IsEmpty());
}

TEST_F(APrivateFolder, LeavesWhatLinksInItLeadTo) {
    const support::TemporaryFolder other;
    static_cast<void>(other.Write("kept", "x"));
    const auto end = [&] {
        const TempFolder made(folder_.path());
        std::filesystem::create_directory_symlink(other.path(), made.Path() / "link");
        std::raise(SIGINT);
    };

    EXPECT_EXIT(end(), testing::KilledBySignal(SIGINT), "");

    EXPECT_TRUE(IsEmpty());
    EXPECT_TRUE(other.Has("kept"));
}

TEST_F(APrivateFolder, StaysWhenASignalEndsAChildOfItsProgram) {
    const TempFolder made(folder_.path());
    const pid_t child = fork();
    if (child == 0) {
        std::raise(SIGTERM);
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);

    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_TRUE(std::filesystem::exists(made.Path()));
}

}  // namespace
}  // namespace app
