#include "app/run/Module.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"

#include <vector>

namespace app {
namespace {

std::vector<std::filesystem::path> UsualPlaces(const char* fileName) {
    std::vector<std::filesystem::path> places;
    const std::filesystem::path folder = ProgramFolder();
    places.push_back(folder / fileName);
    places.push_back(folder / ".." / "lib" / "qolf" / fileName);
#ifdef QOLF_MODULE_DIR
    places.push_back(folder / QOLF_MODULE_DIR / fileName);
#endif
    return places;
}

struct Search {
    std::filesystem::path path;  // empty: the file is in none of the places
    std::string tried;           // the places without it, each in a line of its own
};

Search SearchUsualPlaces(const char* fileName) {
    Search search;
    for (const std::filesystem::path& place : UsualPlaces(fileName)) {
        std::error_code error;
        if (std::filesystem::exists(place, error)) {
            search.path = place;
            break;
        }
        search.tried += "\n  " + PathText(place.lexically_normal());
    }
    return search;
}

std::filesystem::path FindModule(const std::string& wanted) {
    if (!wanted.empty()) {
        return PathFromArgument(wanted);
    }
    if (const std::string fromEnvironment = EnvironmentVariable("QOLF_MODULE");
        !fromEnvironment.empty()) {
        return PathFromArgument(fromEnvironment);
    }
    const Search search = SearchUsualPlaces(ModuleFileName());
    if (search.path.empty()) {
        throw Failure("the filter module was not found; looked for" + search.tried +
                      "\nname it with --module or in QOLF_MODULE");
    }
    return search.path;
}

template <typename Filter>
Filter* CallFactory(void* library, const std::filesystem::path& path, const char* name,
                    zeio::IoManager& manager) {
    using Factory = Filter* (*)(zeio::IoManager&);
    const auto factory = reinterpret_cast<Factory>(LibrarySymbol(library, name));
    if (factory == nullptr) {
        throw Failure(PathText(path) + ": is not a filter module: it lacks " + name);
    }
    Filter* filter = factory(manager);
    if (filter == nullptr) {
        throw Failure(PathText(path) + ": the module made no filter: out of memory");
    }
    return filter;
}

}  // namespace

std::filesystem::path FindBesideProgram(const char* fileName) {
    const Search search = SearchUsualPlaces(fileName);
    if (search.path.empty()) {
        throw Failure(std::string(fileName) + " was not found; looked for" + search.tried);
    }
    return search.path;
}

Module::Module(const std::string& path) : path_(FindModule(path)) {
    std::string reason;
    library_ = LoadSharedLibrary(path_, reason, SymbolBinding::AtOnce);
    if (library_ == nullptr) {
        throw Failure(PathText(path_) + ": can't load the filter module: " + reason);
    }
}

ImportFilterPtr Module::NewImportFilter(zeio::IoManager& manager) const {
    auto* filter = CallFactory<zeio::IoImportFilter>(library_.get(), path_, "ImportMIF", manager);
    return {filter, FilterDeleter<zeio::IoImportFilter>(library_)};
}

ExportFilterPtr Module::NewExportFilter(zeio::IoManager& manager) const {
    auto* filter = CallFactory<zeio::IoExportFilter>(library_.get(), path_, "ExportMIF", manager);
    return {filter, FilterDeleter<zeio::IoExportFilter>(library_)};
}

}  // namespace app
