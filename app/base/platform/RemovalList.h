// The folders that go when a signal ends the program.
#pragma once

#include <filesystem>

namespace app {

// Adds a folder, which goes with all that is in it. The first call installs the signal handlers. A
// path that is too long, and more folders than the list has room for, are left out: a handler can't
// ask for memory. A process that was forked removes only its own folders.
void RemoveOnSignal(const std::filesystem::path& folder);

// Takes the folder from the list.
void KeepOnSignal(const std::filesystem::path& folder);

// Ends this process as the signal would have, for a program that has noted a signal and now has
// nothing more to do: the folders go. On Windows `signalNumber` is the exit code.
void EndBySignal(int signalNumber);

}  // namespace app
