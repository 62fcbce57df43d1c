// The commands that need large libraries (PROJ, cairo, GEOS, SQLite, newt, and what these bring
// along) live in a library of their own, qolf-commands.so beside the filter module, with all else
// that needs them. Loading some sixty libraries takes several times as long as qolf info does.
#pragma once

#include "app/commands/Command.h"
#include "app/crs/CrsIdentity.h"
#include "app/stats/StatsRun.h"

#include <span>

namespace app {

// What the library offers. It is built with the command and has code of its own of the parts that
// both use, so only these two of one version belong together.
struct CommandLibrary {
    const char* version;
    std::span<const CommandEntry> commands;
    CrsIdentity (*identify)(const CoordinateSystem& system);
    SystemPtr (*systemOfOption)(const std::string& option, const std::string& definition,
                                Reporter& reporter);
    int (*runStats)(const StatsOptions& options, Reporter& reporter);
    Inputs (*resolveInputs)(const std::vector<std::string>& arguments, InputRule rule,
                            const ArchiveLimits& limits, Reporter& reporter);
    SourceWithFormat (*openUnlessPair)(const std::string& argument, const SourceOptions& options);
};

inline constexpr const char* kCommandLibraryFileName = "qolf-commands.so";

// The one function that the library exports.
inline constexpr const char* kCommandLibraryFunction = "QolfCommands";
using CommandLibraryFunction = const CommandLibrary* (*)();

// Loads the library when it is first asked for; it stays loaded. Throws Failure.
const CommandLibrary& LoadCommandLibrary();

}  // namespace app
