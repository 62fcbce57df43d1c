#include "app/base/platform/System.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/TempFolder.h"
#include "host/platform/Stdio.h"

#include <algorithm>
#include <fstream>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace app {

std::vector<std::string> ProgramArguments(int, char**) {
    int count = 0;
    LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 0; wide != nullptr && i < count; ++i) {
        arguments.push_back(platform::PathToBytes(wide[i]));
    }
    LocalFree(wide);
    return arguments;
}

void IgnoreClosedPipes() {}

void UseBinaryStandardStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
}

std::shared_ptr<void> LoadSharedLibrary(const std::filesystem::path& path, std::string& reason,
                                        SymbolBinding /*binding*/) {
    HMODULE library = LoadLibraryExW(std::filesystem::absolute(path).c_str(), nullptr,
                                     LOAD_WITH_ALTERED_SEARCH_PATH);
    if (library == nullptr) {
        reason = "error " + std::to_string(GetLastError());
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
    return _isatty(_fileno(stream)) != 0;
}

void AppendFileRange(const std::filesystem::path& source, std::uint64_t offset,
                     const std::filesystem::path& target) {
    std::ifstream from(source, std::ios::binary);
    from.seekg(static_cast<std::streamoff>(offset));
    std::ofstream to(target, std::ios::binary | std::ios::app);
    std::vector<char> block(1 << 20);
    while (from.read(block.data(), static_cast<std::streamsize>(block.size())) ||
           from.gcount() > 0) {
        to.write(block.data(), from.gcount());
    }
    to.close();
    if (from.bad() || !to) {
        throw Failure(PathText(target) + ": can't copy");
    }
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

std::string HostName() {
    char name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = sizeof name;
    if (GetComputerNameA(name, &size) == 0) {
        return "";
    }
    std::string text(name, size);
    std::replace(text.begin(), text.end(), '-', '_');
    return text;
}

std::filesystem::path MakePrivateFolder(const std::filesystem::path& parent) {
    for (unsigned attempt = 0; attempt < 1000; ++attempt) {
        const unsigned long long number = GetTickCount64() + attempt;
        const std::filesystem::path folder =
            parent / (kPrivateFolderPrefix + std::to_string(GetCurrentProcessId()) + "-" +
                      HostName() + "-" + std::to_string(number));
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
