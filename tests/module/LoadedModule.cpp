#include "tests/module/LoadedModule.h"

#include <dlfcn.h>

#include <stdexcept>

namespace module_test {

LoadedModule::LoadedModule() : library_(dlopen(QOLF_MODULE, RTLD_NOW | RTLD_LOCAL)) {
    if (library_ == nullptr) {
        throw std::runtime_error(dlerror());
    }
}

LoadedModule::~LoadedModule() {
    dlclose(library_);
}

zeio::IoImportFilter* LoadedModule::NewImportFilter(zeio::IoManager& manager) const {
    return reinterpret_cast<decltype(&ImportMIF)>(Symbol("ImportMIF"))(manager);
}

zeio::IoExportFilter* LoadedModule::NewExportFilter(zeio::IoManager& manager) const {
    return reinterpret_cast<decltype(&ExportMIF)>(Symbol("ExportMIF"))(manager);
}

void* LoadedModule::Symbol(const char* name) const {
    void* const symbol = dlsym(library_, name);
    if (symbol == nullptr) {
        throw std::runtime_error(dlerror());
    }
    return symbol;
}

}  // namespace module_test
