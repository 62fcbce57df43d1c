#include "standalone/SystemPropertySheet.h"

#include "host/zeio/IoPropertyPage.h"

#include <commctrl.h>

#include <algorithm>

namespace standalone {

bool RunPropertySheet(const std::vector<zeio::IoPropertyPage*>& pages, const std::wstring& caption,
                      HWND parent) {
    std::vector<PROPSHEETPAGEW> descriptions;
    for (const zeio::IoPropertyPage* page : pages) {
        const PROPSHEETPAGEW& description = page->PropSheetPage();
        if (description.pszTemplate != nullptr && description.pfnDlgProc != nullptr) {
            descriptions.push_back(description);
        }
    }
    if (descriptions.empty()) {
        return false;
    }
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES};
    InitCommonControlsEx(&classes);

    PROPSHEETHEADERW sheet{};
    sheet.dwSize = sizeof sheet;
    sheet.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW;
    if (std::any_of(descriptions.begin(), descriptions.end(),
                    [](const PROPSHEETPAGEW& page) { return (page.dwFlags & PSP_HASHELP) != 0; })) {
        sheet.dwFlags |= PSH_HASHELP;
    }
    sheet.hwndParent = parent;
    sheet.pszCaption = caption.c_str();
    sheet.nPages = static_cast<UINT>(descriptions.size());
    sheet.ppsp = descriptions.data();
    return PropertySheetW(&sheet) > 0;
}

}  // namespace standalone
