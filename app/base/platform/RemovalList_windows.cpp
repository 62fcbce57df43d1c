#include "app/base/platform/RemovalList.h"

#include "app/base/Paths.h"
#include "app/base/TempFolder.h"

#include <algorithm>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
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

// The folders in which private folders of this process may lie.
std::set<std::filesystem::path> Places() {
    std::error_code error;
    std::set<std::filesystem::path> places{std::filesystem::temp_directory_path(error)};
    for (const std::filesystem::path& folder : list) {
        places.insert(folder.parent_path().empty() ? "." : folder.parent_path());
    }
    return places;
}

// All of them, those included that the program makes while its files are closed.
std::vector<std::filesystem::path> OwnFolders(const std::set<std::filesystem::path>& places) {
    const std::string prefix = kPrivateFolderPrefix + std::to_string(GetCurrentProcessId()) + "-";
    std::vector<std::filesystem::path> folders;
    for (const std::filesystem::path& place : places) {
        std::error_code error;
        std::filesystem::directory_iterator entries(place, error);
        for (; !error && entries != std::filesystem::directory_iterator();
             entries.increment(error)) {
            if (ArgumentFromPath(entries->path().filename()).starts_with(prefix)) {
                folders.push_back(entries->path());
            }
        }
    }
    return folders;
}

std::vector<std::wstring> SystemNames(const std::vector<std::filesystem::path>& folders) {
    std::vector<std::wstring> names;
    for (const std::filesystem::path& path : folders) {
        const HANDLE folder =
            CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        if (folder != INVALID_HANDLE_VALUE) {
            names.push_back(SystemName(folder));
            CloseHandle(folder);
        }
    }
    std::erase(names, L"");
    return names;
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

BOOL WINAPI EndByInterrupt(DWORD) {
    // As the default handler does, but at once, and with the same code on every Windows.
    EndBySignal(static_cast<int>(STATUS_CONTROL_C_EXIT));
    return TRUE;
}

}  // namespace

void RemoveOnSignal(const std::filesystem::path& folder) {
    static const bool installed = SetConsoleCtrlHandler(EndByInterrupt, TRUE) != 0;
    static_cast<void>(installed);
    const std::lock_guard lock(listMutex);
    list.push_back(folder);
}

void KeepOnSignal(const std::filesystem::path& folder) {
    const std::lock_guard lock(listMutex);
    std::erase(list, folder);
}

void EndBySignal(int signalNumber) {
    const std::lock_guard lock(listMutex);
    // What the program says of its files from now on is of no use to anybody.
    _close(_fileno(stderr));
    const std::set<std::filesystem::path> places = Places();
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const std::vector<std::filesystem::path> folders = OwnFolders(places);
        if (folders.empty()) {
            break;
        }
        Sleep(attempt == 0 ? 0 : kBetweenAttempts);
        CloseFilesBelow(SystemNames(folders));
        for (const std::filesystem::path& folder : folders) {
            std::error_code error;
            std::filesystem::remove_all(folder, error);
        }
    }
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(signalNumber));
}

}  // namespace app
