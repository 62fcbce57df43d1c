#include "app/batch/AbandonedFolders.h"

#include "app/base/Paths.h"
#include "app/base/TempFolder.h"
#include "app/batch/ChildProcesses.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <vector>

namespace app {
namespace {

// Returns false for a name that is not a private folder's, and when it is not known whether its
// process still runs.
bool IsAbandoned(const std::string& name) {
    const std::string prefix = kPrivateFolderPrefix;
    if (!name.starts_with(prefix)) {
        return false;
    }
    std::uint64_t process = 0;
    const char* const end = name.data() + name.size();
    const auto result = std::from_chars(name.data() + prefix.size(), end, process);
    return result.ec == std::errc{} && result.ptr != end && *result.ptr == '-' &&
           IsProcessGone(process);
}

}  // namespace

void RemoveAbandonedFolders(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> abandoned;
    std::error_code error;
    std::filesystem::directory_iterator entries(folder, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        std::error_code unknown;
        if (entries->symlink_status(unknown).type() == std::filesystem::file_type::directory &&
            IsAbandoned(ArgumentFromPath(entries->path().filename()))) {
            abandoned.push_back(entries->path());
        }
    }
    for (const std::filesystem::path& path : abandoned) {
        std::filesystem::remove_all(path, error);
    }
}

}  // namespace app
