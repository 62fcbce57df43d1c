#include "standalone/PropertySheet.h"

#include "host/zeio/IoPropertyPage.h"

#include <algorithm>

namespace standalone {

PropertySheet::PropertySheet(const std::vector<zeio::IoPropertyPage*>& pages) {
    for (const zeio::IoPropertyPage* page : pages) {
        const PROPSHEETPAGEW& description = page->PropSheetPage();
        if (description.pszTemplate == nullptr || description.pfnDlgProc == nullptr) {
            continue;
        }
        const auto* dialogTemplate =
            reinterpret_cast<const platform::DialogTemplate*>(description.pszTemplate);
        pages_.push_back({std::make_unique<DialogModel>(*dialogTemplate, description.pfnDlgProc),
                          (description.dwFlags & PSP_HASHELP) != 0});
        pages_.back().dialog->Initialise(reinterpret_cast<LPARAM>(&description));
    }
}

PropertySheet::~PropertySheet() = default;

DialogModel& PropertySheet::Page(std::size_t index) {
    return *pages_.at(index).dialog;
}

bool PropertySheet::HasHelp(std::size_t index) const {
    return pages_.at(index).hasHelp;
}

void PropertySheet::PressOk() {
    if (!IsOpen()) {
        return;
    }
    for (const ShownPage& page : pages_) {
        Notify(*page.dialog, PSN_APPLY);
    }
    isAccepted_ = true;
    isClosed_ = true;
}

void PropertySheet::PressCancel() {
    isClosed_ = true;
}

bool PropertySheet::PressHelp(std::size_t index) {
    if (!IsOpen() || !HasHelp(index)) {
        return false;
    }
    Notify(Page(index), PSN_HELP);
    return true;
}

bool PropertySheet::IsOpen() const {
    return !isClosed_ && std::all_of(pages_.begin(), pages_.end(),
                                     [](const ShownPage& page) { return page.dialog->IsOpen(); });
}

void PropertySheet::Notify(DialogModel& page, UINT code) {
    NMHDR notification{page.Window(), 0, code};
    page.Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

bool RunPropertySheet(const std::vector<zeio::IoPropertyPage*>& pages, DialogPresenter& presenter) {
    PropertySheet sheet(pages);
    if (sheet.PageCount() == 0) {
        return false;
    }
    if (sheet.IsOpen()) {
        presenter.ShowSheet(sheet);
    }
    return sheet.IsAccepted();
}

}  // namespace standalone
