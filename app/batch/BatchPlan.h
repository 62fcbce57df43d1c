// Which files a conversion of many reads and writes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace app {

struct BatchItem {
    std::filesystem::path input;
    std::filesystem::path output;
    std::string layer = {};  // of the input, to be converted alone; empty: the whole input
    std::optional<std::uint64_t> bytes = {};  // the input's size, where a list names it
};

// Returns the names of an input's layers that become a file each; empty for one that becomes a file
// as a whole.
using LayersOfInput = std::function<std::vector<std::string>(const std::filesystem::path& input)>;

// Returns the inputs with their outputs, in order; makes no file yet. A file's output is
// `folder`/stem.`extension`. An input that is a folder means all files below it that have one
// of `inputExtensions` (".mif", in any case), sorted. These keep their places in it: for the input
// maps, the output of maps/north/roads.mif is `folder`/north/roads.`extension`. An input that is
// named twice is taken once. An input of which `layersOf` gives names becomes a file for each: a
// layer roads becomes `folder`/roads.`extension`, without what file names can't have, and with a
// number behind it when there is such a file already.
// An input that is a list (InputList.h) means the files that it names, which keep their folders;
// whether they exist shows when they are converted.
//
// Throws Failure for an input that does not exist and for a folder without such files. Throws
// UsageError, with both names, when two inputs have the same output or an output is an input.
std::vector<BatchItem> PlanBatch(std::span<const std::string> inputs,
                                 const std::filesystem::path& folder, const std::string& extension,
                                 std::span<const std::string_view> inputExtensions,
                                 const LayersOfInput& layersOf = {});

// Returns the files in the folder and below that have one of the extensions (".mif", in any case),
// sorted. Throws Failure when the folder can't be listed.
std::vector<std::filesystem::path> FilesBelow(const std::filesystem::path& folder,
                                              std::span<const std::string_view> extensions);

// Returns whether an earlier run has done the item: the output exists and is not older than the
// input. That is enough, since outputs appear under their names only when they are complete.
bool IsDone(const BatchItem& item);

}  // namespace app
