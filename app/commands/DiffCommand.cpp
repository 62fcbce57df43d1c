// The options of qolf diff.
#include "app/base/Errors.h"
#include "app/commands/Command.h"
#include "app/diff/DiffRun.h"
#include "host/shr/IError.h"
#include "standalone/Text.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace app {
namespace {

constexpr const char* kDiffFooter = R"(
Compares geometries and values, and leaves styles alone. Files may be of
different formats and coordinate systems; layers and columns are found by name.

Exit status: 0 the same, 1 different, 2 trouble.

Examples:
  qolf diff old.mif new.mif
  qolf diff --key id old.mif new.gpkg
  qolf diff --tolerance 0.01 roads.mif roads.geojson
  qolf diff --json --key id old.gpkg new.gpkg | jq '.layers[].changed')";

// Errors have the exit status of diff's.
int RunAsDiff(DiffOptions& options, CommandContext& context) {
    try {
        options.source.noStore = true;
        options.source.modulePath = context.modulePath;
        const Inputs left = context.Resolve({options.left}, InputRule::OneFile);
        const Inputs right = context.Resolve({options.right}, InputRule::OneFile);
        options.left = left.arguments.front();
        options.right = right.arguments.front();
        return RunDiff(options, context.reporter);
    } catch (const shr::IError& error) {
        throw UsageError(standalone::Narrow(error.Message()));
    } catch (const ClosedPipe&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw UsageError("out of memory");
    } catch (const std::exception& error) {
        throw UsageError(error.what());
    }
}

std::vector<std::string> SplitAtCommas(const std::vector<std::string>& texts) {
    std::vector<std::string> words;
    for (const std::string& text : texts) {
        for (std::size_t begin = 0; begin <= text.size();) {
            const std::size_t end = std::min(text.find(',', begin), text.size());
            words.push_back(text.substr(begin, end - begin));
            begin = end + 1;
        }
    }
    return words;
}

void AddDiffOptions(CLI::App& command, DiffOptions& options) {
    command.add_option("a", options.left, "The first file, of any format")
        ->type_name("FILE")
        ->required();
    command.add_option("b", options.right, "The second file")->type_name("FILE")->required();
    command
        .add_option("--key", options.key,
                    "Compare objects with the same value of this column, in any order")
        ->type_name("COLUMN");
    command
        .add_option("--tolerance", options.tolerance,
                    "Take coordinates that differ by up to this much for the same")
        ->type_name("NUMBER");
    command
        .add_option_function<std::vector<std::string>>(
            "--select",
            [&options](const std::vector<std::string>& texts) {
                options.select = SplitAtCommas(texts);
            },
            "Columns to compare; may be given several times")
        ->type_name("NAME,...")
        ->allow_extra_args(false);
    command
        .add_option("--where", options.where,
                    "Compare the objects of which this SQL expression is true")
        ->type_name("EXPRESSION");
    command.add_option("--layer", options.layer, "The layer of both files to compare")
        ->type_name("NAME");
    command.add_flag("--json", options.json, "Print one JSON document");
    command.add_option("--max", options.most, "Objects printed of a layer (100); 0 prints all")
        ->type_name("COUNT");
    command
        .add_option("--segments", options.segments,
                    "Edges of a full turn when one file has curves and the other lines")
        ->type_name("N")
        ->check(CLI::Range(4, 100000))
        ->capture_default_str();
    command.add_flag("--as-is", options.source.asIs, "Hand MIF files to the module as they are");
    command
        .add_option("--assume-crs", options.assumedCrs,
                    "Coordinate system of the MIF files, whatever their headers say")
        ->type_name("SYSTEM");
    command
        .add_option("--encoding", options.source.encoding,
                    "Encoding of the MIF files' texts, whatever their headers say")
        ->type_name("NAME");
}

}  // namespace

void AddDiffCommand(CLI::App& program, CommandContext& context) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* command = program.add_subcommand("diff", "Say what differs between two files");
    AddDiffOptions(*command, *options);
    command->footer(kDiffFooter);
    command->callback([options, &context] {
        context.run = [options, &context] { return RunAsDiff(*options, context); };
    });
}

}  // namespace app
