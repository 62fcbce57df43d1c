// The paths that a signal handler removes before it lets the signal end the program.
#pragma once

#include <filesystem>

namespace app {

enum class RemovalKind { File, Folder };

// Adds a path. The first call installs the signal handlers. Paths that are too long, and more paths
// than the list has room for, are left out: a handler can't ask for memory.
void RemoveOnSignal(const std::filesystem::path& path, RemovalKind kind);

// Takes the path, and all paths below it, from the list.
void KeepOnSignal(const std::filesystem::path& path);

}  // namespace app
