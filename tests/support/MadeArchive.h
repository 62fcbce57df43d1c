// Archives that a test makes, with members of any name and kind.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace support {

enum class ArchiveForm { Zip, Tar, TarGz, TarXz, SevenZip, Gz };

enum class EntryKind { File, Folder, Link, HardLink, Device };

struct ArchiveEntry {
    std::string name;  // its bytes
    std::string bytes = {};
    EntryKind kind = EntryKind::File;
};

// Writes the archive. A password protects the members of a zip. Fails the test when it can't be
// written. Of the form Gz there is one entry, whose name is not kept.
void MakeArchive(const std::filesystem::path& path, ArchiveForm form,
                 const std::vector<ArchiveEntry>& entries, const std::string& password = {});

// "roads.zip", "roads.tar.gz", ...
std::string NameWithForm(std::string_view stem, ArchiveForm form);

// Leaves the first bytes of a file.
void CutOff(const std::filesystem::path& path, std::size_t bytes);

}  // namespace support
