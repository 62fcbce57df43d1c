#include "standalone/ScriptedPresenter.h"

#include <stdexcept>
#include <utility>

namespace standalone {

namespace {

void Require(bool isDone, const std::string& what) {
    if (!isDone) {
        throw std::logic_error("the dialog has no " + what);
    }
}

void PressOn(DialogModel& dialog, PropertySheet* sheet, int buttonId) {
    if (sheet != nullptr && buttonId == IDOK) {
        sheet->PressOk();
    } else if (sheet != nullptr && buttonId == IDCANCEL) {
        sheet->PressCancel();
    } else {
        Require(dialog.Press(buttonId), "button " + std::to_string(buttonId));
    }
}

}  // namespace

ScriptedPresenter::ScriptedPresenter() = default;

ScriptedPresenter::~ScriptedPresenter() = default;

ScriptedPresenter& ScriptedPresenter::Press(int buttonId) {
    return Append([buttonId](DialogModel& dialog, PropertySheet* sheet) {
        PressOn(dialog, sheet, buttonId);
    });
}

ScriptedPresenter& ScriptedPresenter::Toggle(int checkBoxId) {
    return Append([checkBoxId](DialogModel& dialog, PropertySheet* /*sheet*/) {
        Require(dialog.Toggle(checkBoxId), "check box " + std::to_string(checkBoxId));
    });
}

ScriptedPresenter& ScriptedPresenter::AskForHelp() {
    return Append([](DialogModel& dialog, PropertySheet* /*sheet*/) {
        Require(dialog.AskForHelp(), "question mark");
    });
}

ScriptedPresenter& ScriptedPresenter::PressHelp() {
    return Append([](DialogModel& /*dialog*/, PropertySheet* sheet) {
        Require(sheet != nullptr && sheet->PressHelp(0), "Help button");
    });
}

ScriptedPresenter& ScriptedPresenter::Close() {
    return Append([](DialogModel& dialog, PropertySheet* sheet) {
        if (sheet != nullptr) {
            sheet->PressCancel();
        } else {
            dialog.Close();
        }
    });
}

ScriptedPresenter& ScriptedPresenter::Do(std::function<void(DialogModel&)> step) {
    return Append(
        [step = std::move(step)](DialogModel& dialog, PropertySheet* /*sheet*/) { step(dialog); });
}

void ScriptedPresenter::ShowDialog(DialogModel& dialog) {
    TakeScreen(dialog);
    while (dialog.IsOpen() && !steps_.empty()) {
        RunNextStep(dialog, nullptr);
    }
    dialog.Close();
}

void ScriptedPresenter::ShowSheet(PropertySheet& sheet) {
    DialogModel& page = sheet.Page(0);
    TakeScreen(page);
    while (sheet.IsOpen() && !steps_.empty()) {
        RunNextStep(page, &sheet);
    }
    sheet.PressCancel();
}

ScriptedPresenter& ScriptedPresenter::Append(Step step) {
    steps_.push_back(std::move(step));
    return *this;
}

void ScriptedPresenter::TakeScreen(DialogModel& dialog) {
    Screen screen{dialog.Caption(), {}, dialog.HasContextHelp()};
    for (const DialogModel::Control& control : dialog.Controls()) {
        if (control.kind == platform::ControlKind::CheckBox) {
            screen.checkBoxes[control.id] = control.isChecked;
        }
    }
    screens_.push_back(std::move(screen));
}

void ScriptedPresenter::RunNextStep(DialogModel& dialog, PropertySheet* sheet) {
    // Taken off first, so that a step that throws is not run again.
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    step(dialog, sheet);
    TakeScreen(dialog);
}

}  // namespace standalone
