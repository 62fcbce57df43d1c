// The subcommands on the command line: those of the program itself and, where there is one, those
// of the command library (CommandLibrary.h). A source per system knows which are where.
#pragma once

#include "app/commands/Command.h"

#include <string>
#include <vector>

namespace app {

// Adds the commands in the order of the help text. If `wanted` is one that the program itself has,
// and the arguments name no other files than pairs, adds only those; otherwise loads the command
// library (12 ms) and adds all. Throws Failure when that can't be loaded.
void AddCommands(CLI::App& program, CommandContext& context, const std::string& wanted,
                 const std::vector<std::string>& arguments);

}  // namespace app
