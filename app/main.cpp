// The qolf command: reads the command line, runs the subcommand that it names, and turns errors
// into one line on stderr and an exit code: 0 done, 1 the data could not be processed, 2 the
// command line is wrong.
#include "app/Commands.h"
#include "app/Errors.h"
#include "app/platform/System.h"
#include "host/shr/IError.h"
#include "standalone/Text.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <vector>

namespace {

constexpr int kDataError = 1;
constexpr int kUsageError = 2;

constexpr const char* kFooter = R"(
Examples:
  qolf info roads.mif                     what the file holds
  qolf convert roads.mif roads.geojson    for a web map
  qolf convert places.geojson places.mif  back again
  qolf help convert                       everything about one command)";

app::Reporter StderrReporter() {
    const bool isTerminal = app::IsTerminal(stderr);
    const char* noColor = std::getenv("NO_COLOR");
    return {stderr, isTerminal, isTerminal && (noColor == nullptr || *noColor == '\0')};
}

struct GlobalOptions {
    bool quiet = false;
    bool verbose = false;
    bool progress = false;
    bool noProgress = false;
    std::string helpTopic;
};

void AddGlobalOptions(CLI::App& program, GlobalOptions& options, app::CommandContext& context) {
    program.add_flag("-q,--quiet", options.quiet, "No warnings, notes and progress");
    program.add_flag("-v,--verbose", options.verbose, "Say which versions and settings are used");
    program.add_flag("--progress", options.progress, "Show progress even when not on a terminal");
    program.add_flag("--no-progress", options.noProgress, "Never show progress");
    program.add_option("--module", context.modulePath, "The filter module to load")
        ->type_name("FILE");
    program.set_version_flag("--version", std::string("qolf ") + QOLF_VERSION);
}

// Null for a name that no command has.
const CLI::App* FindCommand(const CLI::App& program, const std::string& name) {
    for (const CLI::App* command : program.get_subcommands(nullptr)) {
        if (command->get_name() == name) {
            return command;
        }
    }
    return nullptr;
}

void AddHelpCommand(CLI::App& program, GlobalOptions& options, app::CommandContext& context) {
    CLI::App* help = program.add_subcommand("help", "Explain a command");
    help->add_option("command", options.helpTopic, "The command to explain")->type_name("COMMAND");
    help->callback([&program, &options, &context] {
        context.run = [&program, &options] {
            if (options.helpTopic.empty()) {
                std::cout << program.help() << std::flush;
                return 0;
            }
            const CLI::App* command = FindCommand(program, options.helpTopic);
            if (command == nullptr) {
                throw app::UsageError("there is no command " + options.helpTopic);
            }
            std::cout << command->help(program.get_name()) << std::flush;
            return 0;
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
    if (options.noProgress || app::IsTerminal(stdout)) {
        context.reporter.SetProgress(options.progress && !options.noProgress);
    }
}

// Whether the argument is an option that takes the next argument as its value.
bool TakesNext(const CLI::App& program, const std::string& argument) {
    const CLI::Option* option = program.get_option_no_throw(argument);
    return option != nullptr && option->get_items_expected_max() > 0;
}

// The first argument that is no option; empty when there is none.
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
            return program.exit(error, std::cout, std::cerr);  // --help and --version
        }
        context.reporter.Error(std::string(error.what()) + "; see qolf --help");
        return kUsageError;
    }
    ApplyGlobalOptions(options, context);
    return RunCommand(context);
}

}  // namespace

int main(int argc, char** argv) {
    app::IgnoreClosedPipes();
    app::UseBinaryStandardStreams();
    app::CommandContext context(StderrReporter());
    std::vector<std::string> arguments = app::ProgramArguments(argc, argv);
    arguments.erase(arguments.begin());

    CLI::App program(
        "Reads, writes, draws and checks MapInfo Interchange Format files (.mif, .mid)", "qolf");
    program.allow_windows_style_options(false);  // "/maps/roads.mif" is a file everywhere
    GlobalOptions options;
    AddGlobalOptions(program, options, context);
    program.require_subcommand(1);
    program.fallthrough();
    const std::string command = NamedCommand(program, arguments);
    try {
        app::AddCommands(program, context, command);
    } catch (const app::Failure& failure) {
        context.reporter.Error(failure.what());
        return kDataError;
    }
    AddHelpCommand(program, options, context);
    program.footer(kFooter);
    // The parser alone would only say that a command is missing.
    if (!command.empty() && FindCommand(program, command) == nullptr) {
        context.reporter.Error("there is no command '" + command + "'; qolf --help lists them");
        return kUsageError;
    }
    return ParseAndRun(program, std::move(arguments), options, context);
}
