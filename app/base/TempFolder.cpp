#include "app/base/TempFolder.h"

#include "app/base/Errors.h"
#include "app/base/platform/RemovalList.h"
#include "app/base/platform/System.h"

namespace app {
namespace {

std::filesystem::path ParentOrSystemFolder(const std::filesystem::path& parent) {
    if (!parent.empty()) {
        return parent;
    }
    std::error_code error;
    std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error) {
        throw Failure("no folder for temporary files: " + error.message());
    }
    return folder;
}

}  // namespace

TempFolder::TempFolder(const std::filesystem::path& parent)
    : path_(MakePrivateFolder(ParentOrSystemFolder(parent))) {
    RemoveOnSignal(path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;  // nobody is left to tell
    std::filesystem::remove_all(path_, ignored);
    KeepOnSignal(path_);
}

std::filesystem::path TempFolder::File(const std::filesystem::path& name) const {
    return path_ / name;
}

}  // namespace app
