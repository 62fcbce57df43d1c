// The filter module, loaded at run time as any host loads it.
#pragma once

#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"

#include <filesystem>
#include <memory>
#include <string>

namespace app {

// Returns the first place of a library of our own that exists: beside the program, or in
// ../lib/qolf/ seen from the program. Throws Failure, with the places, when there is none.
std::filesystem::path FindBesideProgram(const char* fileName);

// Deletes a filter, and only then lets go of the module with the filter's code.
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
    // Loads the module. An empty `path` means the first of these that exists: $QOLF_MODULE,
    // qolf.so (Windows: qolf.dll) beside the program, qolf.so in ../lib/qolf/ seen from the
    // program. Throws Failure with the places, or with the loader's own reason.
    explicit Module(const std::string& path);

    // Make a new filter for the manager, which must outlive it. The module stays loaded as long as
    // one of its filters lives. Throw Failure when the module does not export the factory.
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
