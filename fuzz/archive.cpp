// Archives: what they unpack to stays in its folder, within the limits, under different names.
#include "app/archive/MemberNames.h"
#include "app/archive/UnpackedArchive.h"
#include "app/base/Errors.h"
#include "app/base/Utf8.h"
#include "fuzz/FuzzInput.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>

namespace {

constexpr app::ArchiveLimits kLimits = {
    .mostBytes = std::uint64_t{1} << 20, .mostRatio = 100, .leastBytes = std::uint64_t{1} << 16};

void CheckName(std::string_view bytes) {
    const std::string name = app::MemberNameFromBytes(bytes);
    fuzz::Require(app::IsUtf8(name), "a member's name is UTF-8");
    if (const auto place = app::PlaceOfMember(name)) {
        fuzz::Require(!place->empty() && place->is_relative(), "a place is below its folder");
        fuzz::Require(std::ranges::none_of(*place, [](const auto& part) { return part == ".."; }),
                      "a place does not leave its folder");
    }
}

void CheckMembers(const app::UnpackedArchive& archive) {
    const std::vector<std::filesystem::path> roots = archive.Roots();
    std::set<std::filesystem::path> files;
    for (const app::UnpackedArchive::Member& member : archive.Members()) {
        const std::filesystem::file_status status = std::filesystem::symlink_status(member.file);
        fuzz::Require(std::filesystem::is_regular_file(status), "a member is a file");
        fuzz::Require(std::filesystem::file_size(member.file) <= kLimits.mostBytes,
                      "a member is within the limit");
        const std::filesystem::path real = std::filesystem::canonical(member.file);
        fuzz::Require(std::ranges::any_of(
                          roots,
                          [&](const auto& root) {
                              return real.string().starts_with(
                                  (std::filesystem::canonical(root.parent_path()) / "").string());
                          }),
                      "a member is in its folder");
        fuzz::Require(files.insert(real).second, "members are different files");
    }
}

}  // namespace

// Members are unpacked in memory, too.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    const std::filesystem::path folder = std::filesystem::path(fuzz::PathOf("x")).parent_path();
    return setenv("TMPDIR", folder.c_str(), /*overwrite=*/1);
}

// The first byte chooses the file's name; the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    std::string_view text = fuzz::TextOf(data, size);
    if (text.empty()) {
        return 0;
    }
    CheckName(text);
    const std::string name = text.front() == 'g' ? "map.mif.gz" : "map.zip";
    text.remove_prefix(1);
    fuzz::WriteFile(name, text);
    app::Reporter reporter(nowhere, /*isTerminal=*/false, /*useColor=*/false);
    try {
        const app::UnpackedArchive archive(
            fuzz::PathOf(name), [](const std::filesystem::path&) { return true; }, kLimits,
            reporter);
        CheckMembers(archive);
    } catch (const app::Failure& failure) {
        fuzz::Require(*failure.what() != '\0', "a failure says what it is");
    }
    fuzz::RemoveFile(name);
    return 0;
}
