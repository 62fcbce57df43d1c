#include "standalone/PropertySheet.h"

#include "host/zeio/IoManager.h"
#include "host/zeio/IoPropertyPage.h"
#include "standalone/ScriptedPresenter.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int kBox = 21;
constexpr platform::DialogControl kControls[] = {
    {kBox, platform::ControlKind::CheckBox, L"&Box"},
};
constexpr platform::DialogTemplate kTemplate = {8, L"Page", kControls, 1};

// A page with one choice.
class ChoicePage : public zeio::IoPropertyPage {
public:
    ChoicePage(zeio::IoManager& manager, DWORD flags) : IoPropertyPage(L"ChoicePage", manager) {
        PROPSHEETPAGEW page{};
        page.dwSize = sizeof page;
        page.dwFlags = flags;
        page.pszTemplate = platform::TemplateName(kTemplate);
        page.pfnDlgProc = zeio::IoPropPageDlgProc;
        page.lParam = reinterpret_cast<LPARAM>(static_cast<IoPropertyPage*>(this));
        SetPropSheetPage(page);
    }

    int DlgProc(HWND window, UINT message, WPARAM /*wParam*/, LPARAM lParam) override {
        if (message == WM_INITDIALOG) {
            CheckDlgButton(window, kBox, choice ? BST_CHECKED : BST_UNCHECKED);
            windowAtStart = Window();
            return 1;
        }
        if (message != WM_NOTIFY) {
            return 0;
        }
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a message carries a pointer as a number
        const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
        if (code == PSN_APPLY) {
            ++applied;
            choice = IsDlgButtonChecked(window, kBox) != 0;
            if (isBroken) {
                throw std::runtime_error("can't apply");
            }
        } else if (code == PSN_HELP) {
            ++helped;
        }
        return 1;
    }

    bool choice = false;
    bool isBroken = false;
    int applied = 0;
    int helped = 0;
    HWND windowAtStart = nullptr;
};

class APropertySheet : public testing::Test {
protected:
    bool Run() { return standalone::RunPropertySheet({&page_}, user_); }

    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
    ChoicePage page_{manager_, PSP_HASHELP};
    standalone::ScriptedPresenter user_;
};

TEST_F(APropertySheet, AppliesItsPagesAtOk) {
    user_.Toggle(kBox).Press(IDOK);

    EXPECT_TRUE(Run());

    EXPECT_TRUE(page_.choice);
}

TEST_F(APropertySheet, AppliesNothingAtCancel) {
    user_.Toggle(kBox).Press(IDCANCEL);

    EXPECT_FALSE(Run());

    EXPECT_FALSE(page_.choice);
    EXPECT_EQ(page_.applied, 0);
}

TEST_F(APropertySheet, IsCancelledWhenTheUserIsGone) {
    EXPECT_FALSE(Run());
}

TEST_F(APropertySheet, ShowsWhatThePageHolds) {
    page_.choice = true;

    Run();

    ASSERT_EQ(user_.Screens().size(), 1U);
    EXPECT_EQ(user_.Screens()[0].caption, L"Page");
    EXPECT_TRUE(user_.Screens()[0].checkBoxes.at(kBox));
}

TEST_F(APropertySheet, AsksThePageForHelpAndStaysOpen) {
    user_.PressHelp().Press(IDOK);

    EXPECT_TRUE(Run());

    EXPECT_EQ(page_.helped, 1);
}

TEST_F(APropertySheet, HasNoHelpForAPageWithoutIt) {
    ChoicePage plain(manager_, 0);
    standalone::PropertySheet sheet({&plain});

    EXPECT_FALSE(sheet.PressHelp(0));

    EXPECT_EQ(plain.helped, 0);
}

TEST_F(APropertySheet, AppliesEveryPage) {
    ChoicePage second(manager_, 0);
    standalone::PropertySheet sheet({&page_, &second});

    sheet.Page(1).Toggle(kBox);
    sheet.PressOk();
    sheet.PressOk();  // it is closed already

    EXPECT_EQ(page_.applied, 1);
    EXPECT_EQ(second.applied, 1);
    EXPECT_TRUE(second.choice);
    EXPECT_FALSE(sheet.IsOpen());
}

TEST_F(APropertySheet, LeavesOutAPageWithoutADescription) {
    zeio::IoPropertyPage blank(L"Blank", manager_);

    EXPECT_FALSE(standalone::RunPropertySheet({&blank}, user_));

    EXPECT_TRUE(user_.Screens().empty());
}

TEST_F(APropertySheet, LetsAnExceptionOut) {
    page_.isBroken = true;
    user_.Press(IDOK);

    EXPECT_THROW(Run(), std::runtime_error);

    EXPECT_EQ(page_.Window(), nullptr);
}

TEST_F(APropertySheet, TellsThePageItsWindowWhileItIsShown) {
    Run();

    EXPECT_NE(page_.windowAtStart, nullptr);
    EXPECT_EQ(page_.Window(), nullptr);
}

TEST_F(APropertySheet, IsClosedUnappliedByAPageThatEndsItsDialog) {
    user_.Do([](standalone::DialogModel& page) { EndDialog(page.Window(), 1); });

    EXPECT_FALSE(Run());
}

TEST(APageWithoutAWindow, HandlesNothing) {
    EXPECT_EQ(zeio::IoPropPageDlgProc(nullptr, WM_COMMAND, 0, 0), 0);
}

}  // namespace
