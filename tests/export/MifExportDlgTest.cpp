// The options page, driven through the dialog model by a script.
#include "export/MifExportDlg.h"

#include "host/zeio/IoPropertyPage.h"
#include "resources/DialogTemplates.h"
#include "resources/DialogTexts.h"
#include "standalone/Log.h"
#include "standalone/PropertySheet.h"
#include "standalone/ScriptedPresenter.h"
#include "tests/export/ExportRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace mif::test {

namespace {

using platform::ControlKind;
using platform::DialogControl;
using standalone::DialogModel;
using standalone::ScriptedPresenter;
using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Pair;
using testing::StrEq;

// A host whose option store can be made to fail.
class FailingHost : public support::RecordingHost {
public:
    void SetOption(const std::wstring& name, bool value, bool persistent) override {
        if (failure) {
            failure();
        }
        RecordingHost::SetOption(name, value, persistent);
    }

    std::function<void()> failure;  // throws; empty: nothing fails
};

class TheExportPage : public testing::Test {
protected:
    TheExportPage()
        : previousSink_(standalone::SetLogSink([this](const standalone::LogEntry& entry) {
              logged.push_back(entry.sourceFile + L"(" + std::to_wstring(entry.line) + L") of " +
                               entry.module);
          })),
          manager(host), filter(std::make_unique<MifExportFilter>(manager)) {}
    ~TheExportPage() override { standalone::SetLogSink(previousSink_); }

    zeio::IoPropertyPage& OpenPage(const std::wstring& title = L"") {
        std::vector<zeio::IoPropertyPage*> pages;
        filter->GetPropertyPages(pages, title);
        return *pages.at(0);
    }

    // Shows the page to the script; true when it ended with OK.
    bool Show(const std::wstring& title = L"") {
        return standalone::RunPropertySheet({&OpenPage(title)}, script);
    }

    void SaveOptions(bool areasToCurves, bool renderText, bool renderMarkers) {
        host.optionStore().Set(L"AreasToCurves", areasToCurves, false);
        host.optionStore().Set(L"RenderText", renderText, false);
        host.optionStore().Set(L"RenderMarkers", renderMarkers, false);
    }

    // Sends a command that the sheet does not press by itself.
    void ThenSend(UINT message, WPARAM wParam, INT_PTR& result) {
        script.Do([message, wParam, &result](DialogModel& page) {
            result = page.Send(message, wParam, 0);
        });
    }

    void ThenNotify(UINT code, INT_PTR& result) {
        script.Do([code, &result](DialogModel& page) {
            NMHDR notification{page.Window(), 0, code};
            result = page.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
        });
    }

private:
    standalone::LogSink previousSink_;

protected:
    FailingHost host;
    zeio::IoManager manager;
    std::unique_ptr<MifExportFilter> filter;
    ScriptedPresenter script;
    std::vector<std::wstring> logged;
};

}  // namespace

TEST_F(TheExportPage, HasARegisteredTypeBelowTheHostsPage) {
    const shr::CTypeInfo* type = OpenPage().GetTypeId();

    EXPECT_EQ(type, MifExportDlg::GetClassTypeId());
    EXPECT_EQ(type->Name(), L"MifExportDlg");
    EXPECT_EQ(type->Create(), nullptr);
    EXPECT_EQ(type->Base(), zeio::IoPropertyPage::GetClassTypeId());
}

TEST_F(TheExportPage, IsDescribedToTheHost) {
    zeio::IoPropertyPage& page = OpenPage();
    const PROPSHEETPAGEW& description = page.PropSheetPage();

    EXPECT_EQ(page.Name(), L"MifExportDlg");
    EXPECT_EQ(description.dwSize, sizeof(PROPSHEETPAGEW));
    EXPECT_EQ(description.dwFlags, PSP_HASHELP);
    EXPECT_EQ(description.hInstance, manager.GetModuleInstance());
    EXPECT_EQ(description.pszTemplate, platform::TemplateName(resources::kExportDialog));
    EXPECT_EQ(description.pfnDlgProc, &zeio::IoPropPageDlgProc);
    EXPECT_EQ(description.lParam, reinterpret_cast<LPARAM>(&page));
}

TEST(TheExportTemplate, HasTheCaptionAndTheControlsOfThePage) {
    const platform::DialogTemplate& page = resources::kExportDialog;
    const auto isControl = [](int id, ControlKind kind, const wchar_t* text) {
        return AllOf(Field(&DialogControl::id, id), Field(&DialogControl::kind, kind),
                     Field(&DialogControl::text, StrEq(text)));
    };

    EXPECT_EQ(page.id, 102);
    EXPECT_STREQ(page.caption, L"MIF Options");
    EXPECT_THAT(std::span(page.controls, static_cast<std::size_t>(page.controlCount)),
                ElementsAre(isControl(2101, ControlKind::CheckBox, L"&Write areas as curves"),
                            isControl(2103, ControlKind::CheckBox, L"Render &text"),
                            isControl(2104, ControlKind::CheckBox, L"Render &marker symbols"),
                            isControl(2105, ControlKind::PushButton, L"&Defaults")));
}

TEST_F(TheExportPage, ShowsTheSavedOptions) {
    SaveOptions(true, false, true);
    Show();

    EXPECT_THAT(host.CallsStartingWith("GetOption"),
                ElementsAre("GetOption AreasToCurves persistent", "GetOption RenderText persistent",
                            "GetOption RenderMarkers persistent"));
    EXPECT_THAT(script.Screens().front().checkBoxes,
                ElementsAre(Pair(2101, true), Pair(2103, false), Pair(2104, true)));
}

TEST_F(TheExportPage, ShowsTheDefaultsWithoutSavedOptions) {
    Show();

    EXPECT_THAT(script.Screens().front().checkBoxes,
                ElementsAre(Pair(2101, false), Pair(2103, true), Pair(2104, true)));
}

TEST_F(TheExportPage, NamesTheFileInItsCaption) {
    Show(L"/maps/roads.mif");

    EXPECT_EQ(script.Screens().front().caption, L"MIF Options - roads.mif");
}

TEST_F(TheExportPage, HasTheTemplatesCaptionWithAnEmptyTitle) {
    Show(L"");

    EXPECT_EQ(script.Screens().front().caption, L"MIF Options");
}

TEST_F(TheExportPage, HasAQuestionMarkInItsCaption) {
    Show();

    EXPECT_TRUE(script.Screens().front().hasContextHelp);
}

TEST_F(TheExportPage, KeepsTheOptionsWhenDefaultsIsFollowedByCancel) {
    SaveOptions(true, false, false);
    script.Press(IDC_EXPORT_DEFAULTS).Press(IDCANCEL);

    EXPECT_FALSE(Show());
    EXPECT_EQ(filter->options(), (ExportOptions{true, false, false}));
    EXPECT_THAT(host.CallsStartingWith("SetOption"), IsEmpty());
    EXPECT_THAT(script.Screens().at(1).checkBoxes,
                ElementsAre(Pair(2101, false), Pair(2103, true), Pair(2104, true)));
}

TEST_F(TheExportPage, StoresTheOptionsAtOkAndShowsThemTheNextTime) {
    script.Toggle(2101).Toggle(2103).Press(IDOK);
    EXPECT_TRUE(Show());
    ScriptedPresenter second;
    standalone::RunPropertySheet({&OpenPage()}, second);

    EXPECT_EQ(filter->options(), (ExportOptions{true, false, true}));
    EXPECT_THAT(host.CallsStartingWith("SetOption"),
                ElementsAre("SetOption AreasToCurves=true persistent",
                            "SetOption RenderText=false persistent",
                            "SetOption RenderMarkers=true persistent"));
    EXPECT_THAT(second.Screens().front().checkBoxes,
                ElementsAre(Pair(2101, true), Pair(2103, false), Pair(2104, true)));
}

TEST_F(TheExportPage, StoresTheOptionsWhenTheSheetApplies) {
    INT_PTR result = -1;
    script.Toggle(2104);
    ThenNotify(PSN_APPLY, result);
    Show();

    EXPECT_EQ(result, 1);
    EXPECT_EQ(filter->options(), (ExportOptions{false, true, false}));
    EXPECT_EQ(host.CallsStartingWith("SetOption").size(), 3U);
}

TEST_F(TheExportPage, EndsWithOneAtItsOwnOk) {
    zeio::IoPropertyPage& page = OpenPage();
    standalone::PropertySheet sheet({&page});
    sheet.Page(0).Toggle(2101);

    EXPECT_EQ(sheet.Page(0).Send(WM_COMMAND, IDOK, 0), 1);
    EXPECT_EQ(sheet.Page(0).Result(), 1);
    EXPECT_EQ(filter->options(), (ExportOptions{true, true, true}));
}

TEST_F(TheExportPage, EndsWithZeroAtItsOwnCancel) {
    zeio::IoPropertyPage& page = OpenPage();
    standalone::PropertySheet sheet({&page});
    sheet.Page(0).Toggle(2101);

    EXPECT_EQ(sheet.Page(0).Send(WM_COMMAND, IDCANCEL, 0), 1);
    EXPECT_EQ(sheet.Page(0).Result(), 0);
    EXPECT_EQ(filter->options(), ExportOptions());
}

TEST_F(TheExportPage, ShowsItsHelpAtTheSheetsHelpButton) {
    script.PressHelp();
    Show();

    EXPECT_THAT(host.CallsStartingWith("ShowHelp"), ElementsAre("ShowHelp Mif-Export.htm#"));
}

TEST_F(TheExportPage, ShowsItsHelpAtTheQuestionMark) {
    script.AskForHelp();
    Show();

    EXPECT_THAT(host.CallsStartingWith("ShowHelp"), ElementsAre("ShowHelp Mif-Export.htm#"));
}

TEST_F(TheExportPage, MasksTheLowBitsOfASystemCommand) {
    INT_PTR result = -1;
    ThenSend(WM_SYSCOMMAND, SC_CONTEXTHELP | 0xF, result);
    Show();

    EXPECT_EQ(result, 1);
    EXPECT_EQ(host.CallsStartingWith("ShowHelp").size(), 1U);
}

struct MessageRow {
    std::string name;
    UINT message;
    WPARAM wParam;
};
class AMessageThatIsNotThePages : public TheExportPage,
                                  public testing::WithParamInterface<MessageRow> {};

TEST_P(AMessageThatIsNotThePages, IsAnsweredWithZero) {
    INT_PTR result = -1;
    ThenSend(GetParam().message, GetParam().wParam, result);
    Show();

    EXPECT_EQ(result, 0);
    EXPECT_THAT(host.CallsStartingWith("ShowHelp"), IsEmpty());
}
INSTANTIATE_TEST_SUITE_P(, AMessageThatIsNotThePages,
                         testing::Values(MessageRow{"ACheckBox", WM_COMMAND, 2101},
                                         MessageRow{"AnotherCommand", WM_COMMAND, 9},
                                         MessageRow{"AnotherSystemCommand", WM_SYSCOMMAND, 0xF060},
                                         MessageRow{"AnotherMessage", 0x0400, 2105}),
                         [](const auto& row) { return row.param.name; });

TEST_F(TheExportPage, AnswersOtherNotificationsWithOne) {
    INT_PTR result = -1;
    ThenNotify(static_cast<UINT>(-200), result);
    Show();

    EXPECT_EQ(result, 1);
    EXPECT_THAT(host.CallsStartingWith("ShowHelp"), IsEmpty());
    EXPECT_THAT(host.CallsStartingWith("SetOption"), IsEmpty());
}

TEST_F(TheExportPage, TakesTheCommandFromTheLowWord) {
    INT_PTR result = -1;
    SaveOptions(true, false, false);
    ThenSend(WM_COMMAND, 0x10000 | IDC_EXPORT_DEFAULTS, result);
    Show();

    EXPECT_EQ(result, 1);
    EXPECT_THAT(script.Screens().back().checkBoxes,
                ElementsAre(Pair(2101, false), Pair(2103, true), Pair(2104, true)));
}

TEST_F(TheExportPage, LogsAHostsErrorAndAnswersZero) {
    INT_PTR result = -1;
    host.failure = [this] { filter->ThrowErrorMsg(L"Host", 1, L"no store"); };
    ThenNotify(PSN_APPLY, result);
    Show();

    EXPECT_EQ(result, 0);
    EXPECT_THAT(logged, ElementsAre(L"MifExportDlg(141) of qolf"));
}

TEST_F(TheExportPage, LetsNoForeignExceptionOutEither) {
    INT_PTR result = -1;
    host.onHelp = [](const std::wstring&) { throw std::runtime_error("no help"); };
    ThenNotify(PSN_HELP, result);
    EXPECT_NO_THROW(Show());

    EXPECT_EQ(result, 0);
    EXPECT_THAT(logged, ElementsAre(L"MifExportDlg(141) of qolf"));
}

TEST_F(TheExportPage, ReplacesAnEarlierOne) {
    OpenPage(L"first.mif");
    script.Toggle(2101).Press(IDOK);
    Show(L"second.mif");

    EXPECT_EQ(script.Screens().front().caption, L"MIF Options - second.mif");
    EXPECT_EQ(filter->options(), (ExportOptions{true, true, true}));
}

TEST_F(TheExportPage, IsAppendedToTheListOfPages) {
    std::vector<zeio::IoPropertyPage*> pages = {nullptr};
    filter->GetPropertyPages(pages, L"");

    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0], nullptr);
}

TEST_F(TheExportPage, ReachesBeginExportWithItsChoices) {
    const support::TemporaryFolder folder;
    script.Toggle(2101).Press(IDOK);
    Show();
    static_cast<void>(filter->BeginExport(folder.PathOf("out.mif")));

    EXPECT_EQ(filter->options(), (ExportOptions{true, true, true}));
}

TEST_F(TheExportPage, MayBeGoneBeforeItsSheet) {
    const support::TemporaryFolder folder;
    {
        standalone::PropertySheet sheet({&OpenPage()});
        static_cast<void>(filter->BeginExport(folder.PathOf("out.mif")));
        sheet.Page(0).Toggle(2101);
        sheet.PressOk();
    }

    EXPECT_EQ(filter->options(), ExportOptions());
    EXPECT_THAT(logged, IsEmpty());
}

TEST_F(TheExportPage, MayBeReplacedBeforeItsSheetIsClosed) {
    standalone::PropertySheet sheet({&OpenPage()});
    standalone::PropertySheet secondSheet({&OpenPage()});
    sheet.Page(0).Toggle(2101);
    sheet.PressOk();
    secondSheet.Page(0).Toggle(2103);
    secondSheet.PressOk();

    EXPECT_EQ(filter->options(), (ExportOptions{false, false, true}));
}

TEST_F(TheExportPage, KeptGivesBeginExportTheDefaultsAfterDefaultsAndCancel) {
    const support::TemporaryFolder folder;
    SaveOptions(true, true, true);
    script.Press(IDC_EXPORT_DEFAULTS).Press(IDCANCEL);
    Show();
    static_cast<void>(filter->BeginExport(folder.PathOf("out.mif")));

    EXPECT_EQ(filter->options(), ExportOptions());
}

}  // namespace mif::test
