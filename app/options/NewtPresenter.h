// Shows dialogs in the terminal: check boxes and buttons, by the keyboard.
#pragma once

#include "standalone/DialogModel.h"
#include "standalone/PropertySheet.h"

#include <string>

namespace app {

// Takes the whole terminal as long as it lives. Tab moves, the space bar checks a box, F1 asks for
// help, Escape cancels.
class NewtPresenter : public standalone::DialogPresenter {
public:
    // Throws Failure when standard input or output is not a terminal.
    NewtPresenter();
    ~NewtPresenter() override;

    void ShowDialog(standalone::DialogModel& dialog) override;
    void ShowSheet(standalone::PropertySheet& sheet) override;

    // Shows a text with a button to close it.
    static void ShowMessage(const std::string& title, const std::string& text);
};

}  // namespace app
