// Parts of a batch, with a stand-in for the conversion: who does what, and what a resumed part
// does.
#include "app/batch/ShardRun.h"

#include "app/base/Errors.h"
#include "app/batch/BatchLog.h"
#include "app/batch/BatchReport.h"
#include "app/batch/ShardPlan.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

class ShardRun : public testing::Test {
protected:
    ShardRun() {
        options_.jobs = 1;
        options_.convert = [](const app::BatchItem& item, app::IfExists,
                              app::Reporter&) -> app::ConvertedItem {
            if (item.input.filename() == "bad.mif") {
                throw app::Failure("is bad");
            }
            std::ofstream(item.output) << "done";
            std::ofstream(item.output.parent_path().parent_path() / "calls", std::ios::app)
                << item.input.filename().string() << "\n";
            return {0, 5};
        };
        for (int i = 0; i < 20; ++i) {
            Add("map" + std::to_string(i));
        }
    }

    void Add(const std::string& name) {
        folder_.Write(name + ".mif", std::string(name.size() * 1000, 'x'));
        std::filesystem::last_write_time(folder_.path() / (name + ".mif"),
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::seconds(60));
        options_.items.push_back(
            {folder_.path() / (name + ".mif"), Out() / "sub" / (name + ".gpkg")});
    }

    std::filesystem::path Out() const { return folder_.path() / "out"; }
    std::filesystem::path Log(std::size_t number, std::size_t count) const {
        return app::LogPathOf(Out(), {number, count});
    }

    int Run(std::size_t number, std::size_t count) {
        return app::RunShard(options_, Out(), {number, count}, messages_.Reporter());
    }

    void RunAll(std::size_t count) {
        for (std::size_t number = 1; number <= count; ++number) {
            Run(number, count);
        }
    }

    // How often each file was converted.
    std::map<std::string, int> Calls() const {
        std::ifstream calls(Out() / "calls");
        std::map<std::string, int> counts;
        for (std::string name; std::getline(calls, name);) {
            ++counts[name];
        }
        return counts;
    }

    void AppendToLog(std::size_t number, std::size_t count, const std::string& text) const {
        std::ofstream(Log(number, count), std::ios::app) << text;
    }

    app::BatchOptions options_;
    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

TEST_F(ShardRun, DoesEveryFileInOnePartOnly) {
    RunAll(3);

    const std::map<std::string, int> calls = Calls();
    EXPECT_EQ(calls.size(), 20U);
    for (const auto& [name, count] : calls) {
        EXPECT_EQ(count, 1) << name;
    }
    EXPECT_TRUE(app::SummaryOf(Out()).IsComplete());
}

TEST_F(ShardRun, WritesALineForEachFile) {
    Run(1, 1);

    const std::vector<app::BatchLogLine> lines = app::ReadBatchLog(Log(1, 1));

    ASSERT_EQ(lines.size(), 20U);
    // The largest file first; of equal ones in their order.
    EXPECT_EQ(lines.front().input, (folder_.path() / "map10.mif").string());
    EXPECT_EQ(lines.front().output, "sub/map10.gpkg");
    EXPECT_EQ(lines.front().features, 5U);
    EXPECT_GT(lines.front().seconds, 0.0);
    EXPECT_EQ(lines.front().error, "");
}

TEST_F(ShardRun, RefusesAPartThatHasBeenRun) {
    Run(1, 2);

    EXPECT_THROW(Run(1, 2), app::UsageError);
}

TEST_F(ShardRun, RefusesOtherFilesThanThoseOfThePlan) {
    Run(1, 2);
    Add("more");

    EXPECT_THROW(Run(2, 2), app::UsageError);
}

TEST_F(ShardRun, ResumedDoesNothingTwice) {
    RunAll(2);
    options_.resume = true;

    RunAll(2);

    EXPECT_EQ(Calls().at("map3.mif"), 1);
    EXPECT_EQ(app::ReadBatchLog(Log(1, 2)).size() + app::ReadBatchLog(Log(2, 2)).size(), 20U);
}

TEST_F(ShardRun, ResumedBehindHalfALineRedoesThatFileOnly) {
    Run(1, 1);
    const std::string text = folder_.Read("out/.qolf/1-of-1.jsonl");
    const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    folder_.Write("out/.qolf/1-of-1.jsonl", text.substr(0, lastLine + 20));
    const std::string cut = app::ReadBatchLog(Log(1, 1)).back().input;
    options_.resume = true;

    EXPECT_EQ(Run(1, 1), 0);

    const std::vector<app::BatchLogLine> lines = app::ReadBatchLog(Log(1, 1));
    EXPECT_EQ(lines.size(), 20U);
    EXPECT_NE(lines.back().input, cut);
    int twice = 0;
    for (const auto& [name, count] : Calls()) {
        twice += count == 2 ? 1 : 0;
    }
    EXPECT_EQ(twice, 1);
    EXPECT_TRUE(app::SummaryOf(Out()).IsComplete());
}

TEST_F(ShardRun, ResumedRedoesWhatHasNoLine) {
    Run(1, 1);
    std::filesystem::remove(Log(1, 1));
    options_.resume = true;

    Run(1, 1);

    EXPECT_EQ(Calls().at("map3.mif"), 2);
}

TEST_F(ShardRun, ResumedRedoesWhatFailed) {
    Add("bad");
    EXPECT_EQ(Run(1, 1), 1);
    options_.resume = true;
    options_.convert = [](const app::BatchItem& item, app::IfExists,
                          app::Reporter&) -> app::ConvertedItem {
        std::ofstream(item.output) << "done";
        return {0, 1};
    };

    EXPECT_EQ(Run(1, 1), 0);

    EXPECT_TRUE(app::SummaryOf(Out()).IsComplete());
}

TEST_F(ShardRun, ResumedWithMoreFilesAndOtherPartsKeepsWhatIsDone) {
    RunAll(3);
    Add("more");
    options_.resume = true;

    RunAll(2);

    EXPECT_EQ(Calls().at("map3.mif"), 1);
    EXPECT_EQ(Calls().at("more.mif"), 1);
    const app::BatchSummary summary = app::SummaryOf(Out());
    EXPECT_EQ(summary.shards, 2U);
    EXPECT_EQ(summary.files, 21U);
    EXPECT_TRUE(summary.IsComplete());
}

TEST_F(ShardRun, KeepsToAPlanWhoseFilesHaveChangedTheirSizes) {
    Run(1, 3);
    for (const app::BatchItem& item : options_.items) {
        std::filesystem::resize_file(item.input, item.input.string().size() % 7 * 100'000);
        std::filesystem::last_write_time(item.input, std::filesystem::file_time_type::clock::now() -
                                                         std::chrono::seconds(60));
    }

    Run(2, 3);
    Run(3, 3);

    EXPECT_EQ(Calls().size(), 20U);
    EXPECT_TRUE(app::SummaryOf(Out()).IsComplete());
}

TEST_F(ShardRun, WithOverwriteBeginsItsLogAnew) {
    Run(1, 1);
    options_.ifExists = app::IfExists::Overwrite;

    Run(1, 1);

    EXPECT_EQ(app::ReadBatchLog(Log(1, 1)).size(), 20U);
}

TEST(ABatchLog, PassesOverWhatIsNoLine) {
    const support::TemporaryFolder folder;
    folder.Write("log", "{\"input\":\"a\",\"output\":\"b\",\"features\":1,\"seconds\":2,"
                        "\"error\":null}\nnonsense\n[]\n{}\n{\"input\":\"c\",\"outp");

    EXPECT_EQ(app::ReadBatchLog(folder.path() / "log").size(), 1U);
    EXPECT_TRUE(app::ReadBatchLog(folder.path() / "none").empty());
}

}  // namespace
