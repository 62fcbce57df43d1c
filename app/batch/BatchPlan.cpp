#include "app/batch/BatchPlan.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/TempFolder.h"
#include "app/base/Utf8.h"
#include "app/batch/InputList.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace app {
namespace {

using std::filesystem::path;

bool HasExtension(const path& file, std::span<const std::string_view> extensions) {
    return std::find(extensions.begin(), extensions.end(), LowerExtension(file)) !=
           extensions.end();
}

// Whether the folder is a private one that a killed run of ours may have left.
bool IsPrivateFolder(const path& folder) {
    return ArgumentFromPath(folder.filename()).starts_with(kPrivateFolderPrefix);
}

class Planner {
public:
    Planner(const path& folder, const std::string& extension, const LayersOfInput& layersOf)
        : folder_(folder), extension_(extension), layersOf_(layersOf) {}

    void Add(const path& input, const path& relative, std::optional<std::uint64_t> bytes = {}) {
        if (!inputs_.insert(Canonical(input)).second) {
            return;
        }
        const std::vector<std::string> layers =
            layersOf_ ? layersOf_(input) : std::vector<std::string>();
        if (!layers.empty()) {
            AddLayers(input, relative.parent_path(), layers);
            return;
        }
        path output = folder_ / relative;
        output.replace_extension(extension_);
        const auto [other, isNew] = inputOf_.try_emplace(output.native(), input);
        if (!isNew) {
            throw UsageError(PathText(other->second) + " and " + PathText(input) +
                             " would both be written to " + PathText(output) +
                             "; convert them into different folders");
        }
        taken_.insert(FoldedCase(PathText(output)));
        items_.push_back({input, std::move(output), "", bytes});
    }

    std::vector<BatchItem> Take() {
        for (const BatchItem& item : items_) {
            if (inputs_.contains(Canonical(item.output))) {
                throw UsageError(PathText(item.output) +
                                 " is an input as well; name another --output-dir");
            }
        }
        return std::move(items_);
    }

private:
    using Text = path::string_type;

    // The file's name in its folder's own name. A batch may have a million files in few folders.
    Text Canonical(const path& file) {
        const path folder = file.has_parent_path() ? file.parent_path() : path(".");
        const auto [known, isNew] = canonicalFolders_.try_emplace(folder.native());
        if (isNew) {
            std::error_code error;
            known->second = std::filesystem::weakly_canonical(folder, error);
            if (error) {
                known->second = folder;
            }
        }
        return (known->second / file.filename()).native();
    }

    void AddLayers(const path& input, const path& relative,
                   const std::vector<std::string>& layers) {
        for (const std::string& layer : layers) {
            const std::string stem = SafeFileName(layer);
            path output = LayerFile(relative, stem);
            for (int number = 2; !taken_.insert(FoldedCase(PathText(output))).second; ++number) {
                output = LayerFile(relative, stem + "_" + std::to_string(number));
            }
            inputOf_.emplace(output.native(), input);
            items_.push_back({input, std::move(output), layer, std::nullopt});
        }
    }

    // The name may have full stops of its own.
    path LayerFile(const path& relative, const std::string& stem) const {
        const std::string dot = extension_.starts_with('.') ? "" : ".";
        return folder_ / relative / PathFromArgument(stem + dot + extension_);
    }

    const path& folder_;
    const std::string& extension_;
    const LayersOfInput& layersOf_;
    std::unordered_map<Text, path> canonicalFolders_;  // by their names as given
    std::unordered_set<Text> inputs_;                  // canonical
    std::unordered_map<Text, path> inputOf_;           // by output
    std::unordered_set<std::u32string> taken_;         // outputs, whatever their case
    std::vector<BatchItem> items_;
};

// Whether the output is older than the input or does not exist. No output is older than an input
// that does not exist.
bool IsOlder(const path& output, const path& input) {
    std::error_code error;
    const auto inputTime = std::filesystem::last_write_time(input, error);
    if (error) {
        return false;
    }
    const auto outputTime = std::filesystem::last_write_time(output, error);
    return error || outputTime < inputTime;
}

}  // namespace

std::vector<path> FilesBelow(const path& folder, std::span<const std::string_view> extensions) {
    std::vector<path> files;
    std::error_code error;
    std::filesystem::recursive_directory_iterator entries(folder, error);
    for (; !error && entries != std::filesystem::recursive_directory_iterator();
         entries.increment(error)) {
        if (entries->is_directory(error) && IsPrivateFolder(entries->path())) {
            entries.disable_recursion_pending();
        } else if (entries->is_regular_file(error) && HasExtension(entries->path(), extensions)) {
            files.push_back(entries->path());
        }
    }
    if (error) {
        throw Failure(PathText(folder) + ": can't list the folder: " + error.message());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<BatchItem> PlanBatch(std::span<const std::string> inputs,
                                 const std::filesystem::path& folder, const std::string& extension,
                                 std::span<const std::string_view> inputExtensions,
                                 const LayersOfInput& layersOf) {
    Planner planner(folder, extension, layersOf);
    for (const std::string& argument : inputs) {
        const path input = PathFromArgument(argument);
        std::error_code error;
        if (!std::filesystem::is_directory(input, error)) {
            if (!std::filesystem::exists(input, error)) {
                throw Failure(argument + ": there is no such file");
            }
            if (!IsInputList(input)) {
                planner.Add(input, input.filename());
                continue;
            }
            for (const ListedInput& listed : ReadInputList(input)) {
                planner.Add(listed.input, listed.place, listed.bytes);
            }
            continue;
        }
        const std::vector<path> files = FilesBelow(input, inputExtensions);
        if (files.empty()) {
            throw Failure(argument + ": holds no file to convert (looked for *" +
                          std::string(inputExtensions.front()) + ")");
        }
        for (const path& file : files) {
            planner.Add(file, file.lexically_relative(input));
        }
    }
    return planner.Take();
}

bool IsDone(const BatchItem& item) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(item.output, error)) {
        return false;
    }
    if (LowerExtension(item.output) == ".mif" && FindCompanion(item.output, ".mid").empty()) {
        return false;
    }
    if (IsOlder(item.output, item.input)) {
        return false;
    }
    const path rows =
        LowerExtension(item.input) == ".mif" ? FindCompanion(item.input, ".mid") : path();
    return rows.empty() || !IsOlder(item.output, rows);
}

}  // namespace app
