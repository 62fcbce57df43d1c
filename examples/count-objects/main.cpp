// The smallest host: loads the filter module, imports a file and counts what arrives, by class.
#include "host/shr/CTypeInfo.h"
#include "host/shr/IError.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/TrObjects.h"
#include "standalone/IoHost.h"
#include "standalone/Text.h"

#include <dlfcn.h>
#include <iostream>
#include <map>
#include <memory>

namespace {

struct CountingHost : zeio::IoHost {
    using IoHost::IoHost;
    void ImportObject(zeio::TrBase& object) override { ++counts[object.GetTypeId()->Name()]; }

    std::map<std::wstring, int> counts;
};

using ImportFactory = zeio::IoImportFilter* (*)(zeio::IoManager&);

int CountObjects(ImportFactory make, const char* path) {
    standalone::OptionStore options;
    CountingHost host(options);
    zeio::IoManager manager(host);
    const std::unique_ptr<zeio::IoImportFilter> filter(make(manager));
    filter->Import(standalone::Widen(path));
    for (const auto& [name, count] : host.counts) {
        std::cout << standalone::Narrow(name) << ' ' << count << '\n';
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    void* module = dlopen(QOLF_MODULE, RTLD_NOW);
    if (module == nullptr || argc != 2) {
        std::cerr << (module == nullptr ? dlerror() : "usage: count-objects FILE.mif") << '\n';
        return 2;
    }
    try {
        return CountObjects(reinterpret_cast<ImportFactory>(dlsym(module, "ImportMIF")), argv[1]);
    } catch (const shr::IError& error) {
        std::cerr << standalone::Narrow(error.Message()) << '\n';
        return 1;
    }
}
