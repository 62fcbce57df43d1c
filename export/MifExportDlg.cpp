#include "export/MifExportDlg.h"

#include "export/ErrorOrigins.h"
#include "export/MifExportFilter.h"
#include "host/shr/CPath.h"
#include "host/shr/IError.h"
#include "resources/DialogTemplates.h"
#include "resources/DialogTexts.h"

#include <cstddef>

namespace mif {

namespace {

constexpr const wchar_t* kClassName = L"MifExportDlg";

// The low four bits of a system command are the window system's own.
constexpr WPARAM kSystemCommandMask = 0xFFF0;

UINT CheckState(bool isChecked) {
    return isChecked ? BST_CHECKED : BST_UNCHECKED;
}

bool IsChecked(HWND window, int controlId) {
    return IsDlgButtonChecked(window, controlId) != 0;
}

std::wstring WindowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');  // room for the NUL
    const int copied = GetWindowTextW(window, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

}  // namespace

MifExportDlg::MifExportDlg(zeio::IoManager& manager, MifExportFilter& filter,
                           const std::wstring& title, const ExportOptions& options)
    : IoPropertyPage(kClassName, manager), filter_(filter), title_(title), options_(options) {}

MifExportDlg::~MifExportDlg() = default;

const shr::CTypeInfo* MifExportDlg::GetTypeId() const {
    return GetClassTypeId();
}

void MifExportDlg::Describe(HINSTANCE module) {
    PROPSHEETPAGEW description{};
    description.dwSize = sizeof(description);
    description.dwFlags = PSP_HASHELP;
    description.hInstance = module;
    description.pszTemplate = platform::TemplateName(resources::kExportDialog);
    description.pfnDlgProc = zeio::IoPropPageDlgProc;
    description.lParam = reinterpret_cast<LPARAM>(static_cast<zeio::IoPropertyPage*>(this));
    SetPropSheetPage(description);
}

int MifExportDlg::ForwardDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallDlgProc(window, message, wParam, lParam);
}

int MifExportDlg::DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    try {
        return HandleMessage(window, message, wParam, lParam);
    } catch (...) {
        shr::LogExceptionInfo(L"qolf", kPageMessageFailed.source, kPageMessageFailed.line);
    }
    return shr::WinProcReturnCodeAfterException(window, message);
}

int MifExportDlg::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        return InitDialog(window);
    case WM_COMMAND:
        return HandleCommand(window, static_cast<int>(LOWORD(wParam)));
    case WM_SYSCOMMAND:
        if ((wParam & kSystemCommandMask) != SC_CONTEXTHELP) {
            return 0;
        }
        ShowHelp();
        return 1;
    case WM_NOTIFY:
        // The window system passes the address as a number.
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return HandleNotification(window, reinterpret_cast<const NMHDR*>(lParam)->code);
    default:
        return 0;
    }
}

int MifExportDlg::InitDialog(HWND window) {
    if (!title_.empty()) {
        AppendTitleToCaption(window);
    }
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_EXSTYLE);
    SetWindowLongPtrW(window, GWL_EXSTYLE, style | WS_EX_CONTEXTHELP);
    ShowOptions(window);
    return 1;
}

void MifExportDlg::AppendTitleToCaption(HWND window) const {
    const std::wstring caption =
        WindowText(window) + L" - " + shr::CPath(title_).GetNameAndExtension();
    SetWindowTextW(window, caption.c_str());
}

int MifExportDlg::HandleCommand(HWND window, int command) {
    switch (command) {
    case IDOK:
        AcceptOptions(window);
        EndDialog(window, 1);
        return 1;
    case IDCANCEL:
        EndDialog(window, 0);
        return 1;
    case IDC_EXPORT_DEFAULTS:
        // Kept: the page itself changes at once, so an export after Cancel still takes these. Hosts
        // give the export up when the sheet is cancelled.
        options_ = {};
        ShowOptions(window);
        return 1;
    default:
        return 0;
    }
}

int MifExportDlg::HandleNotification(HWND window, UINT code) {
    switch (code) {
    case PSN_HELP:
        ShowHelp();
        break;
    case PSN_APPLY:
        AcceptOptions(window);
        break;
    default:
        break;
    }
    return 1;
}

void MifExportDlg::ShowOptions(HWND window) const {
    CheckDlgButton(window, IDC_AREAS_TO_CURVES, CheckState(options_.areasToCurves));
    CheckDlgButton(window, IDC_RENDER_TEXT, CheckState(options_.renderText));
    CheckDlgButton(window, IDC_RENDER_MARKERS, CheckState(options_.renderMarkers));
}

void MifExportDlg::TakeOptions(HWND window) {
    options_.areasToCurves = IsChecked(window, IDC_AREAS_TO_CURVES);
    options_.renderText = IsChecked(window, IDC_RENDER_TEXT);
    options_.renderMarkers = IsChecked(window, IDC_RENDER_MARKERS);
}

void MifExportDlg::AcceptOptions(HWND window) {
    TakeOptions(window);
    filter_.TakeOptionsFromPage(/*persistent=*/true);
}

void MifExportDlg::ShowHelp() const {
    filter_.ShowHelp(L"Mif-Export.htm", std::wstring());
}

}  // namespace mif
