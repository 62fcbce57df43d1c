#include "app/base/ShownPlace.h"

#include "app/base/Paths.h"
#include "standalone/Text.h"

#include <utility>
#include <vector>

namespace app {
namespace {

struct Replacement {
    std::string folder;
    std::string shown;
};

std::vector<Replacement>& Replacements() {
    static std::vector<Replacement> replacements;
    return replacements;
}

// With the separator behind it; "" of an empty path.
std::string FolderText(const std::filesystem::path& folder) {
    return folder.empty() ? "" : standalone::Narrow(WidePath(folder / ""));
}

}  // namespace

ShownPlace::ShownPlace(const std::filesystem::path& folder, const std::filesystem::path& shown)
    : folder_(FolderText(folder)) {
    Replacements().push_back({folder_, FolderText(shown)});
}

ShownPlace::~ShownPlace() {
    std::erase_if(Replacements(),
                  [this](const Replacement& entry) { return entry.folder == folder_; });
}

std::string WithShownPlaces(std::string utf8) {
    for (const auto& [folder, shown] : Replacements()) {
        for (std::size_t at = utf8.find(folder); at != std::string::npos;
             at = utf8.find(folder, at + shown.size())) {
            utf8.replace(at, folder.size(), shown);
        }
    }
    return utf8;
}

}  // namespace app
