// Lists of inputs, for more files than a command line holds.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace app {

struct ListedInput {
    std::filesystem::path input;
    std::filesystem::path place;         // of its output below the output folder, but for the
                                         // extension: maps/roads.mif for /maps/roads.mif
    std::optional<std::uint64_t> bytes;  // its size, when the list names it
};

// Whether the path is that of a list: it ends in .txt or .lst, in any case.
bool IsInputList(const std::filesystem::path& path);

// Returns what the list holds: a path a line, or a size in bytes, a tab and a path, as
// `find -printf '%s\t%p\n'` prints them. Paths are relative to the working folder. Empty lines are
// passed over. Throws Failure for a list that can't be read or is empty; UsageError, with the line,
// for a path that leads out of the working folder ("../roads.mif"), of which no place follows.
std::vector<ListedInput> ReadInputList(const std::filesystem::path& list);

}  // namespace app
