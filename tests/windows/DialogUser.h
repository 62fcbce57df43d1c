// Somebody who sits before the screen while this thread shows a modal dialog: a thread that waits
// for the dialog and presses its controls by window messages.
#pragma once

#include "host/platform/WindowSystem.h"

#include <functional>
#include <map>
#include <string>
#include <thread>

namespace windows_test {

// A dialog, or a property sheet with its first page, as the user sees it.
class Screen {
public:
    explicit Screen(HWND frame);

    std::wstring Caption() const;               // of the page, if there is one
    std::map<int, bool> CheckBoxes() const;     // id to state, of those that are there
    std::map<int, std::wstring> Texts() const;  // id to text of check boxes and buttons
    bool HasContextHelp() const;                // whether the caption has its question mark

    void Click(int controlId) const;       // in the dialog or page
    void ClickFrame(int controlId) const;  // one of the sheet's own buttons
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const;
    LRESULT AskForHelp() const;  // as the question mark does

    // Writes what is to be seen into the test's output folder: NAME.bmp.
    void Photograph(const std::string& name) const;

    HWND page() const { return page_; }

private:
    HWND frame_;
    HWND page_;  // the frame itself, unless it is a property sheet
};

// Waits for the next dialog of the thread that made this object, then runs the script; if the
// dialog is still there afterwards it is cancelled. The destructor waits for the script's end.
class DialogUser {
public:
    explicit DialogUser(std::function<void(const Screen&)> script);
    ~DialogUser();
    DialogUser(const DialogUser&) = delete;
    DialogUser& operator=(const DialogUser&) = delete;

private:
    std::thread thread_;
};

}  // namespace windows_test
