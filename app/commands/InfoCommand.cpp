// The options of qolf info.
#include "app/commands/Command.h"
#include "app/info/InfoRun.h"
#include "app/stats/StatsRun.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kInfoFooter = R"(
Examples:
  qolf info roads.mif
  qolf info --count *.mif
  qolf info --stats places.mif roads.gpkg
  qolf info GEOFLA.zip maps/ places.gpkg
  qolf info --json roads.mif | jq '.files[0].columns')";

StatsOptions StatsOptionsOf(const InfoOptions& info, const std::string& where) {
    StatsOptions options;
    options.files = info.files;
    options.where = where;
    options.json = info.json;
    options.source.asIs = info.asIs;
    options.source.noStore = true;
    options.source.encoding = info.encoding;
    options.source.modulePath = info.modulePath;
    options.source.assumedSystem = info.assumedSystem;
    return options;
}

}  // namespace

void AddInfoCommand(CLI::App& program, CommandContext& context) {
    auto options = std::make_shared<InfoOptions>();
    CLI::App* command = program.add_subcommand("info", "Say what files hold");
    command->add_option("files", options->files, "Files, folders and archives to look at")
        ->type_name("FILE")
        ->required();
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
    const auto isStats = std::make_shared<bool>(false);
    const auto where = std::make_shared<std::string>();
    CLI::Option* const stats = command->add_flag(
        "--stats", *isStats, "Statistics of objects and columns instead, of any format");
    command->add_option("--where", *where, "Count the objects of which this SQL expression is true")
        ->type_name("EXPRESSION")
        ->needs(stats);
    command->footer(kInfoFooter);
    command->callback([options, assumedCrs, isStats, where, &context] {
        context.run = [options, assumedCrs, isStats, where, &context] {
            if (!assumedCrs->empty()) {
                options->assumedSystem =
                    context.systemOfOption("--assume-crs", *assumedCrs, context.reporter);
            }
            options->modulePath = context.modulePath;
            options->identify = context.identify;
            const Inputs inputs = context.Resolve(options->files, InputRule::Files);
            options->files = inputs.arguments;
            if (*isStats) {
                return context.runStats(StatsOptionsOf(*options, *where), context.reporter);
            }
            options->openUnlessPair = context.openUnlessPair;
            return RunInfo(*options, context.reporter);
        };
    });
}

}  // namespace app
