#include "standalone/DialogModel.h"

#include "standalone/Log.h"
#include "standalone/ScriptedPresenter.h"

#include <gtest/gtest.h>

#include <iterator>
#include <stdexcept>
#include <string>

namespace {

constexpr int kBox = 11;
constexpr int kOtherBox = 12;
constexpr int kReset = 13;

constexpr platform::DialogControl kControls[] = {
    {kBox, platform::ControlKind::CheckBox, L"&Box"},
    {kOtherBox, platform::ControlKind::CheckBox, L"&Other"},
    {kReset, platform::ControlKind::PushButton, L"&Reset"},
    {IDOK, platform::ControlKind::DefaultButton, L"OK"},
    {IDCANCEL, platform::ControlKind::PushButton, L"Cancel"},
};
constexpr platform::DialogTemplate kTemplate = {7, L"Choices", kControls, std::size(kControls)};

// What the dialog procedure below does and saw; a plain function has no other place.
struct Behaviour {
    bool endsAtOnce = false;
    bool ignoresCommands = false;
    bool throwsAtReset = false;
    bool throwsAtDestroy = false;
    LPARAM parameter = 0;
    bool wasChecked = false;
    int helpRequests = 0;
    int destroyed = 0;
    HWND window = nullptr;
};
Behaviour behaviour;

INT_PTR OnCommand(HWND window, unsigned id) {
    if (behaviour.ignoresCommands) {
        return 0;
    }
    if (id == kReset && behaviour.throwsAtReset) {
        throw std::runtime_error("reset failed");
    }
    if (id == kReset) {
        CheckDlgButton(window, kBox, BST_UNCHECKED);
    } else if (id == IDOK) {
        behaviour.wasChecked = IsDlgButtonChecked(window, kBox) == BST_CHECKED;
        EndDialog(window, 1);
    } else if (id == IDCANCEL) {
        EndDialog(window, 0);
    }
    return 1;
}

INT_PTR Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        behaviour.window = window;
        behaviour.parameter = lParam;
        SetWindowLongPtrW(window, GWL_EXSTYLE,
                          GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_CONTEXTHELP);
        CheckDlgButton(window, kBox, BST_CHECKED);
        if (behaviour.endsAtOnce) {
            EndDialog(window, 5);
        }
        return 1;
    case WM_COMMAND:
        return OnCommand(window, LOWORD(wParam));
    case WM_SYSCOMMAND:
        behaviour.helpRequests += (wParam & 0xFFF0U) == SC_CONTEXTHELP ? 1 : 0;
        return 1;
    case WM_DESTROY:
        ++behaviour.destroyed;
        if (behaviour.throwsAtDestroy) {
            throw std::runtime_error("destroy failed");
        }
        return 0;
    default:
        return 0;
    }
}

class ADialog : public testing::Test {
protected:
    ADialog() {
        behaviour = {};
        standalone::SetDialogPresenter(&user_);
    }
    ~ADialog() override { standalone::SetDialogPresenter(nullptr); }

    static INT_PTR Open(LPARAM parameter = 0) {
        return DialogBoxParamW(nullptr, platform::TemplateName(kTemplate), nullptr, Procedure,
                               parameter);
    }

    standalone::ScriptedPresenter user_;
};

TEST_F(ADialog, ShowsItsTemplate) {
    Open();

    ASSERT_EQ(user_.Screens().size(), 1U);
    EXPECT_EQ(user_.Screens()[0].caption, L"Choices");
    EXPECT_EQ(user_.Screens()[0].checkBoxes,
              (std::map<int, bool>{{kBox, true}, {kOtherBox, false}}));
    EXPECT_TRUE(user_.Screens()[0].hasContextHelp);
}

TEST_F(ADialog, HandsItsParameterToTheProcedure) {
    Open(42);

    EXPECT_EQ(behaviour.parameter, 42);
}

TEST_F(ADialog, GivesTheResultOfItsEnd) {
    user_.Press(IDOK);

    EXPECT_EQ(Open(), 1);

    EXPECT_TRUE(behaviour.wasChecked);
}

TEST_F(ADialog, ShowsTheProcedureAToggledBox) {
    user_.Toggle(kBox).Press(IDOK);

    Open();

    EXPECT_FALSE(behaviour.wasChecked);
}

TEST_F(ADialog, StaysOpenForAnOrdinaryButton) {
    user_.Press(kReset).Press(IDOK);

    Open();

    ASSERT_EQ(user_.Screens().size(), 3U);
    EXPECT_FALSE(user_.Screens()[1].checkBoxes.at(kBox));
    EXPECT_EQ(user_.StepsLeft(), 0U);
}

TEST_F(ADialog, IsCancelledWhenItIsClosed) {
    user_.Close().Press(IDOK);

    EXPECT_EQ(Open(), 0);

    EXPECT_EQ(user_.StepsLeft(), 1U);  // nothing is open any more
}

TEST_F(ADialog, IsCancelledWhenTheUserIsGone) {
    EXPECT_EQ(Open(), 0);
}

TEST_F(ADialog, ClosesThoughItsProcedureDoesNotKnowCancel) {
    behaviour.ignoresCommands = true;

    EXPECT_EQ(Open(), 0);
}

TEST_F(ADialog, ThatEndsAtItsStartIsNotShown) {
    behaviour.endsAtOnce = true;

    EXPECT_EQ(Open(), 5);

    EXPECT_TRUE(user_.Screens().empty());
}

TEST_F(ADialog, AsksForHelp) {
    user_.AskForHelp().Press(IDCANCEL);

    Open();

    EXPECT_EQ(behaviour.helpRequests, 1);
}

TEST_F(ADialog, LetsAnExceptionOutAndIsGone) {
    behaviour.throwsAtReset = true;
    user_.Press(kReset);

    EXPECT_THROW(Open(), std::runtime_error);

    EXPECT_EQ(behaviour.destroyed, 1);
    EXPECT_EQ(standalone::DialogModel::Find(behaviour.window), nullptr);
}

TEST_F(ADialog, LogsWhatItsProcedureThrowsAtItsEnd) {
    behaviour.throwsAtDestroy = true;
    std::string logged;
    const standalone::LogSink previous =
        standalone::SetLogSink([&](const standalone::LogEntry& entry) { logged = entry.text; });

    EXPECT_NO_THROW(Open());
    standalone::SetLogSink(previous);

    EXPECT_EQ(logged, "destroy failed");
}

TEST_F(ADialog, CannotOpenWithoutAPresenter) {
    standalone::SetDialogPresenter(nullptr);

    EXPECT_EQ(Open(), -1);
}

TEST_F(ADialog, HoldsItsCaption) {
    user_.Do([](standalone::DialogModel& dialog) {
        wchar_t text[5] = L"????";
        SetWindowTextW(dialog.Window(), L"Choices - roads.mif");
        EXPECT_EQ(GetWindowTextLengthW(dialog.Window()), 19);
        EXPECT_EQ(GetWindowTextW(dialog.Window(), text, 5), 4);
        EXPECT_STREQ(text, L"Choi");
    });

    Open();

    EXPECT_EQ(user_.Screens()[1].caption, L"Choices - roads.mif");
}

TEST_F(ADialog, RefusesControlsThatItDoesNotHave) {
    user_.Do([](standalone::DialogModel& dialog) {
        EXPECT_FALSE(dialog.Press(kBox));
        EXPECT_FALSE(dialog.Press(99));
        EXPECT_FALSE(dialog.Toggle(IDOK));
        EXPECT_EQ(CheckDlgButton(dialog.Window(), 99, BST_CHECKED), 0);
        EXPECT_EQ(IsDlgButtonChecked(dialog.Window(), 99), BST_UNCHECKED);
    });

    Open();
}

TEST_F(ADialog, OpensAnotherOneOnTop) {
    user_.Do([](standalone::DialogModel&) { Open(); }).Press(IDOK).Press(IDOK);

    EXPECT_EQ(Open(), 1);

    EXPECT_EQ(user_.StepsLeft(), 0U);
}

TEST_F(ADialog, TellsAScriptThatDoesNotFit) {
    user_.Press(99);

    EXPECT_THROW(Open(), std::logic_error);
}

TEST_F(ADialog, IsUnknownOnceItIsGone) {
    Open();
    const HWND window = behaviour.window;
    wchar_t text[2] = L"x";

    EXPECT_EQ(EndDialog(window, 1), 0);
    EXPECT_EQ(CheckDlgButton(window, kBox, BST_CHECKED), 0);
    EXPECT_EQ(IsDlgButtonChecked(window, kBox), BST_UNCHECKED);
    EXPECT_EQ(GetWindowTextLengthW(window), 0);
    EXPECT_EQ(GetWindowTextW(window, text, 2), 0);
    EXPECT_EQ(SetWindowTextW(window, L"y"), 0);
    EXPECT_EQ(GetWindowLongPtrW(window, GWL_EXSTYLE), 0);
    EXPECT_EQ(SetWindowLongPtrW(window, GWL_EXSTYLE, 1), 0);
}

TEST_F(ADialog, GivesThePreviousNumberOfItsWindow) {
    user_.Do([](standalone::DialogModel& dialog) {
        EXPECT_EQ(SetWindowLongPtrW(dialog.Window(), GWLP_USERDATA, 3), 0);
        EXPECT_EQ(SetWindowLongPtrW(dialog.Window(), GWLP_USERDATA, 4), 3);
        EXPECT_EQ(GetWindowLongPtrW(dialog.Window(), GWLP_USERDATA), 4);
    });

    Open();
}

}  // namespace
