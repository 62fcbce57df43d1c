// A dialog as data, for systems without windows of their own: DialogBoxParamW and the like
// (host/platform/WindowSystem.h) run a dialog procedure over such a model, and a presenter shows
// it to whoever presses its controls.
#pragma once

#include "host/platform/Export.h"
#include "host/platform/WindowSystem.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace standalone {

// One dialog, or one page of a property sheet. A window handle is such a model; a handle whose
// dialog is gone is recognised, and every function fails on it.
//
// The operations below send messages to the dialog procedure. What that throws leaves through them.
class QOLF_HOST_API DialogModel {
public:
    struct Control {
        int id;
        platform::ControlKind kind;
        std::wstring text;  // '&' stands before the letter of its short cut
        bool isChecked;
    };

    // Copies the template's caption and controls, with every box unchecked. Sends nothing yet. A
    // null procedure answers every message with 0.
    DialogModel(const platform::DialogTemplate& dialogTemplate, DLGPROC procedure);

    // Sends WM_DESTROY; what the procedure throws at it is logged.
    ~DialogModel();
    DialogModel(const DialogModel&) = delete;
    DialogModel& operator=(const DialogModel&) = delete;

    HWND Window() { return reinterpret_cast<HWND>(this); }

    // The model behind a window; null for null and for a window that is gone.
    static DialogModel* Find(HWND window);

    // Sends WM_INITDIALOG.
    void Initialise(LPARAM parameter);

    // Sends any message; gives what the procedure returns.
    INT_PTR Send(UINT message, WPARAM wParam, LPARAM lParam);

    // What a user does. False when the dialog is closed or has no such control.
    bool Press(int buttonId);
    bool Toggle(int checkBoxId);  // the box changes first, then the procedure hears of it

    // The question mark of the caption. False unless the dialog has one.
    bool AskForHelp();

    // Closes the dialog as Cancel does, whether or not it has such a button.
    void Close();

    bool IsOpen() const { return !result_.has_value(); }
    std::optional<INT_PTR> Result() const { return result_; }  // empty while it is open
    void End(INT_PTR result) { result_ = result; }

    const std::wstring& Caption() const { return caption_; }
    void SetCaption(std::wstring caption);
    const std::vector<Control>& Controls() const { return controls_; }

    // Null when there is none with this id.
    Control* FindControl(int id);

    bool HasContextHelp() const { return (LongValue(GWL_EXSTYLE) & WS_EX_CONTEXTHELP) != 0; }

    // The window's numbers by index (GWL_EXSTYLE, GWLP_USERDATA, ...); 0 until they are set.
    LONG_PTR LongValue(int index) const;
    LONG_PTR SetLongValue(int index, LONG_PTR value);  // gives the previous one

private:
    DLGPROC procedure_;
    std::wstring caption_;
    std::vector<Control> controls_;
    std::map<int, LONG_PTR> longValues_;
    std::optional<INT_PTR> result_;
};

class PropertySheet;

// Shows dialogs to a user, or to a script.
class QOLF_HOST_API DialogPresenter {
public:
    virtual ~DialogPresenter();

    // Each returns when what it shows is no longer open, or when the user is gone: what is then
    // still open is cancelled.
    virtual void ShowDialog(DialogModel& dialog) = 0;
    virtual void ShowSheet(PropertySheet& sheet) = 0;
};

// Plugs in the presenter of DialogBoxParamW for this thread; it must live until another one is set.
// Without one (null, and initially) no dialog can be shown and DialogBoxParamW gives -1. Returns
// the one before.
QOLF_HOST_API DialogPresenter* SetDialogPresenter(DialogPresenter* presenter);

}  // namespace standalone
