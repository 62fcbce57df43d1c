#include "app/base/Errors.h"
#include "app/base/platform/System.h"
#include "app/options/OptionsPages.h"
#include "host/platform/OptionsDialogOwner.h"
#include "standalone/SystemPropertySheet.h"
#include "standalone/Text.h"

#include <cstdint>
#include <filesystem>
#include <vector>

#include <shellapi.h>

namespace app {

// The topic lies beside the program. Where it is missing, or nothing shows it, a few words do.
void OptionsHost::ShowHelp(const std::wstring& topic, const std::wstring& /*anchor*/) {
    const std::filesystem::path page = ProgramFolder() / topic;
    const auto result = reinterpret_cast<std::intptr_t>(
        ShellExecuteW(nullptr, L"open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    constexpr std::intptr_t kLastError = 32;
    if (result > kLastError) {
        return;
    }
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
