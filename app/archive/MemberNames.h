// The names in archives: which files are archives, and where a member would lie.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace app {

// Returns whether a file of this name is an archive, by its extension: .zip, .tar, .tar.gz, .tgz,
// .tar.xz, .txz, .7z or .gz, in any case.
bool IsArchiveName(const std::filesystem::path& path);

// Returns whether the archive is one file that was compressed: roads.geojson.gz.
bool IsCompressedFile(const std::filesystem::path& path);

// The extensions for help and messages: ".zip, .tar, ...".
std::string ArchiveExtensions();

// An archive, and what the user named in it.
struct PlaceInArchive {
    std::filesystem::path archive;
    std::string inside;  // "folder/COMMUNE.MIF", UTF-8; empty: all of it
};

// Of GEOFLA.zip, or of GEOFLA.zip/folder/COMMUNE.MIF, which messages name. Absent when there is
// such a file or folder outside of archives, and when there is no such archive.
std::optional<PlaceInArchive> FindInArchive(const std::filesystem::path& path);

// Returns the name of a member as UTF-8. Old archivers wrote the code pages of DOS: what is not
// UTF-8 is taken for Cyrillic (CP866) when most of its letters are, else for CP850.
std::string MemberNameFromBytes(std::string_view bytes);

// Returns the place of a member below a folder: the name without "." and empty parts, "\" taken as
// "/"; a character that some system does not have in names becomes "_". Absent for an absolute name
// and for one with "..".
std::optional<std::filesystem::path> PlaceOfMember(std::string_view utf8);

// Files that were unpacked, for the folders that they go to.
struct MemberPlace {
    std::filesystem::path inside;  // as PlaceOfMember returns it
    std::size_t folder = 0;        // members of different folders may have names that collide
};

// Chooses folders in which no two members' names collide on a system that takes upper and lower
// case for the same. Members that differ in the extension only stay together: of ROADS.MIF,
// roads.mif, roads.mid and ROADS.MID the first and the last are one pair. Returns the first name
// that is there twice; empty when all are different.
std::filesystem::path SeparateCollisions(std::vector<MemberPlace>& members);

}  // namespace app
