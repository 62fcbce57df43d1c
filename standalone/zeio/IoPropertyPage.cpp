#include "host/zeio/IoPropertyPage.h"

#include "host/zeio/IoManager.h"

namespace zeio {

IoPropertyPage::IoPropertyPage(const std::wstring& name, IoManager& manager)
    : name_(name), manager_(manager) {}

// A page may go before the window that shows it: the filter deletes it when an export begins. What
// the window is sent from then on finds no page.
IoPropertyPage::~IoPropertyPage() {
    if (window_ != nullptr) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    }
}

const shr::CTypeInfo* IoPropertyPage::GetTypeId() const {
    return GetClassTypeId();
}

int IoPropertyPage::ForwardDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallDlgProc(window, message, wParam, lParam);
}

int IoPropertyPage::DlgProc(HWND /*window*/, UINT /*message*/, WPARAM /*wParam*/,
                            LPARAM /*lParam*/) {
    return 0;
}

const shr::CTypeInfo* IoPropertyPage::GetClassTypeId() {
    static const shr::CTypeInfo type(L"IoPropertyPage", nullptr, nullptr);
    return &type;
}

void IoPropertyPage::SetPropSheetPage(const PROPSHEETPAGEW& page) {
    page_ = page;
}

int IoPropertyPage::CallDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        window_ = window;
    } else if (message == WM_DESTROY) {
        window_ = nullptr;
    }
    return DlgProc(window, message, wParam, lParam);
}

LONG_PTR IoPropPageDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // Messages and windows carry pointers as numbers.
    // NOLINTBEGIN(performance-no-int-to-ptr)
    if (message == WM_INITDIALOG) {
        const auto* description = reinterpret_cast<const PROPSHEETPAGEW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, description->lParam);
    }
    auto* page = reinterpret_cast<IoPropertyPage*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    // NOLINTEND(performance-no-int-to-ptr)

    // The system sends a few messages before WM_INITDIALOG.
    return page == nullptr ? 0 : page->ForwardDlgProc(window, message, wParam, lParam);
}

}  // namespace zeio
