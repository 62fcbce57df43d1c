#include "app/base/platform/RemovalList.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace app {
namespace {

// The system calls a console handler on a thread of its own, so a lock is enough.
std::mutex listMutex;
std::vector<std::pair<std::filesystem::path, RemovalKind>> list;

BOOL WINAPI RemoveListed(DWORD) {
    const std::lock_guard lock(listMutex);
    std::error_code ignored;
    for (auto entry = list.rbegin(); entry != list.rend(); ++entry) {
        std::filesystem::remove(entry->first, ignored);
    }
    return FALSE;  // the default handler then ends the program
}

}  // namespace

void RemoveOnSignal(const std::filesystem::path& path, RemovalKind kind) {
    static const bool installed = SetConsoleCtrlHandler(RemoveListed, TRUE) != 0;
    static_cast<void>(installed);
    const std::lock_guard lock(listMutex);
    list.emplace_back(path, kind);
}

void KeepOnSignal(const std::filesystem::path& path) {
    const std::lock_guard lock(listMutex);
    std::erase_if(list, [&](const auto& entry) {
        return entry.first == path || entry.first.parent_path() == path;
    });
}

}  // namespace app
