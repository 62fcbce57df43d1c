// What the command says on its standard error.
#include "app/base/Reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>

namespace {

using app::Reporter;
using app::Verbosity;

// A stream whose bytes can be read back.
class Capture {
public:
    Capture() : stream_(std::tmpfile()) {}
    ~Capture() { std::fclose(stream_); }
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    std::FILE* Stream() const { return stream_; }

    std::string Text() const {
        std::fflush(stream_);
        std::rewind(stream_);
        std::string text;
        for (int c = std::fgetc(stream_); c != EOF; c = std::fgetc(stream_)) {
            text += static_cast<char>(c);
        }
        return text;
    }

private:
    std::FILE* stream_;
};

TEST(AReporter, PutsItsNameAndTheKindBeforeEachLine) {
    const Capture capture;
    Reporter reporter(capture.Stream(), false, false);

    reporter.Error("one\ntwo\n");

    EXPECT_EQ(capture.Text(), "qolf: error: one\nqolf: error: two\n");
}

TEST(AReporter, IsSilentButForErrorsWhenQuiet) {
    const Capture capture;
    Reporter reporter(capture.Stream(), false, false);
    reporter.SetVerbosity(Verbosity::Quiet);

    reporter.Warning("w");
    reporter.Note("n");
    reporter.Detail("d");
    reporter.Error("e");

    EXPECT_EQ(capture.Text(), "qolf: error: e\n");
}

TEST(AReporter, GivesDetailsOnlyWhenVerbose) {
    const Capture capture;
    Reporter reporter(capture.Stream(), false, false);
    reporter.Detail("unseen");
    reporter.SetVerbosity(Verbosity::Verbose);

    reporter.Detail("seen");

    EXPECT_EQ(capture.Text(), "qolf: detail: seen\n");
}

TEST(AReporter, ColoursTheKindWhenItMay) {
    const Capture capture;
    Reporter reporter(capture.Stream(), true, true);

    reporter.Error("e");

    EXPECT_EQ(capture.Text(), "qolf: \033[1;31merror\033[0m: e\n");
}

TEST(AReporter, SaysErrorsOnlyBesideABarAlone) {
    const Capture capture;
    Reporter reporter(capture.Stream(), true, false);
    reporter.SetVerbosity(app::Verbosity::BarOnly);

    reporter.StartProgress("a.mif");
    std::this_thread::sleep_for(std::chrono::milliseconds(550));
    reporter.Progress(0.5);
    reporter.Warning("w");
    reporter.Note("n");
    reporter.EndProgress();
    reporter.Error("e");

    const std::string text = capture.Text();
    EXPECT_THAT(text, testing::HasSubstr(" 50%"));
    EXPECT_TRUE(text.ends_with("\r\033[Kqolf: error: e\n")) << text;
}

TEST(AReporter, ShowsNoProgressOfAShortRun) {
    const Capture capture;
    Reporter reporter(capture.Stream(), true, false);

    reporter.StartProgress("a.mif");
    reporter.Progress(0.5);
    reporter.EndProgress();

    EXPECT_EQ(capture.Text(), "");
}

TEST(AReporter, ShowsTheShareOfALongRunAndClearsIt) {
    const Capture capture;
    Reporter reporter(capture.Stream(), true, false);

    reporter.StartProgress("a.mif");
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    reporter.Progress(0.5);
    reporter.EndProgress();

    const std::string text = capture.Text();
    EXPECT_NE(text.find("a.mif [###############...............] 50%"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\r\033[K")) << text;
}

struct RateRow {
    std::string name;  // letters and digits
    double total;
    app::ProgressUnit unit;
    std::string unitText;
};

class ABar : public testing::TestWithParam<RateRow> {};

TEST_P(ABar, ShowsTheRateAndTheTimeLeft) {
    const Capture capture;
    Reporter reporter(capture.Stream(), true, false);

    reporter.StartProgress("a.mif", GetParam().total, GetParam().unit);
    std::this_thread::sleep_for(std::chrono::milliseconds(550));
    reporter.Progress(0.5);
    reporter.EndProgress();

    const std::string text = capture.Text();
    EXPECT_THAT(text, testing::HasSubstr(" 50%, "));
    EXPECT_THAT(text, testing::HasSubstr(GetParam().unitText + ", 0:01 left"));
}

INSTANTIATE_TEST_SUITE_P(
    , ABar,
    testing::Values(RateRow{"Megabytes", 1e9, app::ProgressUnit::Bytes, " MB/s"},
                    RateRow{"Kilobytes", 1e4, app::ProgressUnit::Bytes, " kB/s"},
                    RateRow{"Files", 100.0, app::ProgressUnit::Files, " files/s"}),
    [](const auto& row) { return row.param.name; });

TEST(AReporter, ShowsNoProgressWhereThereIsNoTerminal) {
    const Capture capture;
    Reporter reporter(capture.Stream(), false, false);

    reporter.StartProgress("a.mif");
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    reporter.Progress(0.5);
    reporter.EndProgress();

    EXPECT_EQ(capture.Text(), "");
}

TEST(AReporter, KeepsItsLinesInATextWithoutABar) {
    std::string kept;
    Reporter reporter(kept);
    reporter.SetProgress(true);

    reporter.StartProgress("a.mif");
    reporter.Warning("odd");
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    reporter.Progress(0.5);
    reporter.EndProgress();

    EXPECT_EQ(kept, "qolf: warning: odd\n");
}

}  // namespace
