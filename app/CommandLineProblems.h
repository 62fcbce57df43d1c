// What is wrong with a command line, in the command's own words.
#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace app {

// Returns that there is no such command, with the one that was probably meant, or else with the
// option that lists them.
std::string UnknownCommand(const CLI::App& program, const std::string& name);

// Returns the parser's objection to the arguments that it has just parsed, with what was probably
// meant, or else with the help that says what is right.
std::string UsageProblem(const CLI::App& program, const CLI::ParseError& error);

}  // namespace app
