// The import options dialog, pressed by a script.
#include "tests/import/ImportRun.h"

#include "host/shr/IError.h"
#include "host/zeio/Errors.h"
#include "import/MifImportDlg.h"
#include "resources/DialogTemplates.h"
#include "standalone/DialogModel.h"
#include "standalone/Log.h"
#include "standalone/ScriptedPresenter.h"

#include <gmock/gmock.h>

#include <span>
#include <stdexcept>

namespace {

using import_test::Importing;
using mif::ImportOptions;
using platform::ControlKind;
using testing::ElementsAre;

class TheImportDialog : public Importing {
protected:
    void SetUp() override { previous_ = standalone::SetDialogPresenter(&script_); }
    void TearDown() override { standalone::SetDialogPresenter(previous_); }

    standalone::ScriptedPresenter& User() { return script_; }
    bool Show(const wchar_t* captionSuffix) { return Filter().ShowOptionsDialog(captionSuffix); }
    const standalone::ScriptedPresenter::Screen& FirstScreen() { return script_.Screens().at(0); }

private:
    standalone::ScriptedPresenter script_;
    standalone::DialogPresenter* previous_ = nullptr;
};

TEST(TheImportTemplate, HasTheControlsOfTheDialog) {
    const platform::DialogTemplate& dialog = resources::kImportDialog;
    const auto isControl = [](int id, ControlKind kind) {
        return testing::AllOf(testing::Field(&platform::DialogControl::id, id),
                              testing::Field(&platform::DialogControl::kind, kind));
    };

    EXPECT_EQ(dialog.id, 100);
    EXPECT_THAT(std::span(dialog.controls, static_cast<std::size_t>(dialog.controlCount)),
                testing::UnorderedElementsAre(isControl(2101, ControlKind::CheckBox),
                                              isControl(2102, ControlKind::CheckBox),
                                              isControl(2100, ControlKind::PushButton),
                                              isControl(1, ControlKind::DefaultButton),
                                              isControl(2, ControlKind::PushButton)));
}

TEST_F(TheImportDialog, ShowsTheFiltersOptions) {
    Filter().SetOptionsFromString(L"IgnoreStyles=1");
    User().Press(IDCANCEL);

    Show(L"");

    EXPECT_THAT(FirstScreen().checkBoxes,
                ElementsAre(testing::Pair(2101, false), testing::Pair(2102, true)));
}

TEST_F(TheImportDialog, StoresTheOptionsOnOk) {
    User().Toggle(2101).Press(IDOK);

    EXPECT_TRUE(Show(L""));

    EXPECT_EQ(Filter().options(), (ImportOptions{true, false}));
    EXPECT_THAT(Host().calls(), ElementsAre("SetOption AreasToCurves=true persistent",
                                            "SetOption IgnoreStyles=false persistent"));
}

TEST_F(TheImportDialog, LeavesTheOptionsUntouchedOnCancel) {
    User().Toggle(2101).Toggle(2102).Press(IDCANCEL);

    EXPECT_FALSE(Show(L""));

    EXPECT_EQ(Filter().options(), ImportOptions{});
    EXPECT_THAT(Host().calls(), ElementsAre());
}

TEST_F(TheImportDialog, ClearsBothBoxesOnDefaultsAndStaysOpen) {
    Filter().SetOptionsFromString(L"IgnoreStyles=1;AreasToCurves=1");
    User().Press(2100).Press(IDCANCEL);

    EXPECT_FALSE(Show(L""));

    EXPECT_THAT(User().Screens().at(1).checkBoxes,
                ElementsAre(testing::Pair(2101, false), testing::Pair(2102, false)));
    EXPECT_EQ(Filter().options(), (ImportOptions{true, true}));
}

TEST_F(TheImportDialog, StoresBothOptionsAsFalseOnDefaultsAndOk) {
    Filter().SetOptionsFromString(L"IgnoreStyles=1;AreasToCurves=1");
    Host().ForgetCalls();
    User().Press(2100).Press(IDOK);

    EXPECT_TRUE(Show(L""));

    EXPECT_EQ(Filter().options(), ImportOptions{});
    EXPECT_THAT(Host().calls(), ElementsAre("SetOption AreasToCurves=false persistent",
                                            "SetOption IgnoreStyles=false persistent"));
}

TEST_F(TheImportDialog, KeepsTheTemplatesCaptionForAnEmptySuffix) {
    User().Press(IDCANCEL);

    Show(L"");

    EXPECT_EQ(FirstScreen().caption, L"MIF Import Options");
}

TEST_F(TheImportDialog, AddsTheSuffixToItsCaption) {
    User().Press(IDCANCEL);

    Show(L"roads.mif");

    EXPECT_EQ(FirstScreen().caption, L"MIF Import Options - roads.mif");
}

TEST_F(TheImportDialog, ForgetsTheSuffixOfTheDialogBefore) {
    User().Press(IDCANCEL).Press(IDCANCEL);
    Show(L"roads.mif");

    Show(L"");

    EXPECT_EQ(User().Screens().back().caption, L"MIF Import Options");
}

TEST_F(TheImportDialog, HasTheQuestionMarkThatOpensTheHelpTopic) {
    User().AskForHelp().Press(IDCANCEL);

    Show(L"");

    EXPECT_TRUE(FirstScreen().hasContextHelp);
    EXPECT_THAT(Host().calls(), ElementsAre("ShowHelp Mif-Import.htm#"));
}

TEST_F(TheImportDialog, TakesTheHelpCommandWithAnyLowFourBits) {
    INT_PTR result = 0;
    User().Do([&](standalone::DialogModel& dialog) {
        result = dialog.Send(WM_SYSCOMMAND, SC_CONTEXTHELP + 5, 0);
    });

    Show(L"");

    EXPECT_EQ(result, 1);
    EXPECT_THAT(Host().calls(), ElementsAre("ShowHelp Mif-Import.htm#"));
}

struct MessageRow {
    std::string name;
    UINT message;
    WPARAM parameter;
};

class AMessage : public TheImportDialog, public testing::WithParamInterface<MessageRow> {};

TEST_P(AMessage, IsNotTheImportDialogs) {
    INT_PTR result = -1;
    User().Do([&](standalone::DialogModel& dialog) {
        result = dialog.Send(GetParam().message, GetParam().parameter, 0);
    });

    Show(L"");

    EXPECT_EQ(result, 0);
}

INSTANTIATE_TEST_SUITE_P(
    , AMessage,
    testing::Values(MessageRow{"OfAnotherControl", WM_COMMAND, 2101},
                    MessageRow{"OfAnotherSystemCommand", WM_SYSCOMMAND, 0xF060},
                    MessageRow{"Notify", WM_NOTIFY, 0}, MessageRow{"OfNoKnownNumber", 0x0400, 0}),
    [](const auto& row) { return row.param.name; });

TEST_F(TheImportDialog, LogsAnErrorOfTheHostAndStaysOpen) {
    std::vector<standalone::LogEntry> log;
    const standalone::LogSink previous =
        standalone::SetLogSink([&](const standalone::LogEntry& entry) { log.push_back(entry); });
    Host().onHelp = [](const std::wstring&) { throw zeio::InternalError(L"Host", 7); };
    User().AskForHelp().Toggle(2101).Press(IDOK);

    const bool accepted = Show(L"");
    standalone::SetLogSink(previous);

    EXPECT_TRUE(accepted);
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0].module, L"qolf");
    EXPECT_EQ(log[0].sourceFile, L"MifImportDlg");
    EXPECT_EQ(log[0].line, 157);
}

TEST_F(TheImportDialog, AnswersAMessageThatFailedWithTheHostsCode) {
    const standalone::LogSink previous = standalone::SetLogSink(nullptr);
    Host().onHelp = [](const std::wstring&) { throw zeio::InternalError(L"Host", 7); };
    INT_PTR result = -1;
    User().Do([&](standalone::DialogModel& dialog) {
        result = dialog.Send(WM_SYSCOMMAND, SC_CONTEXTHELP, 0);
    });

    Show(L"");
    standalone::SetLogSink(previous);

    EXPECT_EQ(result, shr::WinProcReturnCodeAfterException(nullptr, WM_SYSCOMMAND));
}

TEST_F(TheImportDialog, LetsAnExceptionPassThatIsNotTheHosts) {
    const standalone::LogSink previous = standalone::SetLogSink(nullptr);
    Host().onHelp = [](const std::wstring&) { throw std::runtime_error("no help"); };
    User().AskForHelp();

    EXPECT_THROW(Show(L""), std::runtime_error);
    standalone::SetLogSink(previous);
}

TEST_F(TheImportDialog, KeepsNoFilterOnceItIsClosed) {
    User().Press(IDOK);
    Show(L"roads.mif");
    Host().ForgetCalls();

    EXPECT_EQ(mif::ImportDlgProc(nullptr, WM_SYSCOMMAND, SC_CONTEXTHELP, 0), 0);

    EXPECT_THAT(Host().calls(), ElementsAre());
}

TEST_F(TheImportDialog, KeepsNoFilterOnceItHasThrown) {
    const standalone::LogSink previous = standalone::SetLogSink(nullptr);
    Host().onHelp = [](const std::wstring&) { throw std::runtime_error("no help"); };
    User().AskForHelp();
    EXPECT_THROW(Show(L""), std::runtime_error);
    standalone::SetLogSink(previous);
    Host().ForgetCalls();

    EXPECT_EQ(mif::ImportDlgProc(nullptr, WM_SYSCOMMAND, SC_CONTEXTHELP, 0), 0);

    EXPECT_THAT(Host().calls(), ElementsAre());
}

TEST_F(TheImportDialog, IsItselfAgainAfterOneThatWasOpenedOverIt) {
    import_test::ImportRun other;
    standalone::ScriptedPresenter otherUser;
    otherUser.Toggle(2102).Press(IDOK);
    User().Do([&](standalone::DialogModel&) {
        standalone::DialogPresenter* const outer = standalone::SetDialogPresenter(&otherUser);
        static_cast<void>(other.Filter().ShowOptionsDialog(L""));
        standalone::SetDialogPresenter(outer);
    });
    User().Toggle(2101).Press(IDOK);

    EXPECT_TRUE(Show(L""));

    EXPECT_EQ(Filter().options(), (ImportOptions{true, false}));
    EXPECT_EQ(other.Filter().options(), (ImportOptions{false, true}));
}

TEST_F(TheImportDialog, ThatCanNotBeShownIsNotAccepted) {
    standalone::SetDialogPresenter(nullptr);

    EXPECT_FALSE(Show(L""));
}

TEST_F(TheImportDialog, IsFoundThroughTheFiltersBaseClass) {
    zeio::IoImportFilter* filter = &Filter();

    EXPECT_NE(dynamic_cast<platform::OptionsDialogOwner*>(filter), nullptr);
}

}  // namespace
