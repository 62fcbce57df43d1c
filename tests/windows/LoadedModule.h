// The built qolf.dll, loaded as a host loads it, and a host that knows its instance.
#pragma once

#include "host/platform/WindowSystem.h"
#include "module/Module.h"
#include "tests/support/RecordingHost.h"

namespace windows_test {

class LoadedModule {
public:
    // Loads the module from beside the host library; throws std::runtime_error when that fails.
    LoadedModule();
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    // A new filter, the caller's to delete before the module is unloaded.
    zeio::IoImportFilter* NewImportFilter(zeio::IoManager& manager) const;
    zeio::IoExportFilter* NewExportFilter(zeio::IoManager& manager) const;

    HMODULE instance() const { return library_; }

private:
    HMODULE library_;  // owned; never null
};

// Finds the dialogs' templates in the module.
class DialogHost : public support::RecordingHost {
public:
    explicit DialogHost(const LoadedModule& module) : module_(module) {}
    HINSTANCE ModuleInstance() const override { return module_.instance(); }

private:
    const LoadedModule& module_;
};

}  // namespace windows_test
