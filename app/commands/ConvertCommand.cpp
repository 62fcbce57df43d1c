// The options of qolf convert.
#include "app/batch/ChildProcesses.h"
#include "app/commands/Command.h"
#include "app/commands/NumberRules.h"
#include "app/convert/BatchConvert.h"
#include "app/convert/ConvertRun.h"
#include "app/formats/Formats.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace app {
namespace {

constexpr const char* kConvertExamples = R"(
Examples:
  qolf convert roads.mif roads.geojson
  qolf convert roads.mif places.mif maps.gpkg       a layer for each file
  qolf convert GEOFLA.zip maps.gpkg                 the same for those in an archive
  qolf convert --crs EPSG:3301 in.geojson out.mif
  qolf convert --bbox 24,58,26,60 --select id,name roads.mif - | jq .
  qolf convert --where "pop > 1000 and name like 'A%'" places.mif a.geojson
  qolf convert --merge --source-column north.mif south.mif all.mif
  qolf convert --to mif --output-dir out/ maps.gpkg a file for each layer
  qolf convert --jobs 2 --to gpkg --output-dir out/ maps/
  qolf convert --shard 3/8 --resume --to gpkg --output-dir out/ files.txt)";

std::vector<std::string> Split(const std::string& text) {
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c == ',') {
            words.emplace_back();
        } else {
            words.back() += c;
        }
    }
    return words;
}

// Throws CLI::ValidationError, which the parser reports.
std::vector<double> BoxOf(const std::string& text) {
    std::vector<double> numbers;
    for (const std::string& word : Split(text)) {
        double number = 0.0;
        if (!CLI::detail::lexical_cast(word, number)) {
            throw CLI::ValidationError("--bbox", "\"" + word + "\" is not a number");
        }
        numbers.push_back(number);
    }
    if (numbers.size() != 4) {
        throw CLI::ValidationError("--bbox", "takes four numbers: minx,miny,maxx,maxy");
    }
    // The two corners may come in any order.
    return {std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
            std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
}

void AddSelection(CLI::App& command, ConvertOptions& options) {
    command
        .add_option("--layer", options.layers,
                    "Layers to read from a GeoPackage, or name of the layer to write")
        ->type_name("NAME,...")
        ->allow_extra_args(false);
    command.add_flag("--merge", options.merge, "Make one layer of all inputs");
    command.add_flag("--source-column", options.withSourceColumn,
                     "With --merge: a column \"source\" with the input of each object");
    command
        .add_option_function<std::vector<std::string>>(
            "--select",
            [&options](const std::vector<std::string>& texts) {
                for (const std::string& text : texts) {
                    const std::vector<std::string> names = Split(text);
                    options.select.insert(options.select.end(), names.begin(), names.end());
                }
            },
            "Columns to keep, in this order; may be given several times")
        ->type_name("NAME,...")
        ->allow_extra_args(false);
    command
        .add_option("--where", options.where,
                    "Keep the objects of which this SQL expression over their columns is true")
        ->type_name("EXPRESSION");
    command
        .add_option_function<std::string>(
            "--bbox", [&options](const std::string& text) { options.box = BoxOf(text); },
            "Keep what meets this box of output coordinates: minx,miny,maxx,maxy")
        ->type_name("BOX");
    command.add_option("--limit", options.limit, "Stop after so many features")
        ->type_name("N")
        ->check(WholeNumber());
}

void AddInput(CLI::App& command, ConvertOptions& options) {
    command
        .add_option("--crs", options.crs,
                    "Coordinate system of the output: keep, wgs84, EPSG:CODE, a PROJ string or WKT")
        ->type_name("SYSTEM");
    command
        .add_option("--assume-crs", options.assumedCrs,
                    "Coordinate system of a MIF input, whatever its header says")
        ->type_name("SYSTEM");
    // Files are read as they were meant in any case; scripts may still say so.
    command.add_flag("--fix")->group("");
    command.add_option("--encoding", options.encoding, "Encoding of the MIF file's texts")
        ->type_name("NAME");
    command
        .add_option("--output-encoding", options.outputEncoding,
                    "Encoding of a MIF output's texts, whatever its input's is")
        ->type_name("NAME");
    command.add_option("--precision", options.precision, "Decimals of the output's coordinates")
        ->type_name("N")
        ->check(WholeNumber(0, 15));
    command.add_flag("--as-is", options.asIs, "Give the file to the module without any care");
    command
        .add_option("--segments", options.segments, "Edges of a full turn when curves become lines")
        ->type_name("N")
        ->check(WholeNumber(4, 100000))
        ->capture_default_str();
    command.add_flag("--styles", options.withStyles,
                     "Write the styles to GeoJSON or a GeoPackage, too");
    command.add_flag("--overwrite", options.overwrite, "Replace files that exist");
    command.add_flag("--append", options.append,
                     "Add to a GeoPackage that exists: new layers, or objects to a layer");
}

void AddExport(CLI::App& command, ConvertOptions& options) {
    command.add_flag("--areas-to-curves", options.areasToCurves, "Write areas to MIF as polylines");
    command.add_flag("--no-render-text", options.noRenderText, "Write no texts to MIF");
    command.add_flag("--no-render-markers", options.noRenderMarkers, "Write no points to MIF");
    command.add_flag("--defaults", options.useDefaults,
                     "With --as-is: start from the export's defaults, not from the stored options");
    command
        .add_option("--option-string", options.optionString,
                    "Options for the export filter: \"AreasToCurves=1;RenderText=0\"")
        ->type_name("TEXT");
    command.add_flag("--no-store", options.noStore,
                     "With --as-is: neither read nor write stored options");
}

void AddBatch(CLI::App& command, ConvertOptions& options) {
    command.add_option("--to", options.format, "Format: " + FormatNames())->type_name("FORMAT");
    command.add_option("--format", options.format)->group("");  // its name in other programs
    CLI::Option* const folder =
        command
            .add_option("--output-dir", options.outputFolder,
                        "Convert every file, and those in folders, to a file in this folder")
            ->type_name("FOLDER");
    command.add_option("--jobs", options.jobs, "Processes at a time with --output-dir")
        ->type_name("N")
        ->check(WholeNumber(1, 256))
        ->needs(folder);
    command
        .add_option("--shard", options.shard,
                    "Part K of N of the files, for N runs with one --output-dir, on any machines")
        ->type_name("K/N")
        ->needs(folder);
    command
        .add_flag("--resume", options.resume,
                  "Go on where an interrupted run with --output-dir stopped")
        ->needs(folder);
}

// Puts the files behind the inputs in their place. The result keeps what was unpacked.
Inputs ResolveInputsOf(ConvertOptions& options, CommandContext& context) {
    const bool hasOutput = options.outputFolder.empty();
    const auto end = options.paths.end() - (hasOutput ? 1 : 0);
    const InputRule rule = !hasOutput      ? InputRule::Folders
                           : options.merge ? InputRule::Files
                                           : InputRule::Archives;
    Inputs inputs = context.Resolve({options.paths.begin(), end}, rule);
    options.paths.erase(options.paths.begin(), end);
    options.paths.insert(options.paths.begin(), inputs.arguments.begin(), inputs.arguments.end());
    return inputs;
}

}  // namespace

void AddConvertCommand(CLI::App& program, CommandContext& context) {
    auto options = std::make_shared<ConvertOptions>();
    CLI::App* command = program.add_subcommand("convert", "Convert between MIF and other formats");
    command->add_option("files", options->paths, "Inputs, then the output; - is a standard stream")
        ->type_name("FILE")
        ->required();
    AddInput(*command, *options);
    AddSelection(*command, *options);
    AddExport(*command, *options);
    AddBatch(*command, *options);
    command->footer(
        "\nThe format follows from the extension; \"-\" is GeoJSON on a standard stream:\n" +
        FormatLines() + kConvertExamples);
    command->callback([options, &context] {
        context.run = [options, &context] {
            options->modulePath = context.modulePath;
            // A process of a batch has its one file, which the first process has unpacked.
            const Inputs inputs =
                TaskOfThisProcess() ? Inputs() : ResolveInputsOf(*options, context);
            return options->outputFolder.empty() ? RunConvert(*options, context.reporter)
                                                 : ConvertMany(*options, context.reporter);
        };
    });
}

}  // namespace app
