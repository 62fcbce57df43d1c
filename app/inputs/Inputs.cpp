#include "app/inputs/Inputs.h"

#include "app/archive/MemberNames.h"
#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/batch/BatchPlan.h"
#include "app/formats/Formats.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace app {
namespace {

constexpr std::string_view kManifold = ".json";

std::vector<std::string_view> MapExtensions() {
    std::vector<std::string_view> extensions;
    for (const Format& format : Formats()) {
        extensions.insert(extensions.end(), format.extensions.begin(), format.extensions.end());
    }
    std::erase(extensions, kManifold);
    return extensions;
}

bool IsCompanion(const std::filesystem::path& file) {
    const std::string extension = LowerExtension(file);
    return std::ranges::any_of(Formats(), [&](const Format& format) {
        return !format.companion.empty() && extension == format.companion;
    });
}

std::string Joined(std::span<const std::string_view> words) {
    std::string text;
    for (const std::string_view word : words) {
        text.append(text.empty() ? "" : ", ").append(word);
    }
    return text;
}

// The first of them, sorted.
std::string Listed(std::vector<std::filesystem::path> files) {
    constexpr std::size_t kMost = 20;
    std::ranges::sort(files);
    std::string text;
    for (std::size_t i = 0; i < files.size() && i < kMost; ++i) {
        text += (i == 0 ? "" : ", ") + PathText(files[i]);
    }
    return files.size() > kMost ? text + ", ..." : text;
}

std::string LowerStem(std::filesystem::path file) {
    std::string text = PathText(file.replace_extension());
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

bool IsBelow(const std::filesystem::path& file, const std::filesystem::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first ==
           folder.end();
}

// Why nothing in an archive is wanted, which holds these maps.
std::string WhyNothing(const PlaceInArchive& place,
                       const std::vector<std::filesystem::path>& maps) {
    if (maps.empty()) {
        return "holds no file that can be read: " + Joined(MapExtensions());
    }
    return place.inside.empty()
               ? "holds .json files alone; name the one to read: " + Listed(maps)
               : "is not a file or folder in the archive; it holds " + Listed(maps);
}

// What of an archive is to be unpacked.
class Wish {
public:
    explicit Wish(const PlaceInArchive& place)
        : inside_(place.inside.empty() ? std::filesystem::path()
                                       : PlaceOfMember(place.inside).value_or("..")),
          isAnyFormat_(IsCompressedFile(place.archive)) {}

    bool Wants(const std::filesystem::path& file) const {
        return IsCompanion(file) ? inside_.empty() || IsBelow(file, inside_) ||
                                       LowerStem(file) == LowerStem(inside_)
                                 : IsInput(file);
    }

    // Of the files that are wanted, whether it is one to read; a .mid comes with its .mif.
    bool IsInput(const std::filesystem::path& file) const {
        const bool isNamed = file == inside_;
        const bool isSure = LowerExtension(file) != kManifold || isAnyFormat_ || isNamed;
        return isSure && FindFormatOfFile(file) != nullptr && IsBelow(file, inside_);
    }

private:
    std::filesystem::path inside_;  // empty: all
    bool isAnyFormat_;
};

class Resolver {
public:
    Resolver(InputRule rule, const ArchiveLimits& limits, Reporter& reporter)
        : rule_(rule), limits_(limits), reporter_(reporter) {}

    void Add(const std::string& argument) {
        const std::filesystem::path path = PathFromArgument(argument);
        std::error_code error;
        if (argument != "-" && rule_ == InputRule::Files &&
            std::filesystem::is_directory(path, error)) {
            AddFolder(path);
        } else if (const auto place = FindInArchive(path); argument != "-" && place) {
            AddArchive(argument, *place);
        } else {
            arguments_.push_back(argument);
        }
    }

    Inputs Take() {
        return {
            std::move(arguments_),
            std::make_shared<std::vector<std::unique_ptr<UnpackedArchive>>>(std::move(unpacked_))};
    }

private:
    void AddFolder(const std::filesystem::path& folder) {
        const std::vector<std::filesystem::path> found = FilesBelow(folder, MapExtensions());
        if (found.empty()) {
            throw Failure(PathText(folder) + ": holds no map");
        }
        for (const std::filesystem::path& file : found) {
            arguments_.push_back(ArgumentOfPath(file));
        }
    }

    void AddArchive(const std::string& argument, const PlaceInArchive& place) {
        const Wish wish(place);
        std::vector<std::filesystem::path> maps;  // that the archive holds, wanted or not
        const auto wants = [&](const std::filesystem::path& file) {
            if (FindFormatOfFile(file) != nullptr) {
                maps.push_back(file);
            }
            return wish.Wants(file);
        };
        auto archive = std::make_unique<UnpackedArchive>(place.archive, wants, limits_, reporter_);
        std::vector<std::filesystem::path> files;
        for (const UnpackedArchive::Member& member : archive->Members()) {
            if (wish.IsInput(member.inside)) {
                files.push_back(member.file);
            }
        }
        if (files.empty()) {
            throw Failure(argument + ": " + WhyNothing(place, maps));
        }
        if (rule_ == InputRule::OneFile && files.size() > 1) {
            throw Failure(argument + ": holds several files; name one of them (" +
                          PathText(files.front()) + "): " + Listed(maps));
        }
        const bool areFolders = rule_ == InputRule::Folders && files.size() > 1;
        for (const std::filesystem::path& path : areFolders ? archive->Roots() : files) {
            arguments_.push_back(ArgumentOfPath(path));
        }
        unpacked_.push_back(std::move(archive));
    }

    InputRule rule_;
    const ArchiveLimits& limits_;
    Reporter& reporter_;
    std::vector<std::string> arguments_;
    std::vector<std::unique_ptr<UnpackedArchive>> unpacked_;
};

}  // namespace

Inputs ResolveInputs(const std::vector<std::string>& arguments, InputRule rule,
                     const ArchiveLimits& limits, Reporter& reporter) {
    Resolver resolver(rule, limits, reporter);
    for (const std::string& argument : arguments) {
        resolver.Add(argument);
    }
    return resolver.Take();
}

SourceWithFormat OpenUnlessPair(const std::string& argument, const SourceOptions& options) {
    const Format* const format =
        argument == "-" ? &FormatOfPath(argument) : FindFormatOfFile(PathFromArgument(argument));
    if (format == nullptr || format->mainFile != nullptr) {
        return {};
    }
    return {format->openSource(argument, options), std::string(format->Name()),
            std::string(format->words)};
}

}  // namespace app
