// Private folders that killed runs have left beside their outputs.
#pragma once

#include <filesystem>

namespace app {

// Removes the private folders in `folder` that were made by processes which no longer run. Folders
// of running processes, and everything else, stay. A folder that can't be removed stays without a
// message: the next run tries again.
void RemoveAbandonedFolders(const std::filesystem::path& folder);

}  // namespace app
