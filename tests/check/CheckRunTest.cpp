#include "app/check/CheckRun.h"

#include "app/check/GatheredFindings.h"
#include "app/check/PairCheck.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

using testing::HasSubstr;

struct Outcome {
    int exitCode = 0;
    std::string text;
};

std::string Data(const std::string& name) {
    return (std::filesystem::path(QOLF_TEST_DATA) / "check" / name).string();
}

Outcome Check(app::CheckOptions options) {
    options.modulePath = QOLF_MODULE;
    app::Reporter reporter(stderr, false, false);
    reporter.SetVerbosity(app::Verbosity::Quiet);
    testing::internal::CaptureStdout();
    Outcome outcome;
    outcome.exitCode = app::RunCheck(options, reporter);
    outcome.text = testing::internal::GetCapturedStdout();
    return outcome;
}

TEST(QolfCheck, AnswersZeroForACleanFile) {
    const Outcome outcome = Check({.files = {Data("clean-region.mif")}});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.text, Data("clean-region.mif") + ": nothing found\n");
}

TEST(QolfCheck, AnswersOneForErrors) {
    EXPECT_EQ(Check({.files = {Data("number-unreadable.mif")}}).exitCode, 1);
}

TEST(QolfCheck, AnswersZeroForWarningsAlone) {
    EXPECT_EQ(Check({.files = {Data("unclosed-ring.mif")}}).exitCode, 0);
}

TEST(QolfCheck, AnswersThreeForWarningsWithStrict) {
    EXPECT_EQ(Check({.files = {Data("unclosed-ring.mif")}, .strict = true}).exitCode, 3);
}

TEST(QolfCheck, AnswersZeroForNotesWithStrict) {
    EXPECT_EQ(Check({.files = {Data("doubled-vertex.mif")}, .strict = true}).exitCode, 0);
}

TEST(QolfCheck, SaysOfAFileThatIsNoMifFileWhatItLooksLike) {
    const support::TemporaryFolder folder;
    folder.Write("a.mif", "PK\x03\x04");

    const Outcome outcome = Check({.files = {folder.path() / "a.mif"}});

    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.text, HasSubstr("a.mif: error MIF-F001: is not a MIF file: it looks like a "
                                        "zip archive\n"));
    EXPECT_THAT(outcome.text, HasSubstr("a.mif: 1 error, 0 warnings, 0 notes\n"));
}

TEST(QolfCheck, TakesTheMifFileBesideAMidFile) {
    app::CheckArguments arguments;
    arguments.files = {Data("clean-region.mid")};

    EXPECT_EQ(app::CheckedCheckOptions(arguments).files.front(), Data("clean-region.mif"));
}

TEST(QolfCheck, PrintsPlaceSeverityCodeObjectMessageAndAdvice) {
    const Outcome outcome = Check({.files = {Data("unclosed-ring.mif")}});

    EXPECT_EQ(outcome.text, Data("unclosed-ring.mif") +
                                ":10: warning MIF-G001: object 1: the last vertex is not the "
                                "first one\n    Repeat the first vertex at the end.\n" +
                                Data("unclosed-ring.mif") + ": 0 errors, 1 warning, 0 notes\n");
}

TEST(QolfCheck, SaysHowManyFindingsOfACodeItDoesNotShow) {
    const Outcome outcome = Check({.files = {Data("decimal-commas.mif")}, .maxPerCode = 1});

    EXPECT_THAT(outcome.text, HasSubstr("MIF-O008: 2 more not shown\n"));
    EXPECT_THAT(outcome.text, HasSubstr("3 errors"));
}

TEST(QolfCheck, PrintsOneJsonDocumentForAllFiles) {
    const Outcome outcome =
        Check({.files = {Data("unclosed-ring.mif"), Data("clean-region.mif")}, .json = true});

    const auto json = nlohmann::ordered_json::parse(outcome.text);
    ASSERT_EQ(json["files"].size(), 2U);
    EXPECT_EQ(json["files"][0]["findings"].dump(),
              nlohmann::ordered_json::array({{{"code", "MIF-G001"},
                                              {"name", "ring-not-closed"},
                                              {"severity", "warning"},
                                              {"file", Data("unclosed-ring.mif")},
                                              {"line", 10},
                                              {"object", 1},
                                              {"count", 1},
                                              {"otherProgramsOnly", false},
                                              {"message", "the last vertex is not the first one"},
                                              {"advice", "Repeat the first vertex at the end."}}})
                  .dump());
    EXPECT_EQ(json["files"][0]["warnings"], 1);
    EXPECT_EQ(json["files"][1]["findings"].size(), 0U);
}

TEST(QolfCheck, ReportsItsRepairsAsJson) {
    const support::TemporaryFolder folder;

    const Outcome outcome = Check({.files = {Data("count-on-next-line.mif")},
                                   .json = true,
                                   .fix = folder.path() / "copy.mif"});

    const auto json = nlohmann::json::parse(outcome.text);
    EXPECT_EQ(json["fix"]["written"], true);
    EXPECT_EQ(json["fix"]["count"], 1);
    EXPECT_EQ(json["fix"]["repairs"][0]["code"], "MIF-O004");
}

TEST(QolfCheck, SaysWhatItRepaired) {
    const support::TemporaryFolder folder;

    const Outcome outcome =
        Check({.files = {Data("decimal-commas.mif")}, .fix = folder.path() / "copy.mif"});

    EXPECT_EQ(outcome.exitCode, 1);  // of the input
    EXPECT_THAT(outcome.text, HasSubstr(":10: repaired MIF-O008: the decimal comma becomes a full "
                                        "stop\n"));
    EXPECT_THAT(outcome.text, HasSubstr("copy.mif: written with 3 repairs\n"));
}

TEST(QolfCheck, SaysThatThereIsNothingToRepair) {
    const support::TemporaryFolder folder;
    const std::filesystem::path copy = folder.path() / "copy.mif";

    const Outcome outcome = Check({.files = {Data("clean-region.mif")}, .fix = copy});
    const Outcome asJson = Check({.files = {Data("clean-region.mif")}, .json = true, .fix = copy});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.text, HasSubstr(copy.string() + ": not written: there is nothing to "
                                                        "repair\n"));
    EXPECT_EQ(nlohmann::json::parse(asJson.text)["fix"]["written"], false);
    EXPECT_FALSE(folder.Has("copy.mif"));
}

// Whole pairs are read: 0 and 1 are reached, in order, by each pass.
TEST(QolfCheck, ReportsHowMuchOfAPairItHasRead) {
    std::vector<double> heard;
    app::CheckPair(Data("clean-region.mif"),
                   {.progress = [&heard](double fraction) { heard.push_back(fraction); }},
                   *std::make_unique<app::GatheredFindings>());

    ASSERT_FALSE(heard.empty());
    EXPECT_TRUE(std::is_sorted(heard.begin(), heard.end()));
    EXPECT_DOUBLE_EQ(heard.back(), 1.0);
}

}  // namespace
