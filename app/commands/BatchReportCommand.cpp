// The options of qolf batch-report.
#include "app/batch/BatchReport.h"
#include "app/commands/Command.h"
#include "app/commands/NumberRules.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace app {
namespace {

constexpr const char* kBatchReportFooter = R"(
Reads what the parts of qolf convert --shard K/N --output-dir FOLDER have
written to FOLDER/.qolf, wherever they ran.

Exit status: 0 every file is done, 1 some failed or are missing,
2 a wrong command line.

Examples:
  qolf batch-report out/
  qolf batch-report --json out/ | jq '.failed[].input')";

}  // namespace

void AddBatchReportCommand(CLI::App& program, CommandContext& context) {
    const auto options = std::make_shared<BatchReportOptions>();
    CLI::App* command =
        program.add_subcommand("batch-report", "Say what became of a batch in several parts");
    command->add_option("folder", options->folder, "The output folder of the parts")
        ->type_name("FOLDER")
        ->required();
    command->add_flag("--json", options->json, "Print one JSON document, with all files");
    command
        ->add_option("--max", options->most,
                     "Files shown that failed, and as many that are missing (100); 0 shows all")
        ->type_name("COUNT")
        ->check(WholeNumber());
    command->footer(kBatchReportFooter);
    command->callback(
        [options, &context] { context.run = [options] { return RunBatchReport(*options); }; });
}

}  // namespace app
