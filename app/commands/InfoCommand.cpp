// The options of qolf info.
#include "app/commands/Command.h"
#include "app/info/InfoRun.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kInfoFooter = R"(
Examples:
  qolf info roads.mif
  qolf info --count *.mif
  qolf info --json roads.mif | jq '.files[0].columns')";

}  // namespace

void AddInfoCommand(CLI::App& program, CommandContext& context) {
    auto options = std::make_shared<InfoOptions>();
    CLI::App* command = program.add_subcommand("info", "Say what MIF files hold");
    command->add_option("files", options->files, "Files to look at")->type_name("FILE")->required();
    command->add_flag("--json", options->json, "Print one JSON document");
    command->add_flag("--count", options->count, "Read whole files: objects, extent and rows");
    command->add_flag("--as-is", options->asIs, "Hand files to the module as they are");
    command
        ->add_option("--encoding", options->encoding,
                     "Encoding of the texts, whatever the header says")
        ->type_name("NAME");
    const auto assumedCrs = std::make_shared<std::string>();
    command
        ->add_option("--assume-crs", *assumedCrs,
                     "Coordinate system of the files, whatever their headers say")
        ->type_name("SYSTEM");
    command->footer(kInfoFooter);
    command->callback([options, assumedCrs, &context] {
        context.run = [options, assumedCrs, &context] {
            if (!assumedCrs->empty()) {
                options->assumedSystem =
                    context.systemOfOption("--assume-crs", *assumedCrs, context.reporter);
            }
            options->modulePath = context.modulePath;
            options->identify = context.identify;
            return RunInfo(*options, context.reporter);
        };
    });
}

}  // namespace app
