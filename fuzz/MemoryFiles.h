// Files in memory for the filters of this program. MemoryFiles.cpp defines the operations that
// open, seek in, look at and delete files, in place of those of host/platform/ and of the host
// library: each can be made to fail, and nothing reaches the disk.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace fuzz {

// What is to fail from now on, and what has.
struct FileFaults {
    bool opens = false;
    bool seeks = false;
    bool removals = false;
    std::size_t bytesLeft = std::numeric_limits<std::size_t>::max();  // a disk that gets full

    bool hasOpenFailed = false;
    bool hasWriteFailed = false;  // or a seek, or a close
    bool hasRemovalFailed = false;
};

class MemoryFiles {
public:
    // The one that all streams belong to.
    static MemoryFiles& Get();

    // Forgets all files, folders and faults. No stream may be open.
    void Clear();

    void Put(const std::wstring& path, const std::string& bytes);
    void PutFolder(const std::wstring& path);
    bool IsFolder(const std::wstring& path) const { return folders_.count(path) != 0; }

    // The contents of a file; null when there is none.
    const std::string* Find(const std::wstring& path) const;

    // The paths of all files.
    std::set<std::wstring> Paths() const;

    std::size_t openStreams() const { return openStreams_; }

    FileFaults faults;

    // Called when a file is created or emptied, and before one is deleted.
    std::function<void(const std::wstring&)> onCreate;
    std::function<void(const std::wstring&)> onRemove;

    // What the operations of this program's platform and host do.
    std::FILE* Open(const std::wstring& path, bool toWrite);
    bool Remove(const std::wstring& path);

private:
    struct Stream;
    static long Read(void* cookie, char* buffer, std::size_t size);
    static long Write(void* cookie, const char* buffer, std::size_t size);
    static int Seek(void* cookie, long* offset, int whence);
    static int Close(void* cookie);

    std::map<std::wstring, std::shared_ptr<std::string>> files_;
    std::set<std::wstring> folders_;
    std::size_t openStreams_ = 0;
};

}  // namespace fuzz
