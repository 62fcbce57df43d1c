// The filter module, loaded at run time as any host loads it.
#pragma once

#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"

#include <filesystem>
#include <memory>
#include <string>

namespace app {

// The first that exists of the places where a module of the program's own is: beside the program;
// ../lib/qolf/ seen from it. Throws Failure with the places that were looked at.
std::filesystem::path FindBesideProgram(const char* fileName);

// Deletes a filter before it lets go of the module that holds the filter's code.
template <typename Filter> class FilterDeleter {
public:
    FilterDeleter() = default;
    explicit FilterDeleter(std::shared_ptr<void> library) : library_(std::move(library)) {}
    void operator()(Filter* filter) const { delete filter; }

private:
    std::shared_ptr<void> library_;
};

using ImportFilterPtr = std::unique_ptr<zeio::IoImportFilter, FilterDeleter<zeio::IoImportFilter>>;
using ExportFilterPtr = std::unique_ptr<zeio::IoExportFilter, FilterDeleter<zeio::IoExportFilter>>;

class Module {
public:
    // Loads the module at once. An empty path means the first that exists of: $QOLF_MODULE; qolf.so
    // (Windows: qolf.dll) beside the program; ../lib/qolf/ seen from the program. Throws Failure
    // with the places that were looked at, or the loader's own reason.
    explicit Module(const std::string& path);

    // New filters bound to the manager, which must outlive them. The module stays loaded while one
    // of its filters lives. Throws Failure when the module does not offer the filter.
    ImportFilterPtr NewImportFilter(zeio::IoManager& manager) const;
    ExportFilterPtr NewExportFilter(zeio::IoManager& manager) const;

    const std::filesystem::path& Path() const { return path_; }

    // The system's handle of the loaded library; never null.
    void* Library() const { return library_.get(); }

private:
    std::filesystem::path path_;
    std::shared_ptr<void> library_;
};

}  // namespace app
