// The options of qolf trace.
#include "app/commands/Command.h"
#include "app/trace/TraceRun.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kTraceFooter = R"(
The file is handed to the module as it is: no line is put into its header, and texts are read as
Windows-1252 unless --encoding says otherwise.

Examples:
  qolf trace roads.mif | head
  qolf trace --no-store --option-string "AreasToCurves=1" roads.mif
  qolf trace a.mif | qolf replay - b.mif)";

}  // namespace

void AddTraceCommand(CLI::App& program, CommandContext& context) {
    auto options = std::make_shared<TraceOptions>();
    CLI::App* command =
        program.add_subcommand("trace", "Print what the import filter tells its host");
    command->add_option("file", options->file, "The file to import")->type_name("FILE")->required();
    command
        ->add_option("--option-string", options->optionString,
                     "Options for the filter: \"AreasToCurves=1;IgnoreStyles=1\"")
        ->type_name("TEXT");
    command->add_flag("--no-store", options->noStore, "Neither read nor write stored options");
    command->add_option("--encoding", options->encoding, "Encoding of the texts")
        ->type_name("NAME");
    command->footer(kTraceFooter);
    command->callback([options, &context] {
        context.run = [options, &context] {
            options->modulePath = context.modulePath;
            const Inputs inputs = context.Resolve({options->file}, InputRule::OneFile);
            options->file = inputs.arguments.front();
            return RunTrace(*options, context.reporter);
        };
    });
}

}  // namespace app
