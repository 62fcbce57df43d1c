// The base of a filter's options page.
//
// The filter makes the page and owns it; a program shows it, in the system's property sheet or in
// one of its own, from the description that the page has registered. The page may be deleted before
// its window is: the window is then told, and its messages find no page.
#pragma once

#include "host/platform/Export.h"
#include "host/platform/WindowSystem.h"
#include "host/shr/CTypeInfo.h"
#include "host/shr/NonCopyable.h"

#include <string>

namespace zeio {

class IoManager;

class QOLF_HOST_API IoPropertyPage : public shr::NonCopyable {
public:
    // `name` is the class's, not the caption. The manager must outlive the page.
    IoPropertyPage(const std::wstring& name, IoManager& manager);

    // Slots, in order: destructor, type id, the forwarder to the dialog procedure, the page's own
    // dialog procedure.
    virtual ~IoPropertyPage();
    virtual const shr::CTypeInfo* GetTypeId() const;
    virtual int ForwardDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual int DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    static const shr::CTypeInfo* GetClassTypeId();

    // Keeps a copy of the page's property-sheet description: its template, its procedure (the one
    // below), the module instance that has the template, and the page itself as the parameter.
    void SetPropSheetPage(const PROPSHEETPAGEW& page);

    // Runs DlgProc and returns what that does; remembers the page's window from WM_INITDIALOG to
    // WM_DESTROY.
    int CallDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    const PROPSHEETPAGEW& PropSheetPage() const { return page_; }
    const std::wstring& Name() const { return name_; }
    IoManager& Manager() const { return manager_; }
    HWND Window() const { return window_; }  // null while the page is not shown

private:
    std::wstring name_;
    IoManager& manager_;
    PROPSHEETPAGEW page_{};
    HWND window_ = nullptr;  // null while the page is not shown
};

// The dialog procedure that a page's description names: finds the page (lParam of the page's
// description at WM_INITDIALOG, the window afterwards) and calls its ForwardDlgProc. 0 when there
// is no page, or not any more.
QOLF_HOST_API LONG_PTR IoPropPageDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace zeio
