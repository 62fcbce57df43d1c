// The import options dialog of the built module, in real windows.
#include "host/platform/OptionsDialogOwner.h"
#include "host/zeio/Errors.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "standalone/Log.h"
#include "tests/windows/DialogUser.h"
#include "tests/windows/LoadedModule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using windows_test::DialogUser;
using windows_test::Screen;

constexpr int kAreas = 2101;
constexpr int kStyles = 2102;
constexpr int kDefaults = 2100;

class TheRealImportDialog : public testing::Test {
protected:
    bool Show(const std::wstring& suffix, std::function<void(const Screen&)> script) {
        const DialogUser user(std::move(script));
        return dynamic_cast<platform::OptionsDialogOwner&>(*filter).ShowOptionsDialog(suffix);
    }

    windows_test::LoadedModule module;
    windows_test::DialogHost host{module};
    zeio::IoManager manager{host};
    std::unique_ptr<zeio::IoImportFilter> filter{module.NewImportFilter(manager)};
};

TEST_F(TheRealImportDialog, ShowsTheTemplatesTexts) {
    std::wstring caption;
    std::map<int, std::wstring> texts;

    Show(L"", [&](const Screen& screen) {
        caption = screen.Caption();
        texts = screen.Texts();
        screen.Photograph("import-dialog");
    });

    EXPECT_EQ(caption, L"MIF Import Options");
    EXPECT_THAT(texts,
                ElementsAre(Pair(kDefaults, L"&Defaults"), Pair(kAreas, L"Read &areas as curves"),
                            Pair(kStyles, L"&Ignore styles")));
}

TEST_F(TheRealImportDialog, AddsTheSuffixAndTheQuestionMark) {
    std::wstring caption;
    bool hasHelp = false;

    Show(L"\u0434\u043E\u0440\u043E\u0433\u0438.mif", [&](const Screen& screen) {
        caption = screen.Caption();
        hasHelp = screen.HasContextHelp();
    });

    EXPECT_EQ(caption, L"MIF Import Options - \u0434\u043E\u0440\u043E\u0433\u0438.mif");
    EXPECT_TRUE(hasHelp);
}

TEST_F(TheRealImportDialog, StoresWhatIsCheckedOnOk) {
    filter->SetOptionsFromString(L"IgnoreStyles=1");
    host.ForgetCalls();
    std::map<int, bool> before;

    const bool accepted = Show(L"", [&](const Screen& screen) {
        before = screen.CheckBoxes();
        screen.Click(kAreas);
        screen.Click(IDOK);
    });

    EXPECT_TRUE(accepted);
    EXPECT_THAT(before, ElementsAre(Pair(kAreas, false), Pair(kStyles, true)));
    EXPECT_THAT(host.calls(), ElementsAre("SetOption AreasToCurves=true persistent",
                                          "SetOption IgnoreStyles=true persistent"));
}

TEST_F(TheRealImportDialog, StoresFalseOnDefaultsAndOk) {
    filter->SetOptionsFromString(L"IgnoreStyles=1;AreasToCurves=1");
    host.ForgetCalls();
    std::map<int, bool> after;

    const bool accepted = Show(L"", [&](const Screen& screen) {
        screen.Click(kDefaults);
        after = screen.CheckBoxes();
        screen.Click(IDOK);
    });

    EXPECT_TRUE(accepted);
    EXPECT_THAT(after, ElementsAre(Pair(kAreas, false), Pair(kStyles, false)));
    EXPECT_THAT(host.calls(), ElementsAre("SetOption AreasToCurves=false persistent",
                                          "SetOption IgnoreStyles=false persistent"));
}

TEST_F(TheRealImportDialog, StoresNothingOnCancel) {
    const bool accepted = Show(L"", [](const Screen& screen) {
        screen.Click(kAreas);
        screen.Click(IDCANCEL);
    });

    EXPECT_FALSE(accepted);
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(TheRealImportDialog, ShowsItsHelpTopicAtTheQuestionMark) {
    Show(L"", [](const Screen& screen) { screen.AskForHelp(); });

    EXPECT_THAT(host.calls(), ElementsAre("ShowHelp Mif-Import.htm#"));
}

TEST_F(TheRealImportDialog, LogsAnErrorOfTheHostAndStaysOpen) {
    std::vector<std::string> logged;
    const standalone::LogSink previous = standalone::SetLogSink(
        [&](const standalone::LogEntry& entry) { logged.push_back(entry.text); });
    host.onHelp = [](const std::wstring&) { throw zeio::InternalError(L"Host", 7); };

    const bool accepted = Show(L"", [](const Screen& screen) {
        screen.AskForHelp();
        screen.Click(IDOK);
    });
    standalone::SetLogSink(previous);

    EXPECT_TRUE(accepted);
    EXPECT_EQ(logged.size(), 1U);
}

}  // namespace
