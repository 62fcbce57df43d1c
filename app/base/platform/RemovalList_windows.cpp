#include "app/base/platform/RemovalList.h"

#include <mutex>
#include <vector>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace app {
namespace {

// The system calls a console handler on a thread of its own, so a lock is enough.
std::mutex listMutex;
std::vector<std::filesystem::path> list;

BOOL WINAPI RemoveListed(DWORD) {
    const std::lock_guard lock(listMutex);
    std::error_code ignored;
    for (const std::filesystem::path& folder : list) {
        std::filesystem::remove_all(folder, ignored);
    }
    return FALSE;  // the default handler then ends the program
}

}  // namespace

void RemoveOnSignal(const std::filesystem::path& folder) {
    static const bool installed = SetConsoleCtrlHandler(RemoveListed, TRUE) != 0;
    static_cast<void>(installed);
    const std::lock_guard lock(listMutex);
    list.push_back(folder);
}

void KeepOnSignal(const std::filesystem::path& folder) {
    const std::lock_guard lock(listMutex);
    std::erase(list, folder);
}

}  // namespace app
