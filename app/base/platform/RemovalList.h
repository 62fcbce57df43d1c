// The paths that a signal handler removes before it lets the signal end the program.
#pragma once

#include <filesystem>

namespace app {

enum class RemovalKind { File, Folder };

// Adds a path; the first call installs the handlers. A path that is too long, or one more than the
// list has room for, is not kept.
void RemoveOnSignal(const std::filesystem::path& path, RemovalKind kind);

// Takes the path and everything below it from the list.
void KeepOnSignal(const std::filesystem::path& path);

}  // namespace app
