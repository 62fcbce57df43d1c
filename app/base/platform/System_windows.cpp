#include "app/base/platform/System.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/TempFolder.h"
#include "host/platform/Stdio.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace app {

namespace {

HANDLE HandleOf(std::FILE* stream) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
}

// Turns on escape sequences. False for what is no console, and for one that doesn't know them.
bool UnderstandsEscapes(HANDLE console) {
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

// Appends the files that a pattern stands for in the order of their names; the pattern itself when
// there is none, or when it names no files.
void AppendMatches(const std::wstring& pattern, std::vector<std::string>& arguments) {
    const std::size_t name = pattern.find_last_of(L"/\\:") + 1;  // 0 when there is no folder
    std::vector<std::string> found;
    WIN32_FIND_DATAW entry;
    const HANDLE search =
        pattern.starts_with(L'-') || pattern.find_first_of(L"*?", name) == pattern.npos
            ? INVALID_HANDLE_VALUE
            : FindFirstFileW(pattern.c_str(), &entry);
    for (BOOL more = search != INVALID_HANDLE_VALUE; more != FALSE;
         more = FindNextFileW(search, &entry)) {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            found.push_back(platform::PathToBytes(pattern.substr(0, name) + entry.cFileName));
        }
    }
    if (search != INVALID_HANDLE_VALUE) {
        FindClose(search);
    }
    if (found.empty()) {
        found.push_back(platform::PathToBytes(pattern));
    }
    std::sort(found.begin(), found.end());
    arguments.insert(arguments.end(), found.begin(), found.end());
}

// Whether Windows keeps the name for a device, whatever extension it has.
bool IsDeviceName(std::wstring name) {
    constexpr std::array<std::wstring_view, 4> kDevices{L"CON", L"PRN", L"AUX", L"NUL"};
    constexpr std::array<std::wstring_view, 2> kNumbered{L"COM", L"LPT"};
    name.resize(std::min(name.find(L'.'), name.size()));
    while (name.ends_with(L' ')) {
        name.pop_back();
    }
    CharUpperW(name.data());
    return std::ranges::find(kDevices, name) != kDevices.end() ||
           (name.size() == 4 && name[3] >= L'1' && name[3] <= L'9' &&
            std::ranges::find(kNumbered, name.substr(0, 3)) != kNumbered.end());
}

// The system's words for an error, without its line end.
std::string ErrorText(DWORD error) {
    std::wstring text(512, L'\0');
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    text.resize(length);
    while (text.ends_with(L' ') || text.ends_with(L'.')) {
        text.pop_back();
    }
    return text.empty() ? "error " + std::to_string(error) : platform::PathToBytes(text);
}

}  // namespace

std::vector<std::string> ProgramArguments(int, char**) {
    int count = 0;
    LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 0; wide != nullptr && i < count; ++i) {
        AppendMatches(wide[i], arguments);
    }
    LocalFree(wide);
    return arguments;
}

void IgnoreClosedPipes() {}

// The runtime knows one of the system's two errors and takes the other for a wrong argument, as it
// does with most errors of disks.
bool IsClosedPipe(std::FILE* stream, int error) {
    return (error == EPIPE || error == EINVAL) && GetFileType(HandleOf(stream)) == FILE_TYPE_PIPE;
}

void PrepareStandardStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

bool WriteToStream(std::FILE* stream, std::string_view utf8) {
    const HANDLE handle = HandleOf(stream);
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode) == 0) {
        return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
    }
    constexpr std::size_t kMost = 8192;  // a console takes so many at once
    const std::wstring wide = platform::PathFromBytes(std::string(utf8));
    std::fflush(stream);
    for (std::size_t at = 0; at < wide.size();) {
        const auto wanted = static_cast<DWORD>(std::min(wide.size() - at, kMost));
        DWORD written = 0;
        if (WriteConsoleW(handle, wide.data() + at, wanted, &written, nullptr) == 0) {
            errno = EIO;
            return false;
        }
        at += written;
    }
    return true;
}

std::string EnvironmentVariable(const char* name) {
    const wchar_t* value = _wgetenv(platform::PathFromBytes(name).c_str());
    return value != nullptr ? platform::PathToBytes(value) : "";
}

void CheckFileName(const std::filesystem::path& path) {
    const std::filesystem::path name = path.filename();
    // Without an extension a device may be meant: NUL takes what nobody wants.
    if (name.has_extension() && IsDeviceName(name.wstring())) {
        throw Failure(PathText(path) + ": Windows keeps the name " + PathText(name.stem()) +
                      " for a device, with any extension; name the file differently");
    }
}

std::shared_ptr<void> LoadSharedLibrary(const std::filesystem::path& path, std::string& reason,
                                        SymbolBinding /*binding*/) {
    HMODULE library = LoadLibraryExW(std::filesystem::absolute(path).c_str(), nullptr,
                                     LOAD_WITH_ALTERED_SEARCH_PATH);
    if (library == nullptr) {
        reason = ErrorText(GetLastError());
        return nullptr;
    }
    return {static_cast<void*>(library),
            [](void* loaded) { FreeLibrary(static_cast<HMODULE>(loaded)); }};
}

void* LibrarySymbol(void* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

const char* ModuleFileName() {
    return "qolf.dll";
}

std::filesystem::path ProgramFolder() {
    std::wstring path(32768, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    return std::filesystem::path(path).parent_path();
}

bool IsTerminal(std::FILE* stream) {
    return UnderstandsEscapes(HandleOf(stream));
}

void LinkFile(const std::filesystem::path& target, const std::filesystem::path& link) {
    std::error_code error;
    std::filesystem::create_hard_link(target, link, error);
    if (error) {
        std::filesystem::copy_file(target, link, error);
    }
    if (error) {
        throw Failure(PathText(link) + ": can't copy: " + error.message());
    }
}

bool CanReplaceOpenFiles() {
    return false;
}

std::string HostName() {
    std::wstring name(MAX_COMPUTERNAME_LENGTH + 1, L'\0');
    auto size = static_cast<DWORD>(name.size());
    if (GetComputerNameW(name.data(), &size) == 0) {
        return "";
    }
    name.resize(size);
    std::ranges::replace(name, L'-', L'_');
    return platform::PathToBytes(name);
}

std::filesystem::path MakePrivateFolder(const std::filesystem::path& parent) {
    for (unsigned attempt = 0; attempt < 1000; ++attempt) {
        const unsigned long long number = GetTickCount64() + attempt;
        const std::filesystem::path folder =
            parent /
            platform::PathFromBytes(kPrivateFolderPrefix + std::to_string(GetCurrentProcessId()) +
                                    "-" + HostName() + "-" + std::to_string(number));
        std::error_code error;
        if (std::filesystem::create_directory(folder, error)) {
            return folder;
        }
        if (error) {
            throw Failure(PathText(parent) + ": can't write there: " + error.message());
        }
    }
    throw Failure(PathText(parent) + ": can't make a folder there");
}

}  // namespace app
