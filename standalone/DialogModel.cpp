#include "standalone/DialogModel.h"

#include "host/shr/IError.h"

#include <algorithm>
#include <set>
#include <utility>

namespace standalone {

namespace {

constexpr int kDestroyFailed = 1;  // the origin "line" of an exception at WM_DESTROY

// Dialogs belong to the thread that opens them, as windows do.
std::set<const DialogModel*>& LiveModels() {
    thread_local std::set<const DialogModel*> models;
    return models;
}

DialogPresenter*& Presenter() {
    thread_local DialogPresenter* presenter = nullptr;
    return presenter;
}

}  // namespace

DialogModel::DialogModel(const platform::DialogTemplate& dialogTemplate, DLGPROC procedure)
    : procedure_(procedure), caption_(dialogTemplate.caption) {
    for (int i = 0; i < dialogTemplate.controlCount; ++i) {
        const platform::DialogControl& control = dialogTemplate.controls[i];
        controls_.push_back({control.id, control.kind, control.text, /*isChecked=*/false});
    }
    LiveModels().insert(this);
}

DialogModel::~DialogModel() {
    try {
        Send(WM_DESTROY, 0, 0);
    } catch (...) {
        shr::LogExceptionInfo(L"qolfhost", L"DialogModel", kDestroyFailed);
    }
    LiveModels().erase(this);
}

DialogModel* DialogModel::Find(HWND window) {
    auto* model = reinterpret_cast<DialogModel*>(window);
    return LiveModels().count(model) == 0 ? nullptr : model;
}

void DialogModel::Initialise(LPARAM parameter) {
    Send(WM_INITDIALOG, 0, parameter);
}

INT_PTR DialogModel::Send(UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure_ == nullptr ? 0 : procedure_(Window(), message, wParam, lParam);
}

bool DialogModel::Press(int buttonId) {
    const Control* control = FindControl(buttonId);
    if (!IsOpen() || control == nullptr || control->kind == platform::ControlKind::CheckBox) {
        return false;
    }
    Send(WM_COMMAND, static_cast<WPARAM>(buttonId), 0);
    return true;
}

bool DialogModel::Toggle(int checkBoxId) {
    Control* control = FindControl(checkBoxId);
    if (!IsOpen() || control == nullptr || control->kind != platform::ControlKind::CheckBox) {
        return false;
    }
    control->isChecked = !control->isChecked;
    Send(WM_COMMAND, static_cast<WPARAM>(checkBoxId), 0);
    return true;
}

bool DialogModel::AskForHelp() {
    if (!IsOpen() || !HasContextHelp()) {
        return false;
    }
    Send(WM_SYSCOMMAND, SC_CONTEXTHELP, 0);
    return true;
}

void DialogModel::Close() {
    if (IsOpen()) {
        Send(WM_COMMAND, IDCANCEL, 0);
    }
    if (IsOpen()) {
        End(0);  // the procedure does not know Cancel
    }
}

void DialogModel::SetCaption(std::wstring caption) {
    caption_ = std::move(caption);
}

DialogModel::Control* DialogModel::FindControl(int id) {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control& control) { return control.id == id; });
    return found == controls_.end() ? nullptr : &*found;
}

LONG_PTR DialogModel::LongValue(int index) const {
    const auto found = longValues_.find(index);
    return found == longValues_.end() ? 0 : found->second;
}

LONG_PTR DialogModel::SetLongValue(int index, LONG_PTR value) {
    return std::exchange(longValues_[index], value);
}

DialogPresenter::~DialogPresenter() = default;

DialogPresenter* SetDialogPresenter(DialogPresenter* presenter) {
    return std::exchange(Presenter(), presenter);
}

}  // namespace standalone

INT_PTR DialogBoxParamW(HINSTANCE /*instance*/, LPCWSTR templateName, HWND /*parent*/,
                        DLGPROC procedure, LPARAM parameter) {
    standalone::DialogPresenter* presenter = standalone::Presenter();
    if (presenter == nullptr || templateName == nullptr) {
        return -1;
    }
    standalone::DialogModel dialog(*reinterpret_cast<const platform::DialogTemplate*>(templateName),
                                   procedure);
    dialog.Initialise(parameter);
    if (dialog.IsOpen()) {
        presenter->ShowDialog(dialog);
    }
    dialog.Close();
    return dialog.Result().value_or(0);
}

BOOL EndDialog(HWND dialog, INT_PTR result) {
    standalone::DialogModel* model = standalone::DialogModel::Find(dialog);
    if (model == nullptr) {
        return 0;
    }
    model->End(result);
    return 1;
}

BOOL CheckDlgButton(HWND dialog, int controlId, UINT check) {
    standalone::DialogModel* model = standalone::DialogModel::Find(dialog);
    standalone::DialogModel::Control* control =
        model == nullptr ? nullptr : model->FindControl(controlId);
    if (control == nullptr) {
        return 0;
    }
    control->isChecked = check != BST_UNCHECKED;
    return 1;
}

UINT IsDlgButtonChecked(HWND dialog, int controlId) {
    standalone::DialogModel* model = standalone::DialogModel::Find(dialog);
    const standalone::DialogModel::Control* control =
        model == nullptr ? nullptr : model->FindControl(controlId);
    return control != nullptr && control->isChecked ? BST_CHECKED : BST_UNCHECKED;
}

int GetWindowTextLengthW(HWND window) {
    const standalone::DialogModel* model = standalone::DialogModel::Find(window);
    return model == nullptr ? 0 : static_cast<int>(model->Caption().size());
}

int GetWindowTextW(HWND window, LPWSTR text, int capacity) {
    const standalone::DialogModel* model = standalone::DialogModel::Find(window);
    if (text == nullptr || capacity <= 0) {
        return 0;
    }
    std::size_t length = 0;
    if (model != nullptr) {
        length = model->Caption().copy(text, static_cast<std::size_t>(capacity) - 1);
    }
    text[length] = L'\0';
    return static_cast<int>(length);
}

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
    standalone::DialogModel* model = standalone::DialogModel::Find(window);
    if (model == nullptr) {
        return 0;
    }
    model->SetCaption(text == nullptr ? L"" : text);
    return 1;
}

LONG_PTR GetWindowLongPtrW(HWND window, int index) {
    const standalone::DialogModel* model = standalone::DialogModel::Find(window);
    return model == nullptr ? 0 : model->LongValue(index);
}

LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value) {
    standalone::DialogModel* model = standalone::DialogModel::Find(window);
    return model == nullptr ? 0 : model->SetLongValue(index, value);
}
