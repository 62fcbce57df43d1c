#include "standalone/platform/PrivateFiles.h"

#include "host/platform/SystemPath.h"
#include "host/platform/WindowSystem.h"

#include <random>
#include <system_error>

namespace standalone {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void ThrowSystemError(const fs::path& path) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            path.string());
}

class FileHandle {
public:
    // disposition: CREATE_NEW, OPEN_EXISTING, ...
    FileHandle(const fs::path& path, DWORD access, DWORD sharing, DWORD disposition)
        : handle_(CreateFileW(platform::SystemPath(path.wstring()).c_str(), access, sharing,
                              nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~FileHandle() { static_cast<void>(Close()); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

    bool Write(std::string_view bytes) const {
        constexpr std::size_t kMost = std::size_t{1} << 30;
        while (!bytes.empty()) {
            DWORD count = 0;
            const auto wanted = static_cast<DWORD>(bytes.size() < kMost ? bytes.size() : kMost);
            if (WriteFile(handle_, bytes.data(), wanted, &count, nullptr) == 0) {
                return false;
            }
            bytes.remove_prefix(count);
        }
        return true;
    }

    bool Sync() const { return FlushFileBuffers(handle_) != 0; }

    bool Close() {
        const HANDLE handle = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != 0;
    }

private:
    HANDLE handle_;
};

// The file that a link leads to, or the path itself.
fs::path LinkTarget(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(platform::SystemPath(path.wstring()).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return path;
    }
    const FileHandle file(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                          OPEN_EXISTING);
    std::wstring target(32768, L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(file.Get(), target.data(), static_cast<DWORD>(target.size()), 0);
    if (!file.IsOpen() || length == 0 || length >= target.size()) {
        return path;
    }
    target.resize(length);
    return target;
}

std::wstring RandomName() {
    std::random_device random;
    return std::to_wstring(random()) + std::to_wstring(random());
}

}  // namespace

// The temporary folder lies in the user's profile, which no other user can look into.
PrivateFolder::PrivateFolder() {
    path_ = fs::temp_directory_path() / (L"qolf-" + RandomName());
    if (CreateDirectoryW(platform::SystemPath(path_.wstring()).c_str(), nullptr) == 0) {
        ThrowSystemError(path_);
    }
}

PrivateFolder::~PrivateFolder() {
    std::error_code error;  // a destructor has nobody to tell
    fs::remove_all(path_, error);
}

std::wstring PrivateFolder::PathOf(const std::string& name) const {
    return (path_ / name).wstring();
}

void WritePrivateFile(const fs::path& path, std::string_view bytes) {
    FileHandle file(path, GENERIC_WRITE, 0, CREATE_NEW);
    if (!file.IsOpen() || !file.Write(bytes) || !file.Close()) {
        ThrowSystemError(path);
    }
}

bool ReplaceContents(const fs::path& path, std::string_view bytes) {
    const fs::path target = LinkTarget(path);
    std::error_code error;
    fs::create_directories(target.parent_path(), error);
    const fs::path temporary = target.wstring() + L"." + RandomName();
    FileHandle file(temporary, GENERIC_WRITE, 0, CREATE_NEW);
    if (!file.IsOpen()) {
        return false;
    }
    const bool isWritten = file.Write(bytes) && file.Sync() && file.Close() &&
                           MoveFileExW(platform::SystemPath(temporary.wstring()).c_str(),
                                       platform::SystemPath(target.wstring()).c_str(),
                                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    if (!isWritten) {
        static_cast<void>(file.Close());  // the failure is known
        DeleteFileW(platform::SystemPath(temporary.wstring()).c_str());
    }
    return isWritten;
}

fs::path UserConfigFolder() {
    const wchar_t* folder = _wgetenv(L"APPDATA");
    return folder == nullptr ? fs::path() : fs::path(folder);
}

}  // namespace standalone
