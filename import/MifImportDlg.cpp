#include "import/MifImportDlg.h"

#include "host/shr/IError.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "reader/ErrorOrigin.h"
#include "resources/DialogTemplates.h"
#include "resources/DialogTexts.h"

#include <string>
#include <vector>

namespace mif {

namespace {

constexpr ErrorOrigin kDlgProcCatch{L"MifImportDlg", 157};

// The low four bits of a system command are the system's own.
constexpr WPARAM kSystemCommandMask = 0xFFF0;

// The state of the open dialog. The dialog procedure has no other way to it.
struct OpenDialog {
    std::wstring captionSuffix;         // empty: the caption stays as it is
    MifImportFilter* filter = nullptr;  // null until a dialog was opened
    ImportOptions options;              // the working copy
};

OpenDialog g_dialog;

std::wstring WindowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::vector<wchar_t> text(static_cast<std::size_t>(length) + 1);
    GetWindowTextW(window, text.data(), length + 1);
    return text.data();
}

void ShowOptions(HWND dialog) {
    CheckDlgButton(dialog, IDC_AREAS_TO_CURVES,
                   g_dialog.options.areasToCurves ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(dialog, IDC_IGNORE_STYLES,
                   g_dialog.options.ignoreStyles ? BST_CHECKED : BST_UNCHECKED);
}

void ReadOptions(HWND dialog) {
    g_dialog.options.areasToCurves = IsDlgButtonChecked(dialog, IDC_AREAS_TO_CURVES) == BST_CHECKED;
    g_dialog.options.ignoreStyles = IsDlgButtonChecked(dialog, IDC_IGNORE_STYLES) == BST_CHECKED;
}

void Initialize(HWND dialog) {
    if (!g_dialog.captionSuffix.empty()) {
        const std::wstring caption = WindowText(dialog) + L" - " + g_dialog.captionSuffix;
        SetWindowTextW(dialog, caption.c_str());
    }
    SetWindowLongPtrW(dialog, GWL_EXSTYLE,
                      GetWindowLongPtrW(dialog, GWL_EXSTYLE) | WS_EX_CONTEXTHELP);
    ShowOptions(dialog);
}

INT_PTR HandleCommand(HWND dialog, int id) {
    switch (id) {
    case IDOK:
        ReadOptions(dialog);
        EndDialog(dialog, 1);
        return 1;
    case IDCANCEL:
        EndDialog(dialog, 0);
        return 1;
    case IDC_IMPORT_DEFAULTS:
        g_dialog.options = ImportOptions{};
        ShowOptions(dialog);
        return 1;
    default:
        return 0;
    }
}

INT_PTR HandleMessage(HWND dialog, UINT message, WPARAM wParam) {
    switch (message) {
    case WM_INITDIALOG:
        Initialize(dialog);
        return 1;
    case WM_COMMAND:
        return HandleCommand(dialog, static_cast<int>(LOWORD(wParam)));
    case WM_SYSCOMMAND:
        if ((wParam & kSystemCommandMask) != SC_CONTEXTHELP) {
            return 0;
        }
        g_dialog.filter->ShowHelp(L"Mif-Import.htm", L"");
        return 1;
    default:
        return 0;
    }
}

}  // namespace

INT_PTR ImportDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    try {
        return HandleMessage(dialog, message, wParam);
    } catch (...) {
        shr::LogExceptionInfoAndRethrowIfUnknown(L"qolf", kDlgProcCatch.source, kDlgProcCatch.line);
        return shr::WinProcReturnCodeAfterException(dialog, message);
    }
}

bool MifImportFilter::ShowOptionsDialog(const std::wstring& captionSuffix) {
    if (&captionSuffix != &g_dialog.captionSuffix) {
        g_dialog.captionSuffix = captionSuffix;
    }
    g_dialog.filter = this;
    g_dialog.options = options_;
    const INT_PTR result = DialogBoxParamW(Manager().GetModuleInstance(),
                                           platform::TemplateName(resources::kImportDialog),
                                           Manager().GetParentWindow(), &ImportDlgProc, 0);
    if (result != 1) {
        return false;
    }
    options_ = g_dialog.options;
    SaveOptions(/*persistent=*/true);
    return true;
}

}  // namespace mif
