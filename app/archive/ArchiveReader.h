// One pass over the members of an archive, with libarchive.
#pragma once

#include "app/archive/platform/NameLocale.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct archive;
struct archive_entry;

namespace app {

enum class MemberKind { File, Folder, Other };  // Other: links and devices

struct ArchiveMember {
    std::string name;  // as the archive has it; UTF-8
    MemberKind kind = MemberKind::File;
    bool isProtected = false;                // by a password
    std::optional<std::uint64_t> size = {};  // bytes, as the archive states it
};

// Reads zip, tar, 7z and what gzip or xz made of them, whatever the file is called; of a file named
// .gz also the one compressed file. All operations throw Failure, which names the archive.
class ArchiveReader {
public:
    explicit ArchiveReader(const std::filesystem::path& path);
    ~ArchiveReader();
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    // Goes to the next member. False at the end.
    bool Next(ArchiveMember& member);

    // Hands over the bytes of the member, in pieces. Without a call they are passed over.
    void Read(const std::function<void(std::string_view)>& sink);

    // Whether passing over a member costs as much as reading it: the archive was compressed as one.
    bool IsCompressedAsOne() const;

    // How many bytes of the archive were read.
    std::uint64_t BytesTaken() const;

    // For messages: the archive's path.
    const std::string& Name() const { return name_; }

private:
    struct Close {
        void operator()(archive* handle) const;
    };

    void Check(int result) const;
    [[noreturn]] void Fail() const;

    std::filesystem::path path_;
    std::string name_;
    NameLocale locale_;
    std::unique_ptr<archive, Close> archive_;
    archive_entry* entry_ = nullptr;  // of the archive; null before the first Next
};

}  // namespace app
