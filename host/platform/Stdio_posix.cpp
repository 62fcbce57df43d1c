#include "host/platform/Stdio.h"

#include "host/platform/PathLookup.h"
#include "host/platform/Utf8.h"

#include <cerrno>
#include <limits>
#include <sys/stat.h>

namespace platform {

namespace {

// A byte that is no UTF-8 travels as this plus its value, so that every name survives.
constexpr char32_t kEscapedByte = 0xDC00;

bool IsEscapedByte(char32_t codePoint) {
    return codePoint >= kEscapedByte + 0x80 && codePoint <= kEscapedByte + 0xFF;
}

// fopen takes a folder for reading and only fails at the first read.
std::FILE* RefuseFolder(std::FILE* stream) {
    struct stat status;
    if (stream == nullptr || fstat(fileno(stream), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return stream;
    }
    static_cast<void>(std::fclose(stream));  // nothing was written
    errno = EISDIR;
    return nullptr;
}

}  // namespace

std::FILE* OpenFile(const std::wstring& path, OpenMode mode) {
    if (path.find(L'\0') != std::wstring::npos) {
        errno = EINVAL;  // the system would open what stands before the NUL
        return nullptr;
    }
    const std::string bytes = PathToBytes(path);
    if (mode != OpenMode::ReadBinary) {
        // e: not for child processes
        return std::fopen(bytes.c_str(), mode == OpenMode::AppendBinary ? "ae" : "we");
    }
    std::FILE* stream = std::fopen(bytes.c_str(), "rbe");
    if (stream == nullptr && errno == ENOENT) {
        const std::string found = FindIgnoringCase(bytes);
        errno = ENOENT;
        stream = found.empty() ? nullptr : std::fopen(found.c_str(), "rbe");
    }
    return RefuseFolder(stream);
}

bool SeekTo(std::FILE* stream, std::uint64_t offset) {
    static_assert(sizeof(off_t) == sizeof(std::int64_t));
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) {
        errno = EINVAL;
        return false;
    }
    return fseeko(stream, static_cast<off_t>(offset), SEEK_SET) == 0;
}

bool SeekToEnd(std::FILE* stream) {
    return fseeko(stream, 0, SEEK_END) == 0;
}

std::uint64_t Tell(std::FILE* stream) {
    const off_t offset = ftello(stream);
    return offset < 0 ? 0 : static_cast<std::uint64_t>(offset);
}

std::string PathToBytes(const std::wstring& path) {
    std::string bytes;
    bytes.reserve(path.size());
    for (const wchar_t character : path) {
        const auto codePoint = static_cast<char32_t>(character);
        if (IsEscapedByte(codePoint)) {
            bytes += static_cast<char>(codePoint - kEscapedByte);
        } else if (codePoint > 0x10FFFF) {
            bytes += '?';
        } else {
            AppendUtf8(bytes, codePoint);
        }
    }
    return bytes;
}

std::wstring PathFromBytes(const std::string& bytes) {
    std::wstring path;
    path.reserve(bytes.size());
    for (std::size_t position = 0; position < bytes.size();) {
        if (const auto codePoint = DecodeUtf8(bytes, position)) {
            AppendWide(path, *codePoint);
        } else {
            const auto byte = static_cast<unsigned char>(bytes[position]);
            path += static_cast<wchar_t>(kEscapedByte + byte);
            ++position;
        }
    }
    return path;
}

}  // namespace platform
