#include "host/shr/CSystemInfo.h"
#include "host/shr/IError.h"
#include "host/zeio/CProgress.h"
#include "host/zeio/IoManager.h"
#include "standalone/Log.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Receives the log for the time of one test.
class ExceptionLog : public testing::Test {
protected:
    ExceptionLog()
        : previous_(standalone::SetLogSink(
              [this](const standalone::LogEntry& entry) { entries_.push_back(entry); })) {}
    ~ExceptionLog() override { standalone::SetLogSink(previous_); }

    std::vector<standalone::LogEntry> entries_;

private:
    standalone::LogSink previous_;
};

TEST(IError, DescribesItselfInUtf8) {
    const shr::IError error(L"CMifReader", 7, L"\u00E9");

    EXPECT_STREQ(error.what(), "CMifReader(7): \xC3\xA9");
}

TEST_F(ExceptionLog, ReceivesASwallowedException) {
    try {
        throw std::runtime_error("disk full");
    } catch (...) {
        shr::LogExceptionInfo(L"qolf", L"CMifReader", 70);
    }

    ASSERT_EQ(entries_.size(), 1U);
    EXPECT_EQ(entries_[0].module, L"qolf");
    EXPECT_EQ(entries_[0].sourceFile, L"CMifReader");
    EXPECT_EQ(entries_[0].line, 70);
    EXPECT_EQ(entries_[0].text, "disk full");
}

TEST_F(ExceptionLog, NamesAnExceptionOfNoKnownKind) {
    try {
        throw 5;
    } catch (...) {
        shr::LogExceptionInfo(L"qolf", L"CMifReader", 70);
    }

    ASSERT_EQ(entries_.size(), 1U);
    EXPECT_EQ(entries_[0].text, "unknown exception");
}

TEST_F(ExceptionLog, TakesACallOutsideACatchBlock) {
    shr::LogExceptionInfoAndRethrowIfUnknown(L"qolf", L"CMifReader", 70);

    ASSERT_EQ(entries_.size(), 1U);
    EXPECT_EQ(entries_[0].text, "no exception is under way");
}

TEST_F(ExceptionLog, SwallowsTheHostsOwnKind) {
    try {
        throw shr::IError(L"MifImportDlg", 1, L"bad");
    } catch (...) {
        EXPECT_NO_THROW(shr::LogExceptionInfoAndRethrowIfUnknown(L"qolf", L"MifImportDlg", 157));
    }

    ASSERT_EQ(entries_.size(), 1U);
    EXPECT_EQ(entries_[0].text, "MifImportDlg(1): bad");
}

TEST_F(ExceptionLog, LogsAndRethrowsAnotherKind) {
    try {
        throw std::runtime_error("foreign");
    } catch (...) {
        EXPECT_THROW(shr::LogExceptionInfoAndRethrowIfUnknown(L"qolf", L"MifImportDlg", 157),
                     std::runtime_error);
    }

    EXPECT_EQ(entries_.size(), 1U);
}

TEST_F(ExceptionLog, DropsEntriesWithoutASink) {
    standalone::SetLogSink(nullptr);

    EXPECT_NO_THROW(shr::LogExceptionInfo(L"qolf", L"CMifReader", 70));

    EXPECT_TRUE(entries_.empty());
}

TEST_F(ExceptionLog, OutlivesASinkThatThrows) {
    standalone::SetLogSink([](const standalone::LogEntry&) { throw std::runtime_error("full"); });

    EXPECT_NO_THROW(shr::LogExceptionInfo(L"qolf", L"CMifReader", 70));
}

TEST(TheInitialLog, IsALineOnStderr) {
    testing::internal::CaptureStderr();

    standalone::WriteLog({L"qolf", L"CMifReader", 70, "disk full"});

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "qolf: CMifReader(70): disk full\n");
}

// A host whose progress display breaks at the end.
class BrokenHost : public support::RecordingHost {
public:
    void ProgressEnd() override { throw std::runtime_error("no terminal"); }
};

TEST_F(ExceptionLog, ReceivesWhatTheEndOfAProgressThrows) {
    BrokenHost host;
    zeio::IoManager manager(host);

    { const zeio::CProgress progress(manager); }

    ASSERT_EQ(entries_.size(), 1U);
    EXPECT_EQ(entries_[0].sourceFile, L"CProgress");
}

TEST(WinProcReturnCodeAfterException, SaysThatTheMessageWasNotHandled) {
    EXPECT_EQ(shr::WinProcReturnCodeAfterException(nullptr, WM_COMMAND), 0);
}

TEST(CSystemInfo, KnowsTheDefaultFace) {
    EXPECT_EQ(shr::CSystemInfo::DefVariablePitchFace(), L"Arial");
}

}  // namespace
