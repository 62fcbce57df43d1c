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

struct NMHDR {
    HWND hwndFrom;
    std::uintptr_t idFrom;
    UINT code;
};

// The fields of the system's record that a page fills in; the rest is not looked at.
struct PROPSHEETPAGEW {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    LPCWSTR pszTemplate;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
};

QOLF_HOST_API INT_PTR DialogBoxParamW(HINSTANCE instance, LPCWSTR templateName, HWND parent,
                                      DLGPROC procedure, LPARAM parameter);
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

// One dialog template, as plain data. Ids and texts have one source, resources/DialogTexts.h;
// the .rc file of Windows and these records are both made from it.
enum class ControlKind { CheckBox, PushButton, DefaultButton };

struct DialogControl {
    int id;
    ControlKind kind;
    const wchar_t* text;
};

struct DialogTemplate {
    int id;
    const wchar_t* caption;
    const DialogControl* controls;
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
