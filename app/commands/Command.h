// What every file of this folder offers the program: one function that adds a subcommand to the
// command line. Only these files and the program's start know the library that parses it.
#pragma once

#include "app/base/Reporter.h"
#include "app/crs/CrsIdentity.h"
#include "app/inputs/Inputs.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace app {

struct StatsOptions;

// What a subcommand shares with main(). Parsing opens no file: it only sets `run`.
struct CommandContext {
    explicit CommandContext(const Reporter& stderrReporter) : reporter(stderrReporter) {}

    Reporter reporter;
    std::string modulePath;    // --module; empty: the usual places (app/run/Module.h)
    std::function<int()> run;  // the work that the command line chose: returns the exit code;
                               // errors leave it as exceptions

    // Finds a coordinate system in PROJ's register. Loads the command library; throws Failure when
    // there is none.
    std::function<CrsIdentity(const CoordinateSystem&)> identify;

    // Returns the system that an option names, as SystemOfOption does (app/crs/Definitions.h).
    // Loads the command library; throws Failure when there is none.
    std::function<SystemPtr(const std::string& option, const std::string& definition, Reporter&)>
        systemOfOption;

    // Runs qolf info --stats (app/stats/StatsRun.h). Loads the command library; throws Failure when
    // there is none.
    std::function<int(const StatsOptions&, Reporter&)> runStats;
    // What --max-size allows.
    ArchiveLimits archiveLimits;

    // ResolveInputs and OpenUnlessPair of app/inputs/Inputs.h. Empty when the command library is
    // not loaded: there are only pairs to read then.
    std::function<Inputs(const std::vector<std::string>&, InputRule, const ArchiveLimits&,
                         Reporter&)>
        resolveInputs;
    std::function<SourceWithFormat(const std::string&, const SourceOptions&)> openUnlessPair;

    // Returns the files behind what the user named.
    Inputs Resolve(const std::vector<std::string>& arguments, InputRule rule) {
        return resolveInputs ? resolveInputs(arguments, rule, archiveLimits, reporter)
                             : Inputs{arguments};
    }
};

// A row of the list of subcommands.
struct CommandEntry {
    const char* name;

    // Adds the subcommand's options to `program`. `context` must outlive `program`.
    void (*add)(CLI::App& program, CommandContext& context);
};

// Returns the subcommands that are compiled into this program or library, in the order of the help
// text. CMake makes the list (QOLF_COMMANDS) and takes the function AddInfoCommand for "info".
std::span<const CommandEntry> Commands();

}  // namespace app
