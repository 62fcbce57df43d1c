// Which files a conversion of many reads and writes.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace app {

struct BatchItem {
    std::filesystem::path input;
    std::filesystem::path output;
};

// A file becomes FOLDER/stem.extension. A folder stands for the files below it that have one of the
// extensions (".mif", in any case), sorted; each keeps its place relative to it, so
// maps/north/roads.mif of maps becomes FOLDER/north/roads.extension. An input that is named twice
// is taken once. Nothing is made yet.
//
// Throws Failure for an input that isn't there and a folder without such files; UsageError, naming
// both, when two inputs have one output, and when an output is one of the inputs.
std::vector<BatchItem> PlanBatch(std::span<const std::string> inputs,
                                 const std::filesystem::path& folder, const std::string& extension,
                                 std::span<const std::string_view> inputExtensions);

// Whether a run before has done the item: the output is there and no older than the input. Outputs
// only ever appear whole.
bool IsDone(const BatchItem& item);

}  // namespace app
