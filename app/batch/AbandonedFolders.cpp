#include "app/batch/AbandonedFolders.h"

#include "app/base/Paths.h"
#include "app/base/TempFolder.h"
#include "app/base/platform/System.h"
#include "app/batch/ChildProcesses.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {
namespace {

// The process that has made a private folder.
struct Maker {
    std::uint64_t process = 0;
    std::string host;  // empty: the name does not say
};

// Reads ".qolf-4711-host-AbCdEf". Absent for a name that is not a private folder's.
std::optional<Maker> MakerOf(const std::string& name) {
    const std::string prefix = kPrivateFolderPrefix;
    if (!name.starts_with(prefix)) {
        return std::nullopt;
    }
    Maker maker;
    const char* const end = name.data() + name.size();
    const auto result = std::from_chars(name.data() + prefix.size(), end, maker.process);
    if (result.ec != std::errc{} || result.ptr == end || *result.ptr != '-' || maker.process == 0) {
        return std::nullopt;
    }
    const std::string rest(result.ptr + 1, end);
    maker.host = rest.substr(0, rest.rfind('-') == std::string::npos ? 0 : rest.rfind('-'));
    return maker;
}

bool HoldsOneOf(const std::filesystem::path& folder, const OwnNames& names) {
    std::error_code error;
    std::filesystem::directory_iterator entries(folder, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        if (names.contains(entries->path().filename().native())) {
            return true;
        }
    }
    return false;
}

// Returns false when it is not known whether the folder's process still runs.
bool IsAbandoned(const std::filesystem::path& folder, const OwnNames& ownNames) {
    const std::optional<Maker> maker = MakerOf(ArgumentFromPath(folder.filename()));
    if (!maker) {
        return false;
    }
    const bool isOfHere = maker->host.empty() || maker->host == HostName();
    return isOfHere ? IsProcessGone(maker->process) : HoldsOneOf(folder, ownNames);
}

}  // namespace

void RemoveAbandonedFolders(const std::filesystem::path& folder, const OwnNames& ownNames) {
    std::vector<std::filesystem::path> abandoned;
    std::error_code error;
    std::filesystem::directory_iterator entries(folder, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        std::error_code unknown;
        if (entries->symlink_status(unknown).type() == std::filesystem::file_type::directory &&
            IsAbandoned(entries->path(), ownNames)) {
            abandoned.push_back(entries->path());
        }
    }
    for (const std::filesystem::path& path : abandoned) {
        std::filesystem::remove_all(path, error);
    }
}

}  // namespace app
