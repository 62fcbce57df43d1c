// What runs that were killed have left beside their outputs.
#pragma once

#include <filesystem>

namespace app {

// Removes the private folders in folder whose names say that they were made by a process that is no
// longer there. Those of processes that run, and everything else, stay. What can't be removed stays
// without a word: the next run tries again.
void RemoveAbandonedFolders(const std::filesystem::path& folder);

}  // namespace app
