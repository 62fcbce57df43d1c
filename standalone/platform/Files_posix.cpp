#include "host/shr/Files.h"

#include "host/platform/PathLookup.h"
#include "host/platform/Stdio.h"

#include <sys/stat.h>
#include <unistd.h>

namespace shr {

namespace {

// The path as the system takes it; "", which names nothing, for one that the system would cut
// short.
std::string SystemPath(const std::wstring& path) {
    return path.find(L'\0') == std::wstring::npos ? platform::PathToBytes(path) : std::string();
}

}  // namespace

bool IsFileReadable(const std::wstring& path) {
    std::FILE* stream = platform::OpenFile(path, platform::OpenMode::ReadBinary);
    if (stream == nullptr) {
        return false;
    }
    static_cast<void>(std::fclose(stream));  // nothing was written
    return true;
}

long long GetFileSize(const std::wstring& path) {
    struct stat status;
    const std::string found = platform::FindIgnoringCase(SystemPath(path));
    if (found.empty() || stat(found.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return 0;
    }
    return status.st_size;
}

bool RemoveFile(const std::wstring& path) {
    return unlink(SystemPath(path).c_str()) == 0;
}

}  // namespace shr
