// The members of an archive as files in a private folder.
#pragma once

#include "app/base/Reporter.h"
#include "app/base/ShownPlace.h"
#include "app/base/TempFolder.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace app {

class ArchiveReader;
struct ArchiveMember;
struct MemberPlace;

// What a member may not exceed, and the ratio also all of them; a small archive can hold more than
// any disk.
struct ArchiveLimits {
    std::uint64_t mostBytes = std::uint64_t{64} << 30;  // of one member
    std::uint64_t mostRatio = 1000;                     // unpacked to packed bytes, ...
    std::uint64_t leastBytes = std::uint64_t{1} << 30;  // ... of what is beyond so many
};

// Whether the member at that place is wanted.
using MemberChoice = std::function<bool(const std::filesystem::path& inside)>;

// Unpacks a file's wanted members at once; they go with the object, also when a signal ends the
// program. Messages name a member as a file in the archive: GEOFLA.zip/folder/COMMUNE.MIF.
class UnpackedArchive {
public:
    struct Member {
        std::filesystem::path inside;  // folder/COMMUNE.MIF
        std::filesystem::path file;    // where it was unpacked
    };

    // Of a compressed .mif (roads.mif.gz) the .mid that is compressed beside it is unpacked, too.
    // A member whose path leads out of the archive, a link and a device are left out with a
    // warning. Throws Failure for an archive that is damaged, cut off or protected by a password,
    // for a member beyond the limits, for a name that is there twice, and when there is no room.
    UnpackedArchive(const std::filesystem::path& archive, const MemberChoice& wanted,
                    const ArchiveLimits& limits, Reporter& reporter);
    ~UnpackedArchive();

    // Sorted by their places in the archive.
    const std::vector<Member>& Members() const { return members_; }

    // The folders that hold the members as the archive does: one, and more when names collide.
    std::vector<std::filesystem::path> Roots() const;

private:
    void Unpack(const std::filesystem::path& archive, const MemberChoice& wanted,
                const ArchiveLimits& limits, Reporter& reporter);
    void Take(ArchiveReader& reader, const std::string& name, const ArchiveMember& member,
              const std::filesystem::path& inside, const ArchiveLimits& limits, Reporter& reporter);
    void PutInPlace(const std::filesystem::path& archive);
    std::filesystem::path Root(std::size_t folder) const;

    std::filesystem::path archiveName_;
    TempFolder folder_;
    std::uint64_t archiveBytes_ = 0;   // of the archive
    std::uint64_t unpackedBytes_ = 0;  // of its members so far
    std::vector<MemberPlace> places_;  // of the files 0, 1, ... in folder_
    std::vector<Member> members_;
    std::vector<std::unique_ptr<ShownPlace>> shown_;
};

}  // namespace app
