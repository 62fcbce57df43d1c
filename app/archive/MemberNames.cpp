#include "app/archive/MemberNames.h"

#include "app/base/Paths.h"
#include "app/base/Utf8.h"
#include "standalone/Text.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace app {
namespace {

constexpr std::array<std::string_view, 7> kArchives = {".zip",    ".tar", ".tar.gz", ".tgz",
                                                       ".tar.xz", ".txz", ".7z"};
constexpr std::string_view kCompressed = ".gz";

std::string LowerAscii(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

std::string LowerName(const std::filesystem::path& path) {
    return LowerAscii(PathText(path.filename()));
}

bool HasArchiveExtension(const std::string& lowerName) {
    return std::ranges::any_of(
        kArchives, [&](std::string_view extension) { return lowerName.ends_with(extension); });
}

std::string DecodedFrom(const char* codePage, std::string_view bytes) {
    const std::string before = standalone::CodePage0();
    if (!standalone::SetCodePage0(codePage)) {
        return standalone::Narrow(standalone::Widen(bytes));
    }
    std::string utf8 = Utf8FromNarrow(std::string(bytes));
    static_cast<void>(standalone::SetCodePage0(before));
    return utf8;
}

// Russian words are letters beyond ASCII alone; those of western Europe have one now and then.
bool LooksCyrillic(std::string_view bytes) {
    std::size_t cyrillic = 0;
    std::size_t latin = 0;
    std::size_t other = 0;
    for (const char c : bytes.substr(0, bytes.rfind('.'))) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isLatin = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
        const bool isCyrillic = (byte >= 0x80 && byte <= 0xAF) || (byte >= 0xE0 && byte <= 0xF1);
        (isLatin ? latin : isCyrillic ? cyrillic : other) += byte >= 0x80 || isLatin ? 1 : 0;
    }
    return cyrillic > latin && other == 0;
}

// Whether Windows takes the name for a device, with any extension.
bool IsDevice(const std::string& lowerPart) {
    constexpr std::array<std::string_view, 4> kDevices = {"con", "prn", "aux", "nul"};
    const std::string stem = lowerPart.substr(0, lowerPart.find('.'));
    const bool isPort = stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
                        stem[3] >= '1' && stem[3] <= '9';
    return isPort || std::ranges::count(kDevices, stem) > 0;
}

// A name that every system takes for a file's.
std::string SafePart(std::string part) {
    constexpr std::string_view kSpecial = "<>:\"|?*";
    std::ranges::replace_if(
        part,
        [&](char c) {
            return static_cast<unsigned char>(c) < 0x20 || kSpecial.find(c) != kSpecial.npos;
        },
        '_');
    return IsDevice(LowerAscii(part)) ? "_" + part : part;
}

std::string LowerPath(const std::filesystem::path& path) {
    return LowerAscii(path.generic_string());
}

std::filesystem::path WithoutExtension(std::filesystem::path path) {
    return path.replace_extension();
}

}  // namespace

bool IsArchiveName(const std::filesystem::path& path) {
    return HasArchiveExtension(LowerName(path)) || IsCompressedFile(path);
}

bool IsCompressedFile(const std::filesystem::path& path) {
    const std::string name = LowerName(path);
    return name.ends_with(kCompressed) && !HasArchiveExtension(name);
}

std::string ArchiveExtensions() {
    std::string text;
    for (const std::string_view extension : kArchives) {
        text.append(extension).append(", ");
    }
    return text.append(kCompressed);
}

std::optional<PlaceInArchive> FindInArchive(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error)) {
        return IsArchiveName(path) ? std::optional(PlaceInArchive{path, ""}) : std::nullopt;
    }
    if (std::filesystem::exists(path, error)) {
        return std::nullopt;
    }
    std::filesystem::path inside = path.filename();
    for (std::filesystem::path outer = path.parent_path();
         !outer.empty() && outer != outer.root_path(); outer = outer.parent_path()) {
        if (std::filesystem::is_regular_file(outer, error)) {
            return IsArchiveName(outer)
                       ? std::optional(PlaceInArchive{outer, PathText(inside.generic_string())})
                       : std::nullopt;
        }
        inside = outer.filename() / inside;
    }
    return std::nullopt;
}

std::string MemberNameFromBytes(std::string_view bytes) {
    if (IsUtf8(bytes)) {
        return std::string(bytes);
    }
    return DecodedFrom(LooksCyrillic(bytes) ? "CP866" : "CP850", bytes);
}

std::optional<std::filesystem::path> PlaceOfMember(std::string_view utf8) {
    const bool hasDrive = utf8.size() > 1 && utf8[1] == ':';
    if (hasDrive || utf8.starts_with('/') || utf8.starts_with('\\')) {
        return std::nullopt;
    }
    std::filesystem::path place;
    while (!utf8.empty()) {
        const std::size_t end = std::min(utf8.find_first_of("/\\"), utf8.size());
        const std::string_view part = utf8.substr(0, end);
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
        if (part.empty() || part == ".") {
            continue;
        }
        if (part == "..") {
            return std::nullopt;
        }
        place /= PathFromArgument(SafePart(std::string(part)));
    }
    return place.empty() ? std::nullopt : std::optional(place);
}

std::filesystem::path SeparateCollisions(std::vector<MemberPlace>& members) {
    std::set<std::filesystem::path> names;
    std::set<std::string> lowerNames;
    std::set<std::string> contested;  // names without extension, in lower case
    for (const MemberPlace& member : members) {
        if (!names.insert(member.inside).second) {
            return member.inside;
        }
        if (!lowerNames.insert(LowerPath(member.inside)).second) {
            contested.insert(LowerPath(WithoutExtension(member.inside)));
        }
    }
    // Of these every spelling gets a folder of its own.
    std::map<std::string, std::map<std::filesystem::path, std::size_t>> folders;
    for (MemberPlace& member : members) {
        const std::filesystem::path stem = WithoutExtension(member.inside);
        if (contested.contains(LowerPath(stem))) {
            auto& spellings = folders[LowerPath(stem)];
            member.folder = spellings.try_emplace(stem, spellings.size()).first->second;
        }
    }
    // roads.mif, roads.MIF: a system without case needs a folder for each extension as well.
    std::set<std::pair<std::size_t, std::string>> taken;
    for (MemberPlace& member : members) {
        while (!taken.insert({member.folder, LowerPath(member.inside)}).second) {
            ++member.folder;
        }
    }
    return {};
}

}  // namespace app
