#include "app/archive/ArchiveReader.h"

#include "app/archive/MemberNames.h"
#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <new>

namespace app {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 18;

// Systems whose paths are wide have a function of their own.
[[maybe_unused]] int OpenPath(archive* handle, const char* path) {
    return archive_read_open_filename(handle, path, kBlockBytes);
}
[[maybe_unused]] int OpenPath(archive* handle, const wchar_t* path) {
    return archive_read_open_filename_w(handle, path, kBlockBytes);
}

// The name of roads.geojson.gz is roads.geojson: what gzip itself remembers may be another.
std::string NameWithoutGz(const std::filesystem::path& path) {
    return PathText(path.stem());
}

std::string NameOf(archive_entry* entry) {
    if (const char* utf8 = archive_entry_pathname_utf8(entry)) {
        return utf8;
    }
    const char* bytes = archive_entry_pathname(entry);
    return bytes == nullptr ? std::string() : MemberNameFromBytes(bytes);
}

MemberKind KindOf(archive_entry* entry) {
    if (archive_entry_hardlink(entry) != nullptr || archive_entry_symlink(entry) != nullptr) {
        return MemberKind::Other;
    }
    switch (archive_entry_filetype(entry)) {
    case AE_IFREG:
    case 0:  // a zip that tells nothing of it
        return MemberKind::File;
    case AE_IFDIR:
        return MemberKind::Folder;
    default:
        return MemberKind::Other;
    }
}

}  // namespace

void ArchiveReader::Close::operator()(archive* handle) const {
    archive_read_free(handle);
}

ArchiveReader::ArchiveReader(const std::filesystem::path& path)
    : path_(path), name_(PathText(path)), archive_(archive_read_new()) {
    if (archive_ == nullptr) {
        throw std::bad_alloc();
    }
    archive* const handle = archive_.get();
    archive_read_support_filter_gzip(handle);
    archive_read_support_filter_xz(handle);
    archive_read_support_format_zip(handle);
    archive_read_support_format_tar(handle);
    archive_read_support_format_7zip(handle);
    if (IsCompressedFile(path)) {
        archive_read_support_format_raw(handle);
    }
    Check(OpenPath(handle, path.c_str()));
}

ArchiveReader::~ArchiveReader() = default;

void ArchiveReader::Check(int result) const {
    // A warning is of a name or a date that could not be converted.
    if (result != ARCHIVE_OK && result != ARCHIVE_WARN) {
        Fail();
    }
}

void ArchiveReader::Fail() const {
    const char* const text = archive_error_string(archive_.get());
    const std::string reason = text == nullptr ? "the archive is damaged" : text;
    if (reason.find("ncrypt") != std::string::npos) {  // a list of members that is protected, too
        throw Failure(name_ + ": is protected by a password; unpack it and name the files in it");
    }
    if (reason.find("Unrecognized archive format") != std::string::npos) {
        throw Failure(name_ + ": is not an archive, or it is damaged; archives are " +
                      ArchiveExtensions());
    }
    throw Failure(name_ + ": can't unpack: " + reason + "; the archive is damaged or cut off");
}

bool ArchiveReader::Next(ArchiveMember& member) {
    const int result = archive_read_next_header(archive_.get(), &entry_);
    if (result == ARCHIVE_EOF) {
        return false;
    }
    Check(result);
    member.name = archive_format(archive_.get()) == ARCHIVE_FORMAT_RAW ? NameWithoutGz(path_)
                                                                       : NameOf(entry_);
    member.kind = KindOf(entry_);
    member.isProtected = archive_entry_is_encrypted(entry_) != 0;
    member.size.reset();
    if (archive_entry_size_is_set(entry_) != 0 && archive_entry_size(entry_) >= 0) {
        member.size = static_cast<std::uint64_t>(archive_entry_size(entry_));
    }
    return true;
}

void ArchiveReader::Read(const std::function<void(std::string_view)>& sink) {
    static const std::string zeros(kBlockBytes, '\0');
    la_int64_t at = 0;
    for (;;) {
        const void* block = nullptr;
        std::size_t size = 0;
        la_int64_t offset = 0;
        const int result = archive_read_data_block(archive_.get(), &block, &size, &offset);
        if (result == ARCHIVE_EOF) {
            return;
        }
        if (result != ARCHIVE_OK || offset < at) {
            Fail();  // a warning is of a checksum here
        }
        // A file with holes has only its other parts in the archive.
        while (at < offset) {
            const la_int64_t hole = std::min(offset - at, static_cast<la_int64_t>(zeros.size()));
            sink(std::string_view(zeros).substr(0, static_cast<std::size_t>(hole)));
            at += hole;
        }
        sink({static_cast<const char*>(block), size});
        at += static_cast<la_int64_t>(size);
    }
}

bool ArchiveReader::IsCompressedAsOne() const {
    return archive_filter_code(archive_.get(), 0) != ARCHIVE_FILTER_NONE ||
           (archive_format(archive_.get()) & ARCHIVE_FORMAT_BASE_MASK) == ARCHIVE_FORMAT_7ZIP;
}

std::uint64_t ArchiveReader::BytesTaken() const {
    const la_int64_t bytes = archive_filter_bytes(archive_.get(), -1);
    return bytes > 0 ? static_cast<std::uint64_t>(bytes) : 0;
}

}  // namespace app
