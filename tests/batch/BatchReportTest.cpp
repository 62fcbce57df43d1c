// What the report says of a batch.
#include "app/batch/BatchReport.h"

#include "app/base/Errors.h"
#include "app/batch/BatchLog.h"
#include "app/batch/ShardPlan.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace {

class BatchReport : public testing::Test {
protected:
    BatchReport() {
        std::vector<app::BatchItem> items;
        for (const char* name : {"a", "b", "c", "d"}) {
            items.push_back({folder_.path() / (std::string(name) + ".mif"),
                             folder_.path() / (std::string(name) + ".gpkg"), "", 1'000'000});
        }
        app::PlanShards(items, 2, folder_.path(), app::OtherPlan::Refuse);
    }

    void Log(std::size_t part, const app::BatchLogLine& line) {
        app::BatchLog log(app::LogPathOf(folder_.path(), {part, 2}),
                          app::BatchLog::Begin::BehindWhatIsThere);
        log.Add(line);
        if (line.error.empty()) {
            folder_.Write(line.output, "x");
        }
    }

    // Prints the report; paths are relative to the folder.
    std::string Report(app::BatchReportOptions options, int exitCode) {
        options.folder = folder_.path().string();
        testing::internal::CaptureStdout();
        EXPECT_EQ(app::RunBatchReport(options), exitCode);
        std::string text = testing::internal::GetCapturedStdout();
        const std::string prefix = (folder_.path() / "").string();
        for (auto at = text.find(prefix); at != std::string::npos; at = text.find(prefix)) {
            text.erase(at, prefix.size());
        }
        return text;
    }

    support::TemporaryFolder folder_;
};

TEST_F(BatchReport, CountsWhatIsDoneAndNamesWhatIsNot) {
    Log(1, {"a.mif", "a.gpkg", 12, 1.5, ""});
    Log(2, {"b.mif", "b.gpkg", std::nullopt, 0.5, "b.mif: no\nheader"});
    Log(1, {"c.mif", "c.gpkg", 1'200, 2.0, ""});

    EXPECT_EQ(Report({}, 1), "failed: b.mif (part 2 of 2): b.mif: no?header\n"
                             "missing: d.mif (part 2 of 2)\n"
                             "files     4 in 2 parts\n"
                             "done      2: 1,212 features, 2.0 MB of input, 3.5 s of work\n"
                             "failed    1\n"
                             "missing   1\n"
                             "not complete: run the parts again with --resume\n");
}

TEST_F(BatchReport, AnswersZeroWhenEverythingIsDone) {
    for (const char* name : {"a", "b", "c", "d"}) {
        Log(1, {std::string(name) + ".mif", std::string(name) + ".gpkg", 1, 0.25, ""});
    }

    EXPECT_EQ(Report({}, 0), "files     4 in 2 parts\n"
                             "done      4: 4 features, 4.0 MB of input, 1.0 s of work\n"
                             "failed    0\n"
                             "missing   0\n"
                             "complete\n");
}

TEST_F(BatchReport, TakesTheLastWordOnAFile) {
    Log(1, {"a.mif", "a.gpkg", std::nullopt, 0.0, "ended by signal 9"});
    Log(1, {"a.mif", "a.gpkg", 3, 1.0, ""});
    Log(2, {"b.mif", "b.gpkg", 3, 1.0, ""});
    Log(2, {"b.mif", "b.gpkg", std::nullopt, 0.0, "changed and bad now"});

    const app::BatchSummary summary = app::SummaryOf(folder_.path());

    EXPECT_EQ(summary.done, 1U);
    ASSERT_EQ(summary.failed.size(), 1U);
    EXPECT_EQ(summary.failed[0].reason, "changed and bad now");
}

TEST_F(BatchReport, MissesAnOutputThatHasGone) {
    Log(1, {"a.mif", "a.gpkg", 12, 1.5, ""});
    std::filesystem::remove(folder_.path() / "a.gpkg");

    EXPECT_EQ(app::SummaryOf(folder_.path()).missing.size(), 4U);
}

TEST_F(BatchReport, ShowsSoManyFilesOfEachKind) {
    EXPECT_NE(Report({.folder = "", .most = 1}, 1).find("missing: 3 more; --max 0 shows all\n"),
              std::string::npos);
    EXPECT_EQ(Report({.folder = "", .most = 0}, 1).find("more"), std::string::npos);
}

TEST_F(BatchReport, HasAllFilesAsJson) {
    Log(1, {"a.mif", "a.gpkg", 12, 1.5, ""});
    Log(2, {"b.mif", "b.gpkg", std::nullopt, 0.5, "no header"});

    const auto json = nlohmann::json::parse(Report({.folder = "", .json = true, .most = 1}, 1));

    EXPECT_EQ(json["complete"], false);
    EXPECT_EQ(json["files"], 4);
    EXPECT_EQ(json["done"], 1);
    EXPECT_EQ(json["features"], 12);
    EXPECT_EQ(json["failed"][0]["error"], "no header");
    EXPECT_EQ(json["failed"][0]["part"], 2);
    EXPECT_EQ(json["missing"].size(), 2U);
}

TEST(BatchReportOf, AFolderWithoutABatchIsRefused) {
    const support::TemporaryFolder folder;

    EXPECT_THROW(app::SummaryOf(folder.path()), app::Failure);
}

TEST(BatchReportOf, ABatchWithHalfAPlanIsRefused) {
    const support::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / ".qolf");
    folder.Write(".qolf/plan.jsonl", "{\"shards\":2,\"files\":3,\"inputs\":\"x\"}\n{\"sha");

    EXPECT_THROW(app::SummaryOf(folder.path()), app::Failure);
}

}  // namespace
