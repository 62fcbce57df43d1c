#include "import/MifImportDlg.h"

#include "host/shr/IError.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "reader/ErrorOrigin.h"
#include "resources/DialogTemplates.h"
#include "resources/DialogTexts.h"

#include <string>
#include <utility>
#include <vector>

namespace mif {

namespace {

constexpr ErrorOrigin kDlgProcCatch{L"MifImportDlg", 157};

// The low four bits of a system command are the system's own.
constexpr WPARAM kSystemCommandMask = 0xFFF0;

// The state of a dialog while it is open, however it closes. The dialog procedure has no other way
// to it than the pointer, so there is one such dialog at a time.
class OpenDialog {
public:
    OpenDialog(const std::wstring& suffix, const MifImportFilter& owner)
        : captionSuffix(suffix), filter(owner), options(owner.options()),
          previous_(std::exchange(g_dialog, this)) {}
    ~OpenDialog() { g_dialog = previous_; }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;

    static OpenDialog* Current() { return g_dialog; }

    const std::wstring& captionSuffix;  // empty: the caption stays as it is
    const MifImportFilter& filter;
    ImportOptions options;  // the working copy

private:
    static constinit inline OpenDialog* g_dialog = nullptr;  // null while none is open

    OpenDialog* const previous_;
};

std::wstring WindowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::vector<wchar_t> text(static_cast<std::size_t>(length) + 1);
    GetWindowTextW(window, text.data(), length + 1);
    return text.data();
}

void ShowOptions(HWND dialog, const ImportOptions& options) {
    CheckDlgButton(dialog, IDC_AREAS_TO_CURVES,
                   options.areasToCurves ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(dialog, IDC_IGNORE_STYLES, options.ignoreStyles ? BST_CHECKED : BST_UNCHECKED);
}

ImportOptions ReadOptions(HWND dialog) {
    return {.areasToCurves = IsDlgButtonChecked(dialog, IDC_AREAS_TO_CURVES) == BST_CHECKED,
            .ignoreStyles = IsDlgButtonChecked(dialog, IDC_IGNORE_STYLES) == BST_CHECKED};
}

void Initialize(HWND dialog, const OpenDialog& state) {
    if (!state.captionSuffix.empty()) {
        const std::wstring caption = WindowText(dialog) + L" - " + state.captionSuffix;
        SetWindowTextW(dialog, caption.c_str());
    }
    SetWindowLongPtrW(dialog, GWL_EXSTYLE,
                      GetWindowLongPtrW(dialog, GWL_EXSTYLE) | WS_EX_CONTEXTHELP);
    ShowOptions(dialog, state.options);
}

INT_PTR HandleCommand(HWND dialog, int id, OpenDialog& state) {
    switch (id) {
    case IDOK:
        state.options = ReadOptions(dialog);
        EndDialog(dialog, 1);
        return 1;
    case IDCANCEL:
        EndDialog(dialog, 0);
        return 1;
    case IDC_IMPORT_DEFAULTS:
        state.options = ImportOptions{};
        ShowOptions(dialog, state.options);
        return 1;
    default:
        return 0;
    }
}

INT_PTR HandleMessage(HWND dialog, UINT message, WPARAM wParam, OpenDialog& state) {
    switch (message) {
    case WM_INITDIALOG:
        Initialize(dialog, state);
        return 1;
    case WM_COMMAND:
        return HandleCommand(dialog, static_cast<int>(LOWORD(wParam)), state);
    case WM_SYSCOMMAND:
        if ((wParam & kSystemCommandMask) != SC_CONTEXTHELP) {
            return 0;
        }
        state.filter.ShowHelp(L"Mif-Import.htm", std::wstring());
        return 1;
    default:
        return 0;
    }
}

}  // namespace

INT_PTR ImportDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    OpenDialog* const state = OpenDialog::Current();
    if (state == nullptr) {
        return 0;  // the window of a dialog that is closed already
    }
    try {
        return HandleMessage(dialog, message, wParam, *state);
    } catch (...) {
        shr::LogExceptionInfoAndRethrowIfUnknown(L"qolf", kDlgProcCatch.source, kDlgProcCatch.line);
        return shr::WinProcReturnCodeAfterException(dialog, message);
    }
}

bool MifImportFilter::ShowOptionsDialog(const std::wstring& captionSuffix) {
    OpenDialog state(captionSuffix, *this);
    const INT_PTR result = DialogBoxParamW(Manager().GetModuleInstance(),
                                           platform::TemplateName(resources::kImportDialog),
                                           Manager().GetParentWindow(), &ImportDlgProc, 0);
    if (result != 1) {
        return false;
    }
    options_ = state.options;
    SaveOptions(/*persistent=*/true);
    return true;
}

}  // namespace mif
