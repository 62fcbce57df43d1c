// The qolf command: reads the command line, runs the subcommand that it names, and turns errors
// into one line on stderr and an exit code: 0 done, 1 the data could not be processed, 2 the
// command line is wrong.
#include "app/CommandLineProblems.h"
#include "app/Commands.h"
#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/platform/System.h"
#include "host/shr/IError.h"
#include "standalone/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <string_view>
#include <vector>

namespace {

constexpr int kDataError = 1;
constexpr int kUsageError = 2;

constexpr const char* kProgramFooter = R"(
Examples:
  qolf info roads.mif                     what the file holds
  qolf convert roads.mif roads.geojson    for a web map
  qolf convert places.geojson places.mif  back again
  qolf help convert                       everything about one command)";

app::Reporter StderrReporter() {
    const bool isTerminal = app::IsTerminal(stderr);
    return {stderr, isTerminal, isTerminal && app::EnvironmentVariable("NO_COLOR").empty()};
}

struct GlobalOptions {
    bool quiet = false;
    bool verbose = false;
    bool progress = false;
    bool noProgress = false;
    std::string helpTopic;
};

// Adds the options of every command to the program, or to one, so that they are in its help.
void AddCommonOptions(CLI::App& command, GlobalOptions& options, app::CommandContext& context) {
    constexpr const char* kGroup = "Options of every command";
    command.add_flag("-q,--quiet", options.quiet, "No warnings, notes and progress")->group(kGroup);
    command.add_flag("-v,--verbose", options.verbose, "Say which versions and settings are used")
        ->group(kGroup);
    command.add_flag("--progress", options.progress, "Show progress even when not on a terminal")
        ->group(kGroup);
    command.add_flag("--no-progress", options.noProgress, "Never show progress")->group(kGroup);
    command.add_option("--module", context.modulePath, "The filter module to load")
        ->type_name("FILE")
        ->group(kGroup);
    command
        .add_option("--max-size", context.archiveLimits.mostBytes,
                    "The largest file to take from an archive: 500M, 100G (64G)")
        ->transform(CLI::AsSizeValue(/*kb_is_1000=*/false))
        ->type_name("SIZE")
        ->group(kGroup);
}

void AddCommonOptionsBelow(CLI::App& program, GlobalOptions& options,
                           app::CommandContext& context) {
    for (CLI::App* command : program.get_subcommands(nullptr)) {
        AddCommonOptions(*command, options, context);
        AddCommonOptionsBelow(*command, options, context);
    }
}

// Returns null when no command has the name.
const CLI::App* FindCommand(const CLI::App& program, const std::string& name) {
    for (const CLI::App* command : program.get_subcommands(nullptr)) {
        if (command->get_name() == name) {
            return command;
        }
    }
    return nullptr;
}

// Returns the program's own help. (App::help returns that of the command which was parsed.)
std::string HelpOf(const CLI::App& program) {
    return program.get_formatter()->make_help(&program, program.get_name(),
                                              CLI::AppFormatMode::Normal);
}

// Throws Failure when writing to standard output fails.
int Print(const std::string& text) {
    app::OutputFile out("-", app::IfExists::Overwrite);
    out.Write(text);
    out.Finish();
    return 0;
}

void AddHelpCommand(CLI::App& program, GlobalOptions& options, app::CommandContext& context) {
    CLI::App* help = program.add_subcommand("help", "Explain a command");
    help->add_option("command", options.helpTopic, "The command to explain")->type_name("COMMAND");
    help->callback([&program, &options, &context] {
        context.run = [&program, &options] {
            if (options.helpTopic.empty()) {
                return Print(HelpOf(program));
            }
            const CLI::App* command = FindCommand(program, options.helpTopic);
            if (command == nullptr) {
                throw app::UsageError(app::UnknownCommand(program, options.helpTopic));
            }
            return Print(command->help(program.get_name()));
        };
    });
}

void ApplyGlobalOptions(const GlobalOptions& options, app::CommandContext& context) {
    if (options.quiet) {
        context.reporter.SetVerbosity(app::Verbosity::Quiet);
    } else if (options.verbose) {
        context.reporter.SetVerbosity(app::Verbosity::Verbose);
    }
    if (options.progress) {
        context.reporter.SetProgress(true);
    }
    if (options.noProgress) {
        context.reporter.SetProgress(false);
    }
}

// Whether the argument is an option that takes the next argument as its value.
bool TakesNext(const CLI::App& program, const std::string& argument) {
    const CLI::Option* option = program.get_option_no_throw(argument);
    return option != nullptr && option->get_items_expected_max() > 0;
}

// Returns the first argument that is not an option; "" when all are options.
std::string NamedCommand(const CLI::App& program, const std::vector<std::string>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (TakesNext(program, argument)) {
            ++i;
        } else if (argument.empty() || argument.front() != '-') {
            return argument;
        }
    }
    return "";
}

int RunCommand(app::CommandContext& context) {
    try {
        context.reporter.Detail(std::string("version ") + QOLF_VERSION);
        return context.run();
    } catch (const app::ClosedPipe&) {
        return 0;
    } catch (const app::UsageError& error) {
        context.reporter.Error(error.what());
        return kUsageError;
    } catch (const shr::IError& error) {
        context.reporter.Error(standalone::Narrow(error.Message()));
    } catch (const std::bad_alloc&) {
        context.reporter.Error("out of memory");
    } catch (const std::exception& error) {
        context.reporter.Error(error.what());
    }
    return kDataError;
}

int ParseAndRun(CLI::App& program, std::vector<std::string> arguments, const GlobalOptions& options,
                app::CommandContext& context) {
    try {
        std::reverse(arguments.begin(), arguments.end());  // as CLI11 takes a vector
        program.parse(arguments);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            context.run = [&] {  // --help and --version
                std::ostringstream text;
                program.exit(error, text, text);
                return Print(text.str());
            };
            return RunCommand(context);
        }
        context.reporter.Error(app::UsageProblem(program, error));
        return kUsageError;
    }
    ApplyGlobalOptions(options, context);
    return RunCommand(context);
}

}  // namespace

int main(int argc, char** argv) {
    app::IgnoreClosedPipes();
    app::PrepareStandardStreams();
    app::CommandContext context(StderrReporter());
    std::vector<std::string> arguments = app::ProgramArguments(argc, argv);
    arguments.erase(arguments.begin());

    CLI::App program(
        "Reads, writes, draws and checks MapInfo Interchange Format files (.mif, .mid)", "qolf");
    program.allow_windows_style_options(false);  // "/maps/roads.mif" is a file everywhere
    GlobalOptions options;
    program.set_version_flag("--version", std::string("qolf ") + QOLF_VERSION);
    AddCommonOptions(program, options, context);
    program.require_subcommand(1);
    program.fallthrough();  // --version after a command
    const std::string command = NamedCommand(program, arguments);
    try {
        app::AddCommands(program, context, command, arguments);
    } catch (const app::Failure& failure) {
        context.reporter.Error(failure.what());
        return kDataError;
    }
    AddHelpCommand(program, options, context);
    AddCommonOptionsBelow(program, options, context);
    program.footer(kProgramFooter);
    // The parser itself would only say that a command is missing.
    if (!command.empty() && FindCommand(program, command) == nullptr) {
        context.reporter.Error(app::UnknownCommand(program, command));
        return kUsageError;
    }
    if (arguments.empty()) {
        std::cerr << HelpOf(program);
        return kUsageError;
    }
    return ParseAndRun(program, std::move(arguments), options, context);
}
