// The export options page of the built module, in the system's own property sheet.
#include "host/zeio/Errors.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoManager.h"
#include "standalone/Log.h"
#include "standalone/SystemPropertySheet.h"
#include "tests/windows/DialogUser.h"
#include "tests/windows/LoadedModule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using windows_test::DialogUser;
using windows_test::Screen;

constexpr int kAreas = 2101;
constexpr int kText = 2103;
constexpr int kMarkers = 2104;
constexpr int kDefaults = 2105;

class TheRealExportPage : public testing::Test {
protected:
    bool Show(const std::wstring& title, std::function<void(const Screen&)> script) {
        std::vector<zeio::IoPropertyPage*> pages;
        filter->GetPropertyPages(pages, title);
        const DialogUser user(std::move(script));
        return standalone::RunPropertySheet(pages, L"Export options", nullptr);
    }

    std::vector<std::string> Stored() const { return host.CallsStartingWith("SetOption"); }
    std::vector<std::string> HelpTopics() const { return host.CallsStartingWith("ShowHelp"); }

    windows_test::LoadedModule module;
    windows_test::DialogHost host{module};
    zeio::IoManager manager{host};
    std::unique_ptr<zeio::IoExportFilter> filter{module.NewExportFilter(manager)};
};

TEST_F(TheRealExportPage, ShowsTheTemplatesTextsAndTheDefaults) {
    std::wstring caption;
    std::map<int, std::wstring> texts;
    std::map<int, bool> boxes;

    Show(L"", [&](const Screen& screen) {
        caption = screen.Caption();
        texts = screen.Texts();
        boxes = screen.CheckBoxes();
        screen.Photograph("export-page");
    });

    EXPECT_EQ(caption, L"MIF Options");
    EXPECT_THAT(texts,
                ElementsAre(Pair(kAreas, L"&Write areas as curves"), Pair(kText, L"Render &text"),
                            Pair(kMarkers, L"Render &marker symbols"),
                            Pair(kDefaults, L"&Defaults")));
    EXPECT_THAT(boxes, ElementsAre(Pair(kAreas, false), Pair(kText, true), Pair(kMarkers, true)));
}

TEST_F(TheRealExportPage, NamesTheFileAndHasTheQuestionMark) {
    std::wstring caption;
    bool hasHelp = false;

    Show(L"C:\\maps\\\u5730\u56FE.mif", [&](const Screen& screen) {
        caption = screen.Caption();
        hasHelp = screen.HasContextHelp();
    });

    EXPECT_EQ(caption, L"MIF Options - \u5730\u56FE.mif");
    EXPECT_TRUE(hasHelp);
}

TEST_F(TheRealExportPage, StoresTheChoicesWhenTheSheetApplies) {
    const bool accepted = Show(L"", [](const Screen& screen) {
        screen.Click(kAreas);
        screen.Click(kText);
        screen.ClickFrame(IDOK);
    });

    EXPECT_TRUE(accepted);
    EXPECT_THAT(Stored(), ElementsAre("SetOption AreasToCurves=true persistent",
                                      "SetOption RenderText=false persistent",
                                      "SetOption RenderMarkers=true persistent"));
}

TEST_F(TheRealExportPage, StoresTheDefaultsOnDefaultsAndOk) {
    host.optionStore().Set(L"AreasToCurves", true, false);
    host.optionStore().Set(L"RenderMarkers", false, false);
    std::map<int, bool> before;
    std::map<int, bool> after;

    Show(L"", [&](const Screen& screen) {
        before = screen.CheckBoxes();
        screen.Click(kDefaults);
        after = screen.CheckBoxes();
        screen.ClickFrame(IDOK);
    });

    EXPECT_THAT(before, ElementsAre(Pair(kAreas, true), Pair(kText, true), Pair(kMarkers, false)));
    EXPECT_THAT(after, ElementsAre(Pair(kAreas, false), Pair(kText, true), Pair(kMarkers, true)));
    EXPECT_THAT(Stored(), ElementsAre("SetOption AreasToCurves=false persistent",
                                      "SetOption RenderText=true persistent",
                                      "SetOption RenderMarkers=true persistent"));
}

TEST_F(TheRealExportPage, StoresNothingOnCancel) {
    const bool accepted = Show(L"", [](const Screen& screen) {
        screen.Click(kAreas);
        screen.ClickFrame(IDCANCEL);
    });

    EXPECT_FALSE(accepted);
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(TheRealExportPage, ShowsItsHelpTopicAtTheSheetsHelpButton) {
    Show(L"", [](const Screen& screen) { screen.ClickFrame(IDHELP); });

    EXPECT_THAT(HelpTopics(), ElementsAre("ShowHelp Mif-Export.htm#"));
}

TEST_F(TheRealExportPage, ShowsItsHelpTopicAtTheQuestionMark) {
    Show(L"", [](const Screen& screen) { screen.AskForHelp(); });

    EXPECT_THAT(HelpTopics(), ElementsAre("ShowHelp Mif-Export.htm#"));
}

TEST_F(TheRealExportPage, LogsWhateverTheHostThrowsAndStaysOpen) {
    std::vector<std::string> logged;
    const standalone::LogSink previous = standalone::SetLogSink(
        [&](const standalone::LogEntry& entry) { logged.push_back(entry.text); });
    host.onHelp = [](const std::wstring&) { throw std::runtime_error("no help"); };

    const bool accepted = Show(L"", [](const Screen& screen) {
        screen.ClickFrame(IDHELP);
        screen.ClickFrame(IDOK);
    });
    standalone::SetLogSink(previous);

    EXPECT_TRUE(accepted);
    EXPECT_THAT(logged, ElementsAre("no help"));
}

}  // namespace
