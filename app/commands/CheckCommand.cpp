// The options of qolf check.
#include "app/check/CheckRun.h"
#include "app/commands/Command.h"
#include "app/commands/NumberRules.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kCheckFooter = R"(
Each finding has the file, the line, a severity and a code that does not change;
--codes lists them all. --fix writes a repaired copy of the pair for what has
one right repair, and leaves the input alone; where there is nothing to repair,
it writes nothing.

Exit status: 0 nothing wrong (warnings and notes allowed), 1 errors,
2 a wrong command line, 3 with --strict: warnings only.

Examples:
  qolf check roads.mif
  qolf check --strict --json *.mif > findings.json
  qolf check GEOFLA.zip places.gpkg roads.geojson
  qolf check roads.mif --fix repaired.mif)";

}  // namespace

void AddCheckCommand(CLI::App& program, CommandContext& context) {
    const auto arguments = std::make_shared<CheckArguments>();
    CLI::App* command =
        program.add_subcommand("check", "Find what is wrong with files, and repair it");
    command->add_option("files", arguments->files, "Files, folders and archives to check")
        ->type_name("FILE");
    command->add_flag("--json", arguments->json, "Print one JSON document");
    command->add_flag("--strict", arguments->strict, "Exit with 3 when there are warnings");
    command->add_option("--fix", arguments->fix, "Write a repaired copy of the pair")
        ->type_name("OUT.mif");
    command->add_flag("--overwrite", arguments->overwrite, "Replace OUT.mif if it exists");
    command
        ->add_option("--max", arguments->maxPerCode,
                     "Findings of one code shown for a file (100); 0 shows all")
        ->type_name("COUNT")
        ->check(WholeNumber());
    command->add_flag("--as-is", arguments->asIs,
                      "Say nothing of what qolf itself would read right");
    command
        ->add_option("--encoding", arguments->encoding,
                     "Encoding of the texts, whatever the headers say")
        ->type_name("NAME");
    command
        ->add_option("--assume-crs", arguments->assumedCrs,
                     "Coordinate system of the files, whatever their headers say")
        ->type_name("SYSTEM");
    command->add_flag("--codes", arguments->codes, "List all codes with their meaning");
    command->footer(kCheckFooter);
    command->callback([arguments, &context] {
        context.run = [arguments, &context] {
            if (arguments->codes) {
                return PrintCodes();
            }
            const Inputs inputs = context.Resolve(arguments->files, InputRule::Files);
            arguments->files = inputs.arguments;
            CheckOptions options = CheckedCheckOptions(*arguments);
            options.modulePath = context.modulePath;
            if (!arguments->assumedCrs.empty()) {
                options.assumedSystem =
                    context.systemOfOption("--assume-crs", arguments->assumedCrs, context.reporter);
            }
            return RunCheck(options, context.reporter);
        };
    });
}

}  // namespace app
