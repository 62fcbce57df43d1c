#include "host/shr/Files.h"

#include "host/platform/Stdio.h"
#include "host/platform/SystemPath.h"
#include "host/platform/WindowSystem.h"

namespace shr {

bool IsFileReadable(const std::wstring& path) {
    std::FILE* stream = platform::OpenFile(path, platform::OpenMode::ReadBinary);
    if (stream == nullptr) {
        return false;
    }
    static_cast<void>(std::fclose(stream));  // nothing was written
    return true;
}

long long GetFileSize(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA facts;
    if (GetFileAttributesExW(platform::SystemPath(path).c_str(), GetFileExInfoStandard, &facts) ==
            0 ||
        (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return 0;
    }
    ULARGE_INTEGER size;
    size.HighPart = facts.nFileSizeHigh;
    size.LowPart = facts.nFileSizeLow;
    return static_cast<long long>(size.QuadPart);
}

bool RemoveFile(const std::wstring& path) {
    return DeleteFileW(platform::SystemPath(path).c_str()) != 0;
}

}  // namespace shr
