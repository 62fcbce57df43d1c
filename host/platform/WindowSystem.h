// The handful of window-system types and functions behind the two options pages. On Windows they
// are the system's own; elsewhere the host library implements them over a small dialog model
// (standalone/DialogModel.h), so that one dialog procedure serves both.
#pragma once

#include "host/platform/Export.h"

#if defined(_WIN32)

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <prsht.h>

#else

#include <cstdint>

// The types as the window system has them. A window is a standalone::DialogModel here.
struct HWND__;
struct HINSTANCE__;
using HWND = HWND__*;
using HINSTANCE = HINSTANCE__*;
using UINT = unsigned int;
using DWORD = std::uint32_t;
using BOOL = int;
using INT_PTR = std::intptr_t;
using LONG_PTR = std::intptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LPCWSTR = const wchar_t*;
using LPWSTR = wchar_t*;
using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);

// The messages, commands and styles that the pages use, with the system's numbers.
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_SYSCOMMAND = 0x0112;
constexpr WPARAM SC_CONTEXTHELP = 0xF180;
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr UINT BST_UNCHECKED = 0;
constexpr UINT BST_CHECKED = 1;
constexpr int GWL_EXSTYLE = -20;
constexpr int GWLP_USERDATA = -21;
constexpr LONG_PTR WS_EX_CONTEXTHELP = 0x00000400;
constexpr DWORD PSP_HASHELP = 0x00000020;
constexpr UINT PSN_APPLY = static_cast<UINT>(-202);
constexpr UINT PSN_HELP = static_cast<UINT>(-205);

// What lParam of WM_NOTIFY points to.
struct NMHDR {
    HWND hwndFrom;
    std::uintptr_t idFrom;
    UINT code;
};

// The fields of the system's record that a page fills in; the rest is not looked at. dwSize is the
// record's own size, pszTemplate what TemplateName gives, lParam the page.
struct PROPSHEETPAGEW {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    LPCWSTR pszTemplate;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
};

// Runs a modal dialog from a template (see TemplateName below) and returns what EndDialog was
// given, -1 when it can't be shown. What the procedure throws leaves through it.
QOLF_HOST_API INT_PTR DialogBoxParamW(HINSTANCE instance, LPCWSTR templateName, HWND parent,
                                      DLGPROC procedure, LPARAM parameter);
// Each fails with 0 for a window, or a control of it, that is not there.
QOLF_HOST_API BOOL EndDialog(HWND dialog, INT_PTR result);
QOLF_HOST_API BOOL CheckDlgButton(HWND dialog, int controlId, UINT check);
QOLF_HOST_API UINT IsDlgButtonChecked(HWND dialog, int controlId);
QOLF_HOST_API int GetWindowTextLengthW(HWND window);
QOLF_HOST_API int GetWindowTextW(HWND window, LPWSTR text, int capacity);
QOLF_HOST_API BOOL SetWindowTextW(HWND window, LPCWSTR text);
QOLF_HOST_API LONG_PTR GetWindowLongPtrW(HWND window, int index);
QOLF_HOST_API LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);

constexpr unsigned LOWORD(std::uintptr_t value) {
    return static_cast<unsigned>(value & 0xFFFFU);
}

#endif

namespace platform {

// What a control of a template is; a default button answers the enter key as well.
enum class ControlKind { CheckBox, PushButton, DefaultButton };

// One dialog template, as plain data. Ids and texts have one source, resources/DialogTexts.h;
// the .rc file of Windows and these records are both made from it.
struct DialogControl {
    int id;  // what WM_COMMAND has in its low word
    ControlKind kind;
    const wchar_t* text;  // '&' stands before the letter of its short cut
};

struct DialogTemplate {
    int id;  // the resource's number
    const wchar_t* caption;
    const DialogControl* controls;  // an array that lives as long as the module
    int controlCount;
};

// What DialogBoxParamW and PROPSHEETPAGEW take for a template: the resource's number on Windows,
// elsewhere the record itself, since a module without resources has no other place to look.
inline LPCWSTR TemplateName(const DialogTemplate& dialogTemplate) {
#if defined(_WIN32)
    return MAKEINTRESOURCEW(dialogTemplate.id);
#else
    return reinterpret_cast<LPCWSTR>(&dialogTemplate);
#endif
}

}  // namespace platform
