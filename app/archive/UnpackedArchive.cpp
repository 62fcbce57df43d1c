#include "app/archive/UnpackedArchive.h"

#include "app/archive/ArchiveReader.h"
#include "app/archive/MemberNames.h"
#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>
#include <utility>

namespace app {
namespace {

constexpr std::size_t kMostMembers = 100'000;

std::string SizeText(std::uint64_t bytes) {
    constexpr std::uint64_t kGiB = std::uint64_t{1} << 30;
    constexpr std::uint64_t kMiB = std::uint64_t{1} << 20;
    return bytes % kGiB == 0   ? std::to_string(bytes / kGiB) + " GiB"
           : bytes % kMiB == 0 ? std::to_string(bytes / kMiB) + " MiB"
                               : std::to_string(bytes) + " bytes";
}

// Counts what a member has unpacked to, and all members of the archive: these may be packed in the
// same bytes. Stops one that is beyond the limits.
class MemberGuard {
public:
    // Adds to `unpacked`, what all members have unpacked to.
    MemberGuard(const ArchiveReader& reader, std::string shown, const ArchiveLimits& limits,
                std::uint64_t archiveBytes, std::uint64_t& unpacked)
        : reader_(reader), shown_(std::move(shown)), limits_(limits), archiveBytes_(archiveBytes),
          unpacked_(unpacked), taken_(reader.BytesTaken()) {}

    void CheckSize(std::uint64_t bytes) const {
        if (bytes > limits_.mostBytes) {
            throw Failure(shown_ + ": is larger than " + SizeText(limits_.mostBytes) +
                          "; --max-size allows more");
        }
    }

    void Add(std::uint64_t bytes) {
        bytes_ += bytes;
        unpacked_ += bytes;
        const std::uint64_t packed = reader_.BytesTaken() - std::min(taken_, reader_.BytesTaken());
        if (IsBeyond(bytes_, packed) || IsBeyond(unpacked_, archiveBytes_)) {
            throw Failure(shown_ + ": unpacks to more than " + std::to_string(limits_.mostRatio) +
                          " times its size, as no map does; if it is one, unpack it and name the "
                          "file");
        }
    }

    std::uint64_t Bytes() const { return bytes_; }

private:
    bool IsBeyond(std::uint64_t unpacked, std::uint64_t packed) const {
        return unpacked > limits_.leastBytes &&
               unpacked / limits_.mostRatio > std::max<std::uint64_t>(1, packed);
    }

    const ArchiveReader& reader_;
    std::string shown_;
    const ArchiveLimits& limits_;
    std::uint64_t archiveBytes_;
    std::uint64_t& unpacked_;
    std::uint64_t taken_;
    std::uint64_t bytes_ = 0;
};

[[noreturn]] void FailWriting(const std::string& shown, const std::filesystem::path& folder,
                              const std::string& reason) {
    throw Failure(shown + ": can't unpack into " + PathText(folder.parent_path()) + ": " + reason +
                  "; name another folder in TMPDIR");
}

std::string Reason() {
    return errno != 0 ? std::strerror(errno) : "can't write";
}

// The roads.mid.gz beside roads.mif.gz; an empty path when there is none.
std::filesystem::path CompressedMid(const std::filesystem::path& archive) {
    if (!IsCompressedFile(archive) || LowerExtension(archive.stem()) != ".mif") {
        return {};
    }
    std::filesystem::path mid = archive.stem();
    mid.replace_extension(".mid");
    return FindCompanion(archive.parent_path() / (mid += archive.extension()),
                         PathText(archive.extension()));
}

// A tar ends with a block of zeros; one that was cut off between two members looks whole otherwise.
bool LacksItsEnd(const std::filesystem::path& archive) {
    constexpr std::streamoff kBlock = 512;
    if (LowerExtension(archive) != ".tar") {
        return false;
    }
    std::ifstream stream(archive, std::ios::binary);
    std::string block(static_cast<std::size_t>(kBlock), 'x');
    stream.seekg(-kBlock, std::ios::end);
    stream.read(block.data(), kBlock);
    return stream && std::ranges::any_of(block, [](char c) { return c != '\0'; });
}

}  // namespace

UnpackedArchive::UnpackedArchive(const std::filesystem::path& archive, const MemberChoice& wanted,
                                 const ArchiveLimits& limits, Reporter& reporter)
    : archiveName_(archive.filename()) {
    Unpack(archive, wanted, limits, reporter);
    if (const std::filesystem::path mid = CompressedMid(archive); !mid.empty()) {
        Unpack(mid, wanted, limits, reporter);
    }
    PutInPlace(archive);
}

UnpackedArchive::~UnpackedArchive() = default;

void UnpackedArchive::Unpack(const std::filesystem::path& archive, const MemberChoice& wanted,
                             const ArchiveLimits& limits, Reporter& reporter) {
    ArchiveReader reader(archive);
    archiveBytes_ = static_cast<std::uint64_t>(SizeOfFile(archive));
    unpackedBytes_ = 0;
    reporter.StartProgress("unpacking " + reader.Name(), static_cast<double>(archiveBytes_));
    ArchiveMember member;
    while (reader.Next(member)) {
        const std::string shown = reader.Name() + "/" + member.name;
        const auto inside = PlaceOfMember(member.name);
        const bool isWanted = wanted(inside ? *inside : PathFromArgument(member.name));
        if (member.kind == MemberKind::Folder) {
            continue;
        }
        if (!isWanted) {
            MemberGuard guard(reader, shown, limits, archiveBytes_, unpackedBytes_);
            if (reader.IsCompressedAsOne() && !member.isProtected) {
                reader.Read([&](std::string_view bytes) { guard.Add(bytes.size()); });
            }
            continue;
        }
        if (!inside) {
            reporter.Warning(shown + ": is left out: its path leads out of the archive");
        } else if (member.kind == MemberKind::Other) {
            reporter.Warning(shown + ": is left out: it is a link or a device");
        } else if (member.isProtected) {
            throw Failure(shown + ": is protected by a password; unpack it and name the file");
        } else {
            Take(reader, shown, member, *inside, limits, reporter);
        }
    }
    reporter.EndProgress();
    if (LacksItsEnd(archive)) {
        reporter.Warning(reader.Name() + ": lacks the end of an archive and may be cut off");
    }
}

void UnpackedArchive::Take(ArchiveReader& reader, const std::string& name,
                           const ArchiveMember& member, const std::filesystem::path& inside,
                           const ArchiveLimits& limits, Reporter& reporter) {
    if (places_.size() == kMostMembers) {
        throw Failure(reader.Name() + ": holds more than " + std::to_string(kMostMembers) +
                      " files; unpack it and name a folder");
    }
    const std::filesystem::path file = folder_.File(std::to_string(places_.size()));
    places_.push_back({inside, 0});
    errno = 0;
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    MemberGuard guard(reader, name, limits, archiveBytes_, unpackedBytes_);
    guard.CheckSize(member.size.value_or(0));
    reader.Read([&](std::string_view bytes) {
        guard.Add(bytes.size());
        guard.CheckSize(guard.Bytes());
        errno = 0;
        if (!stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
            FailWriting(name, folder_.Path(), Reason());
        }
        reporter.Progress(archiveBytes_ == 0 ? -1.0
                                             : static_cast<double>(reader.BytesTaken()) /
                                                   static_cast<double>(archiveBytes_));
    });
    errno = 0;
    stream.close();
    if (!stream) {
        FailWriting(name, folder_.Path(), Reason());
    }
}

std::filesystem::path UnpackedArchive::Root(std::size_t folder) const {
    return folder_.Path() / ("in-" + std::to_string(folder)) / archiveName_;
}

// Gives the files their names, once all of these are known.
void UnpackedArchive::PutInPlace(const std::filesystem::path& archive) {
    if (const std::filesystem::path twice = SeparateCollisions(places_); !twice.empty()) {
        throw Failure(PathText(archive / twice) +
                      ": is in the archive twice; unpack it and name the one that is meant");
    }
    std::error_code error;
    const auto written = std::filesystem::last_write_time(archive, error);
    for (std::size_t i = 0; i < places_.size(); ++i) {
        const auto& [inside, folder] = places_[i];
        const std::filesystem::path from = folder_.File(std::to_string(i));
        const std::filesystem::path file = Root(folder) / inside;
        std::filesystem::create_directories(file.parent_path(), error);
        if (!error && std::filesystem::exists(file)) {
            error = std::make_error_code(std::errc::file_exists);
        }
        if (!error) {
            std::filesystem::rename(from, file, error);
        }
        if (error) {
            FailWriting(PathText(archive / inside), folder_.Path(), error.message());
        }
        std::filesystem::last_write_time(file, written, error);  // a batch compares the times
        members_.push_back({inside, file});
    }
    std::ranges::sort(members_, [](const Member& left, const Member& right) {
        return std::tie(left.inside, left.file) < std::tie(right.inside, right.file);
    });
    for (const std::filesystem::path& root : Roots()) {
        shown_.push_back(std::make_unique<ShownPlace>(root.parent_path(), archive.parent_path()));
    }
}

std::vector<std::filesystem::path> UnpackedArchive::Roots() const {
    std::size_t count = 1;
    for (const MemberPlace& place : places_) {
        count = std::max(count, place.folder + 1);
    }
    std::vector<std::filesystem::path> roots;
    for (std::size_t folder = 0; folder < count; ++folder) {
        roots.push_back(Root(folder));
    }
    return roots;
}

}  // namespace app
