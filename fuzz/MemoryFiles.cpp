#include "fuzz/MemoryFiles.h"

#include "host/platform/Stdio.h"
#include "host/shr/Files.h"
#include "tests/faults/FailingAllocations.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace fuzz {

using fault_test::UncountedAllocations;

// The file of one stream, and where the stream is in it. A deleted file lasts as long as its
// streams.
struct MemoryFiles::Stream {
    std::shared_ptr<std::string> bytes;
    std::size_t position = 0;
};

MemoryFiles& MemoryFiles::Get() {
    static MemoryFiles files;
    return files;
}

void MemoryFiles::Clear() {
    files_.clear();
    folders_.clear();
    faults = {};
    onCreate = nullptr;
    onRemove = nullptr;
}

void MemoryFiles::Put(const std::wstring& path, const std::string& bytes) {
    files_[path] = std::make_shared<std::string>(bytes);
}

void MemoryFiles::PutFolder(const std::wstring& path) {
    folders_.insert(path);
}

const std::string* MemoryFiles::Find(const std::wstring& path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : found->second.get();
}

std::set<std::wstring> MemoryFiles::Paths() const {
    std::set<std::wstring> paths;
    for (const auto& [path, bytes] : files_) {
        paths.insert(path);
    }
    return paths;
}

std::FILE* MemoryFiles::Open(const std::wstring& path, bool toWrite) {
    const UncountedAllocations uncounted;
    if (faults.opens || IsFolder(path) || path.empty()) {
        faults.hasOpenFailed = true;
        errno = path.empty() ? ENOENT : EACCES;
        return nullptr;
    }
    if (toWrite) {
        onCreate(path);
        Put(path, "");
    } else if (files_.count(path) == 0) {
        errno = ENOENT;
        return nullptr;
    }
    const cookie_io_functions_t operations{&Read, &Write, &Seek, &Close};
    ++openStreams_;
    return fopencookie(new Stream{files_[path]}, toWrite ? "w" : "r", operations);
}

bool MemoryFiles::Remove(const std::wstring& path) {
    const UncountedAllocations uncounted;
    onRemove(path);
    faults.hasRemovalFailed = faults.hasRemovalFailed || faults.removals;
    return !faults.removals && files_.erase(path) != 0;
}

long MemoryFiles::Read(void* cookie, char* buffer, std::size_t size) {
    auto& stream = *static_cast<Stream*>(cookie);
    const std::size_t begin = std::min(stream.position, stream.bytes->size());
    const std::size_t count = stream.bytes->copy(buffer, size, begin);
    stream.position = begin + count;
    return static_cast<long>(count);
}

long MemoryFiles::Write(void* cookie, const char* buffer, std::size_t size) {
    const UncountedAllocations uncounted;
    auto& stream = *static_cast<Stream*>(cookie);
    FileFaults& faults = Get().faults;
    if (size > faults.bytesLeft) {
        faults.hasWriteFailed = true;
        errno = ENOSPC;
        return 0;
    }
    faults.bytesLeft -= size;
    std::string& bytes = *stream.bytes;
    bytes.resize(std::max(bytes.size(), stream.position + size));
    std::copy_n(buffer, size, bytes.begin() + static_cast<std::ptrdiff_t>(stream.position));
    stream.position += size;
    return static_cast<long>(size);
}

int MemoryFiles::Seek(void* cookie, long* offset, int whence) {
    auto& stream = *static_cast<Stream*>(cookie);
    const long from = whence == SEEK_SET   ? 0
                      : whence == SEEK_CUR ? static_cast<long>(stream.position)
                                           : static_cast<long>(stream.bytes->size());
    if (from + *offset < 0) {
        return -1;
    }
    *offset += from;
    stream.position = static_cast<std::size_t>(*offset);
    return 0;
}

int MemoryFiles::Close(void* cookie) {
    delete static_cast<Stream*>(cookie);
    --Get().openStreams_;
    return 0;
}

}  // namespace fuzz

namespace platform {

std::FILE* OpenFile(const std::wstring& path, OpenMode mode) {
    return fuzz::MemoryFiles::Get().Open(path, mode == OpenMode::WriteText);
}

bool SeekTo(std::FILE* stream, std::uint64_t offset) {
    fuzz::FileFaults& faults = fuzz::MemoryFiles::Get().faults;
    if (faults.seeks) {
        faults.hasWriteFailed = true;
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

}  // namespace platform

namespace shr {

bool IsFileReadable(const std::wstring& path) {
    return fuzz::MemoryFiles::Get().Find(path) != nullptr;
}

long long GetFileSize(const std::wstring& path) {
    const std::string* bytes = fuzz::MemoryFiles::Get().Find(path);
    return bytes == nullptr ? 0 : static_cast<long long>(bytes->size());
}

bool RemoveFile(const std::wstring& path) {
    return fuzz::MemoryFiles::Get().Remove(path);
}

}  // namespace shr
