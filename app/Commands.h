// The list of subcommands. Each one lives in a file of its own and offers one function that adds it
// to the command line; the list is the only place that knows them all.
#pragma once

#include "app/base/Reporter.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

namespace app {

// What a subcommand shares with main(): where to speak, the module to load, and the work that the
// command line chose. Parsing opens no file: a subcommand's callback only sets run.
struct CommandContext {
    explicit CommandContext(const Reporter& stderrReporter) : reporter(stderrReporter) {}

    Reporter reporter;
    std::string modulePath;    // --module; empty: the usual places (app/run/Module.h)
    std::function<int()> run;  // answers the exit code; errors leave as exceptions
};

struct CommandEntry {
    const char* name;
    void (*add)(CLI::App& app, CommandContext& context);
};

// Adds the commands in the order of the help text: all of them, or, when wanted names one that
// needs no large library, those alone that need none. Throws Failure when the library of the
// others can't be loaded.
void AddCommands(CLI::App& program, CommandContext& context, const std::string& wanted);

}  // namespace app
