#include "tests/windows/LoadedModule.h"

#include <stdexcept>
#include <string>

namespace windows_test {

namespace {

// The system's type for any function is cast through the one that every function may be cast to.
template <typename Factory> Factory* FactoryOf(HMODULE library, const char* name) {
    const auto address = reinterpret_cast<void (*)()>(GetProcAddress(library, name));
    if (address == nullptr) {
        throw std::runtime_error(std::string("qolf.dll lacks ") + name);
    }
    return reinterpret_cast<Factory*>(address);
}

}  // namespace

LoadedModule::LoadedModule() : library_(LoadLibraryW(L"qolf.dll")) {
    if (library_ == nullptr) {
        throw std::runtime_error("qolf.dll: error " + std::to_string(GetLastError()));
    }
}

LoadedModule::~LoadedModule() {
    FreeLibrary(library_);
}

zeio::IoImportFilter* LoadedModule::NewImportFilter(zeio::IoManager& manager) const {
    return FactoryOf<decltype(ImportMIF)>(library_, "ImportMIF")(manager);
}

zeio::IoExportFilter* LoadedModule::NewExportFilter(zeio::IoManager& manager) const {
    return FactoryOf<decltype(ExportMIF)>(library_, "ExportMIF")(manager);
}

}  // namespace windows_test
