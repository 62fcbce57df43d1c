#include "host/platform/Stdio.h"

#include "host/platform/SystemPath.h"
#include "host/platform/Utf8.h"
#include "host/platform/WindowSystem.h"

#include <cerrno>
#include <limits>
#include <optional>

namespace platform {

namespace {

// The three bytes of a lone surrogate, which file names may hold and UTF-8 may not. Empty, and
// position unchanged, when none begins there.
std::optional<char32_t> DecodeLoneSurrogate(const std::string& bytes, std::size_t& position) {
    const auto at = [&](std::size_t index) {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
    };
    const unsigned second = at(position + 1);
    const unsigned third = at(position + 2);
    if (at(position) != 0xED || second < 0xA0 || second > 0xBF || (third & 0xC0U) != 0x80) {
        return std::nullopt;
    }
    position += 3;
    return 0xD000U | ((second & 0x3FU) << 6U) | (third & 0x3FU);
}

// N: not for child processes.
const wchar_t* ModeText(OpenMode mode) {
    switch (mode) {
    case OpenMode::WriteText:
        return L"wtN";
    case OpenMode::WriteBinary:
        return L"wbN";
    case OpenMode::AppendBinary:
        return L"abN";
    case OpenMode::ReadBinary:
        break;
    }
    return L"rbN";
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

std::FILE* OpenFile(const std::wstring& path, OpenMode mode) {
    const std::wstring systemPath = SystemPath(path);
    if (systemPath.empty()) {
        errno = path.empty() ? ENOENT : EINVAL;
        return nullptr;
    }
    std::FILE* stream = _wfopen(systemPath.c_str(), ModeText(mode));
    if (stream == nullptr && errno == EACCES && IsFolder(systemPath)) {
        errno = EISDIR;
    }
    return stream;
}

bool SeekTo(std::FILE* stream, std::uint64_t offset) {
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<long long>::max())) {
        errno = EINVAL;
        return false;
    }
    return _fseeki64(stream, static_cast<long long>(offset), SEEK_SET) == 0;
}

bool SeekToEnd(std::FILE* stream) {
    return _fseeki64(stream, 0, SEEK_END) == 0;
}

std::uint64_t Tell(std::FILE* stream) {
    const long long offset = _ftelli64(stream);
    return offset < 0 ? 0 : static_cast<std::uint64_t>(offset);
}

std::string PathToBytes(const std::wstring& path) {
    std::string bytes;
    bytes.reserve(path.size());
    for (std::size_t position = 0; position < path.size();) {
        AppendUtf8(bytes, DecodeWide(path, position));
    }
    return bytes;
}

std::wstring PathFromBytes(const std::string& bytes) {
    std::wstring path;
    path.reserve(bytes.size());
    for (std::size_t position = 0; position < bytes.size();) {
        std::optional<char32_t> codePoint = DecodeUtf8(bytes, position);
        if (!codePoint) {
            codePoint = DecodeLoneSurrogate(bytes, position);
        }
        if (!codePoint) {
            codePoint = kReplacementCharacter;
            ++position;
        }
        AppendWide(path, *codePoint);
    }
    return path;
}

}  // namespace platform
