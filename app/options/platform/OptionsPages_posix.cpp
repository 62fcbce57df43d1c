#include "app/base/Errors.h"
#include "app/options/NewtPresenter.h"
#include "app/options/OptionsPages.h"
#include "host/platform/OptionsDialogOwner.h"
#include "standalone/DialogModel.h"
#include "standalone/PropertySheet.h"

#include <vector>

namespace app {

void OptionsHost::ShowHelp(const std::wstring& topic, const std::wstring& /*anchor*/) {
    NewtPresenter::ShowMessage("Help", HelpText(topic));
}

bool ShowImportOptions(zeio::IoImportFilter& filter) {
    auto* owner = dynamic_cast<platform::OptionsDialogOwner*>(&filter);
    if (owner == nullptr) {
        throw Failure("the module has no options dialog for imports");
    }
    NewtPresenter presenter;
    standalone::DialogPresenter* const before = standalone::SetDialogPresenter(&presenter);
    try {
        const bool isAccepted = owner->ShowOptionsDialog(L"");
        standalone::SetDialogPresenter(before);
        return isAccepted;
    } catch (...) {
        standalone::SetDialogPresenter(before);
        throw;
    }
}

bool ShowExportOptions(zeio::IoExportFilter& filter) {
    std::vector<zeio::IoPropertyPage*> pages;
    filter.GetPropertyPages(pages, L"");
    NewtPresenter presenter;
    return standalone::RunPropertySheet(pages, presenter);
}

}  // namespace app
