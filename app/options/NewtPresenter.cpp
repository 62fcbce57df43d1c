#include "app/options/NewtPresenter.h"

#include "app/base/Errors.h"
#include "standalone/Text.h"

#include <newt.h>
#include <unistd.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace app {

namespace {

using platform::ControlKind;
using standalone::DialogModel;

// Returns the label without the mark of its keyboard shortcut.
std::string LabelOf(const std::wstring& text) {
    std::wstring label = text;
    label.erase(std::remove(label.begin(), label.end(), L'&'), label.end());
    return standalone::Narrow(label);
}

struct Button {
    std::string label;
    std::function<void()> press;
};

// A dialog's window: its check boxes, and a row of buttons.
class Window {
public:
    Window(DialogModel& dialog, std::vector<Button> buttons)
        : dialog_(dialog), buttons_(std::move(buttons)) {
        Open();
    }
    ~Window() {
        newtFormDestroy(form_);
        newtPopWindow();
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    // Waits for one action of the user and carries it out. Returns false for Escape.
    bool RunOnce(const std::function<void()>& help) {
        newtExitStruct exit{};
        newtFormRun(form_, &exit);
        if (failure_) {
            std::rethrow_exception(std::exchange(failure_, nullptr));
        }
        if (exit.reason == newtExitStruct::NEWT_EXIT_HOTKEY) {
            if (exit.u.key == NEWT_KEY_F1) {
                help();
                return true;
            }
            return exit.u.key != NEWT_KEY_ESCAPE;
        }
        if (exit.reason != newtExitStruct::NEWT_EXIT_COMPONENT) {
            return false;  // the terminal has gone
        }
        for (std::size_t i = 0; i < buttons_.size(); ++i) {
            if (exit.u.co == buttonComponents_[i]) {
                buttons_[i].press();
            }
        }
        ShowChecks();
        return true;
    }

private:
    struct Box {
        Window* window;
        int id;
        newtComponent component;
        char value;
    };

    void Open() {
        constexpr int kMargin = 2;
        std::size_t width = std::size_t{2} * kMargin;
        for (const Button& button : buttons_) {
            width += button.label.size() + 6;
        }
        for (const DialogModel::Control& control : dialog_.Controls()) {
            width = std::max(width, control.text.size() + 12);
        }
        const std::string caption = standalone::Narrow(dialog_.Caption());
        width = std::max(width, caption.size() + 6);
        const auto boxCount = static_cast<int>(std::count_if(
            dialog_.Controls().begin(), dialog_.Controls().end(),
            [](const auto& control) { return control.kind == ControlKind::CheckBox; }));
        newtCenteredWindow(static_cast<unsigned>(std::min<std::size_t>(width, 76)),
                           static_cast<unsigned>(boxCount + 6), caption.c_str());
        form_ = newtForm(nullptr, nullptr, 0);
        int line = 1;
        for (const DialogModel::Control& control : dialog_.Controls()) {
            if (control.kind == ControlKind::CheckBox) {
                AddBox(control, kMargin, line++);
            }
        }
        int column = kMargin;
        for (const Button& button : buttons_) {
            buttonComponents_.push_back(newtButton(column, line + 1, button.label.c_str()));
            newtFormAddComponent(form_, buttonComponents_.back());
            column += static_cast<int>(button.label.size()) + 6;
        }
        newtFormAddHotKey(form_, NEWT_KEY_F1);
        newtFormAddHotKey(form_, NEWT_KEY_ESCAPE);
    }

    void AddBox(const DialogModel::Control& control, int column, int line) {
        boxes_.push_back(std::make_unique<Box>());
        Box& box = *boxes_.back();
        box.window = this;
        box.id = control.id;
        box.value = control.isChecked ? '*' : ' ';
        box.component =
            newtCheckbox(column, line, LabelOf(control.text).c_str(), box.value, " *", &box.value);
        newtComponentAddCallback(box.component, &Window::OnChanged, &box);
        newtFormAddComponent(form_, box.component);
    }

    // The library is written in C: exceptions of a dialog procedure must not pass through it.
    static void OnChanged(newtComponent, void* data) {
        Box& box = *static_cast<Box*>(data);
        const DialogModel::Control* control = box.window->dialog_.FindControl(box.id);
        if (control == nullptr || control->isChecked == (box.value == '*')) {
            return;
        }
        try {
            box.window->dialog_.Toggle(box.id);
        } catch (...) {
            box.window->failure_ = std::current_exception();
        }
    }

    void ShowChecks() {
        for (const std::unique_ptr<Box>& box : boxes_) {
            if (const DialogModel::Control* control = dialog_.FindControl(box->id)) {
                newtCheckboxSetValue(box->component, control->isChecked ? '*' : ' ');
            }
        }
    }

    DialogModel& dialog_;
    std::vector<Button> buttons_;
    std::vector<newtComponent> buttonComponents_;
    std::vector<std::unique_ptr<Box>> boxes_;
    newtComponent form_ = nullptr;
    std::exception_ptr failure_;
};

// A dialog's own buttons.
std::vector<Button> ButtonsOf(DialogModel& dialog) {
    std::vector<Button> buttons;
    for (const DialogModel::Control& control : dialog.Controls()) {
        if (control.kind != ControlKind::CheckBox) {
            buttons.push_back(
                {LabelOf(control.text), [&dialog, id = control.id] { dialog.Press(id); }});
        }
    }
    return buttons;
}

}  // namespace

NewtPresenter::NewtPresenter() {
    if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0) {
        throw Failure(
            "the options pages need a terminal; qolf options set changes options without");
    }
    newtInit();
    newtCls();
    newtPushHelpLine(" Tab: next   Blank: check   Enter: press   F1: help   Esc: cancel");
}

NewtPresenter::~NewtPresenter() {
    newtFinished();
}

void NewtPresenter::ShowDialog(DialogModel& dialog) {
    Window window(dialog, ButtonsOf(dialog));
    while (dialog.IsOpen()) {
        if (!window.RunOnce([&dialog] { dialog.AskForHelp(); })) {
            dialog.Close();
        }
    }
}

void NewtPresenter::ShowSheet(standalone::PropertySheet& sheet) {
    // The filter has one page; with several there would have to be a list.
    DialogModel& page = sheet.Page(0);
    std::vector<Button> buttons = ButtonsOf(page);
    buttons.push_back({"OK", [&sheet] { sheet.PressOk(); }});
    buttons.push_back({"Cancel", [&sheet] { sheet.PressCancel(); }});
    if (sheet.HasHelp(0)) {
        buttons.push_back({"Help", [&sheet] { sheet.PressHelp(0); }});
    }
    Window window(page, std::move(buttons));
    while (sheet.IsOpen()) {
        if (!window.RunOnce([&sheet] { sheet.PressHelp(0); })) {
            sheet.PressCancel();
        }
    }
}

void NewtPresenter::ShowMessage(const std::string& title, const std::string& text) {
    std::string titleBytes = title;
    std::string format = "%s";
    std::string button = "OK";
    newtWinMessage(titleBytes.data(), button.data(), format.data(), text.c_str());
}

}  // namespace app
