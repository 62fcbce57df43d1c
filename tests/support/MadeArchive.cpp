#include "tests/support/MadeArchive.h"

#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

#include <memory>

namespace support {
namespace {

struct FormRow {
    ArchiveForm form;
    const char* extension;
    int (*setFormat)(archive*);
    int (*addFilter)(archive*);
};
constexpr FormRow kForms[] = {
    {ArchiveForm::Zip, ".zip", archive_write_set_format_zip, archive_write_add_filter_none},
    {ArchiveForm::Tar, ".tar", archive_write_set_format_gnutar, archive_write_add_filter_none},
    {ArchiveForm::TarGz, ".tar.gz", archive_write_set_format_gnutar, archive_write_add_filter_gzip},
    {ArchiveForm::TarXz, ".tar.xz", archive_write_set_format_gnutar, archive_write_add_filter_xz},
    {ArchiveForm::SevenZip, ".7z", archive_write_set_format_7zip, archive_write_add_filter_none},
    {ArchiveForm::Gz, ".gz", archive_write_set_format_raw, archive_write_add_filter_gzip},
};

const FormRow& RowOf(ArchiveForm form) {
    return kForms[static_cast<std::size_t>(form)];
}

using Entry = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

Entry EntryOf(const ArchiveEntry& made) {
    Entry entry(archive_entry_new(), archive_entry_free);
    archive_entry_copy_pathname(entry.get(), made.name.c_str());
    archive_entry_set_perm(entry.get(), 0644);
    archive_entry_set_mtime(entry.get(), 1'000'000'000, 0);
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(made.bytes.size()));
    switch (made.kind) {
    case EntryKind::File:
        break;
    case EntryKind::Folder:
        archive_entry_set_filetype(entry.get(), AE_IFDIR);
        break;
    case EntryKind::Link:
        archive_entry_set_filetype(entry.get(), AE_IFLNK);
        archive_entry_copy_symlink(entry.get(), "/etc/passwd");
        break;
    case EntryKind::HardLink:
        archive_entry_copy_hardlink(entry.get(), "/etc/passwd");
        break;
    case EntryKind::Device:
        archive_entry_set_filetype(entry.get(), AE_IFCHR);
        break;
    }
    return entry;
}

}  // namespace

void MakeArchive(const std::filesystem::path& path, ArchiveForm form,
                 const std::vector<ArchiveEntry>& entries, const std::string& password) {
    const std::unique_ptr<archive, decltype(&archive_write_free)> made(archive_write_new(),
                                                                       archive_write_free);
    archive* const handle = made.get();
    RowOf(form).setFormat(handle);
    RowOf(form).addFilter(handle);
    if (!password.empty()) {
        ASSERT_EQ(archive_write_set_options(handle, "zip:encryption=traditional"), ARCHIVE_OK)
            << archive_error_string(handle);
        archive_write_set_passphrase(handle, password.c_str());
    }
    ASSERT_EQ(archive_write_open_filename(handle, path.string().c_str()), ARCHIVE_OK);
    for (const ArchiveEntry& entry : entries) {
        // A name that the program's locale lacks is written as its bytes, with a warning.
        ASSERT_GE(archive_write_header(handle, EntryOf(entry).get()), ARCHIVE_WARN)
            << archive_error_string(handle);
        if (entry.kind == EntryKind::File) {
            ASSERT_EQ(archive_write_data(handle, entry.bytes.data(), entry.bytes.size()),
                      static_cast<la_ssize_t>(entry.bytes.size()))
                << archive_error_string(handle);
        }
    }
    ASSERT_EQ(archive_write_close(handle), ARCHIVE_OK) << archive_error_string(handle);
}

std::string NameWithForm(std::string_view stem, ArchiveForm form) {
    return std::string(stem) + RowOf(form).extension;
}

void CutOff(const std::filesystem::path& path, std::size_t bytes) {
    ASSERT_LT(bytes, std::filesystem::file_size(path));
    std::filesystem::resize_file(path, bytes);
}

}  // namespace support
