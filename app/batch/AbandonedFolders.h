// Private folders that killed runs have left beside their outputs.
#pragma once

#include <filesystem>
#include <unordered_set>

namespace app {

// The names of outputs that only the calling run makes.
using OwnNames = std::unordered_set<std::filesystem::path::string_type>;

// Removes the private folders in `folder` that were made by processes which no longer run. Of those
// that other machines have made, which may still be at work, it removes the ones that hold a file
// of an own name. Folders of running processes, and everything else, stay. A folder that can't be
// removed stays without a message: the next run tries again.
void RemoveAbandonedFolders(const std::filesystem::path& folder, const OwnNames& ownNames);

}  // namespace app
