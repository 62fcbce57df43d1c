// Runs of a stand-in for the command: what is reported, counted, left out and redone.
#include "app/batch/BatchRun.h"

#include "app/Errors.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>

namespace {

class BatchRun : public testing::Test {
protected:
    BatchRun() : messages_(std::tmpfile()) {
        // Copies the input; what it says and how it ends stands in the input.
        folder_.Write("convert.sh", R"(
overwrite=no
if [ "$1" = --overwrite ]; then overwrite=yes; shift; fi
if [ -e "$2" ] && [ $overwrite = no ]; then echo "qolf: error: $2: exists" >&2; exit 1; fi
if grep -q warn "$1"; then echo "qolf: warning: $1: careful" >&2; fi
if grep -q fail "$1"; then printf 'qolf: error: first line\nqolf: error: second line\n' >&2; exit 1; fi
if grep -q mute "$1"; then exit 7; fi
if grep -q crash "$1"; then kill -SEGV $$; fi
cp "$1" "$2"
)");
    }
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

    int Run() {
        options_.command = {"/bin/sh", (folder_.path() / "convert.sh").string()};
        app::Reporter reporter(messages_, /*isTerminal=*/false, /*useColor=*/false);
        return app::RunBatch(options_, reporter);
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

    EXPECT_EQ(Messages(), "qolf: error: a.mif: ended by signal 11\n"
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

TEST_F(BatchRun, SaysWhyAFolderCannotBeMade) {
    Add("a", "one");
    folder_.Write("out", "a file");

    EXPECT_THROW(Run(), app::Failure);
}

}  // namespace
