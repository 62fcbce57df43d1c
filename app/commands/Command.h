// What every file of this folder offers the program: one function that adds a subcommand to the
// command line. Only these files and the program's start know the library that parses it.
#pragma once

#include "app/base/Reporter.h"
#include "app/crs/CrsIdentity.h"

#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace app {

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
};

// A row of the list of subcommands.
struct CommandEntry {
    const char* name;

    // Adds the subcommand's options to `program`. `context` must outlive `program`.
    void (*add)(CLI::App& program, CommandContext& context);
};

void AddCheckCommand(CLI::App& program, CommandContext& context);
void AddConvertCommand(CLI::App& program, CommandContext& context);
void AddDrawCommand(CLI::App& program, CommandContext& context);
void AddInfoCommand(CLI::App& program, CommandContext& context);
void AddOptionsCommand(CLI::App& program, CommandContext& context);
void AddReplayCommand(CLI::App& program, CommandContext& context);
void AddTraceCommand(CLI::App& program, CommandContext& context);

}  // namespace app
