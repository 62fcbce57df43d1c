// The built module, loaded as a host loads it.
#pragma once

#include "module/Module.h"

namespace module_test {

class LoadedModule {
public:
    // Loads the module; throws std::runtime_error with the loader's reason when that fails.
    LoadedModule();
    ~LoadedModule();
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    // A new filter, the caller's to delete before the module is unloaded.
    zeio::IoImportFilter* NewImportFilter(zeio::IoManager& manager) const;
    zeio::IoExportFilter* NewExportFilter(zeio::IoManager& manager) const;

private:
    void* Symbol(const char* name) const;

    void* library_;  // owned; never null
};

}  // namespace module_test
