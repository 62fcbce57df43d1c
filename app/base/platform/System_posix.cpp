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
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace app {
namespace {

// Closes a descriptor at the end of a scope.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return number_; }

    // Closes the descriptor now. Returns false when the system reports an error.
    bool Close() { return close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

[[noreturn]] void FailWithErrno(const std::filesystem::path& path, const char* action) {
    throw Failure(PathText(path) + ": " + action + ": " + std::strerror(errno));
}

// Copies what is left of the source by reading and writing, which always works.
void CopyByHand(const Descriptor& source, off_t offset, const Descriptor& target,
                const std::filesystem::path& targetPath) {
    std::vector<char> block(1 << 20);
    for (;;) {
        const ssize_t got = pread(source.Number(), block.data(), block.size(), offset);
        if (got < 0) {
            FailWithErrno(targetPath, "can't copy");
        }
        if (got == 0) {
            return;
        }
        offset += got;
        for (ssize_t written = 0; written < got;) {
            const ssize_t count = write(target.Number(), block.data() + written,
                                        static_cast<std::size_t>(got - written));
            if (count < 0) {
                FailWithErrno(targetPath, "can't write");
            }
            written += count;
        }
    }
}

}  // namespace

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

void AppendFileRange(const std::filesystem::path& source, std::uint64_t offset,
                     const std::filesystem::path& target) {
    const Descriptor from(open(source.c_str(), O_RDONLY | O_CLOEXEC));
    if (from.Number() < 0) {
        FailWithErrno(source, "can't open");
    }
    // copy_file_range refuses a target in append mode.
    Descriptor to(open(target.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    if (to.Number() < 0 || lseek(to.Number(), 0, SEEK_END) < 0) {
        FailWithErrno(target, "can't open");
    }
    off_t position = static_cast<off_t>(offset);
    constexpr std::size_t kMost = std::size_t{1} << 30;
    ssize_t copied = 0;
    do {
        copied = copy_file_range(from.Number(), &position, to.Number(), nullptr, kMost, 0);
    } while (copied > 0);
    if (copied < 0) {
        CopyByHand(from, position, to, target);
    }
    if (!to.Close()) {
        FailWithErrno(target, "can't write");
    }
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
