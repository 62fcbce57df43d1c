#include "standalone/platform/PrivateFiles.h"

#include "host/platform/Stdio.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace standalone {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

class FileDescriptor {
public:
    explicit FileDescriptor(int number) : number_(number) {}
    ~FileDescriptor() { static_cast<void>(Close()); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    bool IsOpen() const { return number_ >= 0; }

    bool Write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = write(number_, bytes.data(), bytes.size());
            if (count < 0 && errno != EINTR) {
                return false;
            }
            bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
        }
        return true;
    }

    bool SetMode(mode_t mode) const { return fchmod(number_, mode) == 0; }
    bool Sync() const { return fsync(number_) == 0; }

    // False when the system reports a late write error.
    bool Close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || close(number) == 0;
    }

private:
    int number_;
};

[[noreturn]] void ThrowSystemError(const fs::path& path) {
    throw std::system_error(errno, std::generic_category(), path.string());
}

// The file that a link leads to, or the path itself.
fs::path LinkTarget(const fs::path& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) {
        return path;
    }
    fs::path target = fs::weakly_canonical(path, error);
    return error ? path : target;
}

mode_t ModeOf(const fs::path& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : kOwnerOnly;
}

// Makes what is missing of a settings folder, open to its owner only.
bool MakeFolders(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error)) {
        return true;
    }
    return MakeFolders(folder.parent_path()) &&
           (mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST);
}

// So that the new name survives a power cut, too. Not every file system can do it, and the
// contents are safe without, so a failure does not count.
void SyncFolder(const fs::path& folder) {
    const FileDescriptor descriptor(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) {
        static_cast<void>(descriptor.Sync());
    }
}

}  // namespace

PrivateFolder::PrivateFolder() {
    std::string name = (fs::temp_directory_path() / "qolf-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        ThrowSystemError(name);
    }
    path_ = name;
}

PrivateFolder::~PrivateFolder() {
    std::error_code error;  // a destructor has nobody to tell
    fs::remove_all(path_, error);
}

std::wstring PrivateFolder::PathOf(const std::string& name) const {
    return platform::PathFromBytes((path_ / name).string());
}

void WritePrivateFile(const fs::path& path, std::string_view bytes) {
    FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerOnly));
    if (!file.IsOpen() || !file.Write(bytes) || !file.Close()) {
        ThrowSystemError(path);
    }
}

bool ReplaceContents(const fs::path& path, std::string_view bytes) {
    const fs::path target = LinkTarget(path);
    if (!MakeFolders(target.parent_path())) {
        return false;
    }
    std::string temporary = target.string() + ".XXXXXX";
    FileDescriptor file(mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.IsOpen()) {
        return false;
    }
    const bool isWritten = file.Write(bytes) && file.SetMode(ModeOf(target)) && file.Sync() &&
                           file.Close() && rename(temporary.c_str(), target.c_str()) == 0;
    if (!isWritten) {
        unlink(temporary.c_str());
        return false;
    }
    SyncFolder(target.parent_path());
    return true;
}

fs::path UserConfigFolder() {
    // A relative XDG_CONFIG_HOME counts as not set, as the base directory rules want it.
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && config[0] == '/') {
        return config;
    }
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] == '/') {
        return fs::path(home) / ".config";
    }
    return {};
}

}  // namespace standalone
