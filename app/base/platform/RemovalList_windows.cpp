#include "app/base/platform/RemovalList.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <io.h>

namespace app {
namespace {

constexpr int kAttempts = 5;
constexpr DWORD kBetweenAttempts = 50;  // milliseconds

// The system calls a console handler on a thread of its own, so a lock is enough.
std::mutex listMutex;
std::vector<std::filesystem::path> list;

bool IsAtOrBelow(std::wstring_view path, std::wstring_view folder) {
    return path.starts_with(folder) &&
           (path.size() == folder.size() || path[folder.size()] == L'\\');
}

// The name that the system gives a file or folder: a full one. Empty when it has none.
std::wstring SystemName(HANDLE file) {
    std::wstring name(32768, L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(file, name.data(), static_cast<DWORD>(name.size()), 0);
    name.resize(length < name.size() ? length : 0);
    return name;
}

std::vector<std::wstring> ListedFolders() {
    std::vector<std::wstring> folders;
    for (const std::filesystem::path& path : list) {
        const HANDLE folder =
            CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        if (folder != INVALID_HANDLE_VALUE) {
            folders.push_back(SystemName(folder));
            CloseHandle(folder);
        }
    }
    std::erase(folders, L"");
    return folders;
}

// An open file can't be removed here. So the files in these folders are closed under the program,
// whoever has opened them: the module, a library or the C runtime. Handles are multiples of 4.
void CloseFilesBelow(const std::vector<std::wstring>& folders) {
    constexpr std::uintptr_t kMost = 1 << 14;  // far more than this program has
    for (std::uintptr_t value = 4; value < kMost; value += 4) {
        const HANDLE handle = reinterpret_cast<HANDLE>(value);
        if (GetFileType(handle) != FILE_TYPE_DISK) {
            continue;
        }
        const std::wstring name = SystemName(handle);
        if (std::ranges::any_of(
                folders, [&](const std::wstring& folder) { return IsAtOrBelow(name, folder); })) {
            CloseHandle(handle);
        }
    }
}

// Returns whether all is gone.
bool RemoveAll() {
    bool isGone = true;
    std::error_code error;
    for (const std::filesystem::path& folder : list) {
        std::filesystem::remove_all(folder, error);
        isGone = isGone && !std::filesystem::exists(folder, error);
    }
    return isGone;
}

BOOL WINAPI RemoveListed(DWORD) {
    const std::lock_guard lock(listMutex);
    if (!list.empty()) {
        // What the program says of its files now is of no use to anybody.
        _close(_fileno(stderr));
    }
    const std::vector<std::wstring> folders = ListedFolders();
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        CloseFilesBelow(folders);
        if (RemoveAll()) {
            break;
        }
        Sleep(kBetweenAttempts);
    }
    // As the default handler does, but at once, and with the same code on every Windows.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_CONTROL_C_EXIT));
    return TRUE;
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
