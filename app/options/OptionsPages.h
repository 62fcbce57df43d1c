// Shows the filters' options pages: in the terminal, or where there are windows in those.
#pragma once

#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "standalone/IoHost.h"

#include <string>

namespace app {

// Answers the pages' calls for help with a few words on each option, and names the library that
// holds the pages' templates.
class OptionsHost : public zeio::IoHost {
public:
    OptionsHost(standalone::OptionStore& store, void* library) : IoHost(store), library_(library) {}
    void ShowHelp(const std::wstring& topic, const std::wstring& anchor) override;
    HINSTANCE ModuleInstance() const override { return static_cast<HINSTANCE>(library_); }

private:
    void* library_;  // not owned
};

// True when the user accepted, and the options were stored. Throws Failure when there is nowhere
// to show a page.
bool ShowImportOptions(zeio::IoImportFilter& filter);
bool ShowExportOptions(zeio::IoExportFilter& filter);

// The words that a help topic stands for.
std::string HelpText(const std::wstring& topic);

}  // namespace app
