// A presenter that does what a script says instead of asking a user, for tests and unattended runs.
#pragma once

#include "standalone/DialogModel.h"
#include "standalone/PropertySheet.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace standalone {

// Works its steps off, one after the other and across dialogs, as long as something is open; when
// none is left it closes what is shown, as Cancel does. On a sheet OK and Cancel are the sheet's,
// everything else happens on the first page.
class QOLF_HOST_API ScriptedPresenter : public DialogPresenter {
public:
    // What was to be seen at one moment.
    struct Screen {
        std::wstring caption;
        std::map<int, bool> checkBoxes;  // id to state
        bool hasContextHelp;
    };

    ScriptedPresenter();
    ~ScriptedPresenter() override;

    // Each appends a step. Running a step that the dialog refuses (no such control) throws
    // std::logic_error: the script does not fit.
    ScriptedPresenter& Press(int buttonId);
    ScriptedPresenter& Toggle(int checkBoxId);
    ScriptedPresenter& AskForHelp();  // the question mark of the caption
    ScriptedPresenter& PressHelp();   // the sheet's Help button
    ScriptedPresenter& Close();       // the dialog's own way of being left

    // Any other step; it gets the dialog, or the first page of the sheet.
    ScriptedPresenter& Do(std::function<void(DialogModel&)> step);

    void ShowDialog(DialogModel& dialog) override;
    void ShowSheet(PropertySheet& sheet) override;

    // One screen for every dialog or sheet as it appeared, and one for it after every step.
    const std::vector<Screen>& Screens() const { return screens_; }

    // The steps that were not run: 0 when the script has met all the dialogs that it was made for.
    std::size_t StepsLeft() const { return steps_.size(); }

private:
    // sheet is null for a dialog of its own; else dialog is its first page.
    using Step = std::function<void(DialogModel& dialog, PropertySheet* sheet)>;

    ScriptedPresenter& Append(Step step);
    void TakeScreen(DialogModel& dialog);
    void RunNextStep(DialogModel& dialog, PropertySheet* sheet);

    std::deque<Step> steps_;
    std::vector<Screen> screens_;
};

}  // namespace standalone
