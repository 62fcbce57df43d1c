#include "app/base/platform/System.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/TempFolder.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace app {
std::vector<std::string> ProgramArguments(int argc, char** argv) {
    return {argv, argv + argc};
}

void IgnoreClosedPipes() {
    std::signal(SIGPIPE, SIG_IGN);
}

bool IsClosedPipe(std::FILE* /*stream*/, int error) {
    return error == EPIPE;
}

void PrepareStandardStreams() {}

bool WriteToStream(std::FILE* stream, std::string_view utf8) {
    return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
}

std::string EnvironmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

void CheckFileName(const std::filesystem::path& /*path*/) {}

std::shared_ptr<void> LoadSharedLibrary(const std::filesystem::path& path, std::string& reason,
                                        SymbolBinding binding) {
    const int mode = binding == SymbolBinding::AtOnce ? RTLD_NOW : RTLD_LAZY;
    // An absolute path keeps the loader from searching its own folders for a bare name.
    void* library = dlopen(std::filesystem::absolute(path).c_str(), mode | RTLD_LOCAL);
    if (library == nullptr) {
        reason = dlerror();
        return nullptr;
    }
    return {library, [](void* loaded) { dlclose(loaded); }};
}

void* LibrarySymbol(void* library, const char* name) {
    return dlsym(library, name);
}

const char* ModuleFileName() {
    return "qolf.so";
}

std::filesystem::path ProgramFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : program.parent_path();
}

bool IsTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) == 1;
}

void LinkFile(const std::filesystem::path& target, const std::filesystem::path& link) {
    std::error_code error;
    std::filesystem::create_symlink(std::filesystem::absolute(target), link, error);
    if (error) {
        throw Failure(PathText(link) + ": can't link: " + error.message());
    }
}

bool CanReplaceOpenFiles() {
    return true;
}

std::string HostName() {
    char name[256] = {};
    if (gethostname(name, sizeof name - 1) != 0) {
        return "";
    }
    std::string text = name;
    std::ranges::replace_if(
        text, [](char c) { return c == '-' || c == '/' || static_cast<signed char>(c) <= ' '; },
        '_');
    return text;
}

std::filesystem::path MakePrivateFolder(const std::filesystem::path& parent) {
    std::string pattern =
        (parent / (kPrivateFolderPrefix + std::to_string(getpid()) + "-" + HostName() + "-XXXXXX"))
            .string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw Failure(PathText(parent) + ": can't write there: " + std::strerror(errno));
    }
    return pattern;
}

}  // namespace app
