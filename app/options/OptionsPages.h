// Shows the filters' own options pages: in the terminal, or in windows on a system that has them.
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

// Show a page until the user closes it. Return true when the user accepted: the filter has then
// stored the options. Throw Failure when there is no terminal or window to show it in.
bool ShowImportOptions(zeio::IoImportFilter& filter);
bool ShowExportOptions(zeio::IoExportFilter& filter);

// Returns the text of a help topic.
std::string HelpText(const std::wstring& topic);

}  // namespace app
