#include "app/base/Errors.h"
#include "app/options/OptionsPages.h"
#include "host/platform/OptionsDialogOwner.h"
#include "standalone/SystemPropertySheet.h"
#include "standalone/Text.h"

#include <vector>

namespace app {

void OptionsHost::ShowHelp(const std::wstring& topic, const std::wstring& /*anchor*/) {
    MessageBoxW(nullptr, standalone::Widen(HelpText(topic)).c_str(), L"Help", MB_OK);
}

bool ShowImportOptions(zeio::IoImportFilter& filter) {
    auto* owner = dynamic_cast<platform::OptionsDialogOwner*>(&filter);
    if (owner == nullptr) {
        throw Failure("the module has no options dialog for imports");
    }
    return owner->ShowOptionsDialog(L"");
}

bool ShowExportOptions(zeio::IoExportFilter& filter) {
    std::vector<zeio::IoPropertyPage*> pages;
    filter.GetPropertyPages(pages, L"");
    return standalone::RunPropertySheet(pages, L"MIF Options", nullptr);
}

}  // namespace app
