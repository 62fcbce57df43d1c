// The options of qolf replay.
#include "app/commands/Command.h"
#include "app/trace/ReplayRun.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kReplayFooter = R"(
The input has one JSON object per line, as qolf trace prints it. Lines that are
not objects of an import are skipped.

Examples:
  qolf trace a.mif | qolf replay - b.mif
  qolf replay --trace --no-store objects.jsonl out.mif)";

}  // namespace

void AddReplayCommand(CLI::App& program, CommandContext& context) {
    auto options = std::make_shared<ReplayOptions>();
    CLI::App* command =
        program.add_subcommand("replay", "Write translation objects to a MIF/MID pair");
    command->add_option("input", options->input, "Objects as JSON Lines; - is standard input")
        ->type_name("FILE")
        ->required();
    command->add_option("output", options->output, "The .mif file to write")
        ->type_name("OUT.mif")
        ->required();
    command->add_flag("--trace", options->trace, "Print what the export filter tells its host");
    command->add_flag("--no-extent", options->noExtent, "Do not tell the filter the extent");
    command
        ->add_option("--option-string", options->optionString,
                     "Options for the filter: \"AreasToCurves=1;RenderText=0\"")
        ->type_name("TEXT");
    command->add_flag("--no-store", options->noStore, "Neither read nor write stored options");
    command->add_flag("--overwrite", options->overwrite, "Replace files that exist");
    command->add_option("--encoding", options->encoding, "Encoding of the texts written")
        ->type_name("NAME");
    command->footer(kReplayFooter);
    command->callback([options, &context] {
        context.run = [options, &context] {
            options->modulePath = context.modulePath;
            return RunReplay(*options, context.reporter);
        };
    });
}

}  // namespace app
