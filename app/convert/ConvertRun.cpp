#include "app/convert/ConvertRun.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/convert/LayerChoice.h"
#include "app/convert/LayerConversion.h"
#include "app/convert/MergedSource.h"
#include "app/convert/SystemPlan.h"
#include "app/crs/Definitions.h"
#include "app/formats/Formats.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace app {
namespace {

// One file that the user named, and its format.
struct NamedFile {
    std::string argument;
    const Format& format;
};

// What the command line names, with formats and options resolved.
struct Conversion {
    std::vector<NamedFile> inputs;
    NamedFile output;
    SourceOptions sourceOptions;
    TargetOptions targetOptions;
};

NamedFile OutputOf(const ConvertOptions& options) {
    const std::string& argument = options.paths.back();
    return {argument,
            options.format.empty() ? FormatOfPath(argument) : FormatOfName(options.format)};
}

NamedFile InputOf(const std::string& argument) {
    const Format& format = FormatOfPath(argument);
    const bool isOneFile = format.mainFile == nullptr;
    return {isOneFile ? argument : ArgumentOfPath(format.mainFile(PathFromArgument(argument))),
            format};
}

void CheckNoFolder(const std::string& input) {
    std::error_code error;
    if (std::filesystem::is_directory(PathFromArgument(input), error)) {
        throw UsageError(input + ": is a folder; --output-dir FOLDER and --to FORMAT convert the "
                                 "files in it");
    }
}

// Finds the formats and checks all names, before anything is read or written.
Conversion Resolve(const ConvertOptions& options, Reporter& reporter) {
    if (options.paths.size() < 2) {
        throw UsageError("convert needs an input and an output, or --output-dir");
    }
    Conversion conversion{{}, OutputOf(options), {}, TargetOptionsOf(options)};
    const NamedFile& output = conversion.output;
    for (std::size_t i = 0; i + 1 < options.paths.size(); ++i) {
        CheckNoFolder(options.paths[i]);
        conversion.inputs.push_back(InputOf(options.paths[i]));
        const std::string& input = conversion.inputs.back().argument;
        if (input != "-" && output.argument != "-") {
            CheckNotInput(PathFromArgument(input), PathFromArgument(output.argument));
        }
    }
    CheckStyles(options, output.format);
    if (output.format.checkTarget != nullptr) {
        output.format.checkTarget(output.argument);
    }
    if (conversion.inputs.size() > 1 && !output.format.holds.layers && !options.merge) {
        throw UsageError("several inputs become one output only as a GeoPackage, or as one layer "
                         "with --merge; use --output-dir for a file each");
    }
    if (options.append && !output.format.holds.appending) {
        throw UsageError("--append is for GeoPackages");
    }
    if (options.append && options.overwrite) {
        throw UsageError("--append keeps what is there, and --overwrite replaces it");
    }
    if (options.withSourceColumn && !options.merge) {
        throw UsageError("--source-column is for --merge");
    }
    if (output.argument != "-") {
        CheckOutput(PathFromArgument(output.argument), conversion.targetOptions.ifExists);
    }
    conversion.sourceOptions = SourceOptionsOf(options, reporter);
    const bool isReadEncoded = std::ranges::any_of(
        conversion.inputs, [](const NamedFile& input) { return input.format.holds.encodings; });
    if (!isReadEncoded && options.outputEncoding.empty()) {
        conversion.targetOptions.encoding = options.encoding;
    }
    return conversion;
}

// Whether the user wants exactly what the module makes of a pair.
bool IsCopy(const ConvertOptions& options, const Conversion& conversion) {
    const Format& format = conversion.output.format;
    return options.asIs && !options.merge && format.copy != nullptr &&
           &conversion.inputs.front().format == &format && options.select.empty() &&
           options.where.empty() && options.box.empty() && !options.limit &&
           (options.crs.empty() || options.crs == kKeepSystem);
}

// Returns how many features were written.
std::uint64_t ConvertLayer(const ConvertOptions& options, Source& source, std::size_t layer,
                           const Conversion& conversion, Target& target, Reporter& reporter) {
    LayerFacts facts = source.Begin(layer, reporter);
    const bool hasLayers = source.LayerNames().size() > 1;
    const std::string subject = source.Name() + (hasLayers ? ", layer " + facts.name : "");
    if (!hasLayers && options.layers.size() == 1) {
        facts.name = options.layers.front();
    }
    LayerConversion way(options, conversion.output.format, target, reporter);
    if (way.Begin(std::move(facts), subject)) {
        source.Read(reporter, [&way](Feature& feature) { return way.Take(feature); });
    }
    way.End();
    return way.WrittenCount();
}

// The layers of an input that the output is to have. Throws UsageError for several that it can't
// hold.
std::vector<std::size_t> LayersOf(const ConvertOptions& options, const NamedFile& input,
                                  const Source& source, bool canHoldLayers) {
    if (!input.format.holds.layers) {
        return {0};
    }
    if (options.layers.empty() && !canHoldLayers) {
        return {source.LayerNamed("")};
    }
    const std::vector<std::size_t> layers = ChosenLayers(source, options.layers);
    if (layers.size() > 1 && !canHoldLayers) {
        throw UsageError(source.Name() +
                         ": several layers become one output only as a GeoPackage, or "
                         "as one layer with --merge; use --output-dir for a file each");
    }
    if (layers.empty()) {
        static_cast<void>(source.LayerNamed(""));  // throws: there is none
    }
    return layers;
}

// Returns how many features were written.
std::uint64_t ConvertInput(const ConvertOptions& options, const NamedFile& input,
                           const Conversion& conversion, Target& target, Reporter& reporter) {
    const std::unique_ptr<Source> source =
        input.format.openSource(input.argument, conversion.sourceOptions);
    const bool canHoldLayers = conversion.output.format.holds.layers;
    std::uint64_t written = 0;
    for (const std::size_t layer : LayersOf(options, input, *source, canHoldLayers)) {
        written += ConvertLayer(options, *source, layer, conversion, target, reporter);
    }
    return written;
}

// Every layer of every input, to be merged.
std::vector<MergePart> PartsOf(const ConvertOptions& options, const Conversion& conversion) {
    std::vector<MergePart> parts;
    for (const NamedFile& input : conversion.inputs) {
        const auto open = [&input, &conversion] {
            return input.format.openSource(input.argument, conversion.sourceOptions);
        };
        if (!input.format.holds.layers) {
            parts.push_back({open, 0, PathText(PathFromArgument(input.argument))});
            continue;
        }
        const std::unique_ptr<Source> source = open();
        const std::vector<std::string> names = source->LayerNames();
        for (const std::size_t layer : LayersOf(options, input, *source, /*canHoldLayers=*/true)) {
            parts.push_back(
                {open, layer, source->Name() + (names.size() > 1 ? ":" + names[layer] : "")});
        }
    }
    return parts;
}

// Where a conversion of layers with several systems ends; null when it keeps that of its input.
SystemPtr WantedSystem(const ConvertOptions& options, const Format& output, Reporter& reporter) {
    if (options.crs == kKeepSystem) {
        return nullptr;
    }
    if (!options.crs.empty()) {
        return SystemOfOption("--crs", options.crs, reporter);
    }
    return output.systems == SystemRule::AsClause
               ? nullptr
               : std::make_shared<const CoordinateSystem>(Wgs84System());
}

std::uint64_t ConvertMerged(const ConvertOptions& options, const Conversion& conversion,
                            Target& target, Reporter& reporter) {
    const NamedFile& output = conversion.output;
    MergeSettings settings;
    settings.name =
        output.argument == "-" ? "merged" : PathText(PathFromArgument(output.argument).stem());
    settings.withSourceColumn = options.withSourceColumn;
    settings.segments = options.segments;
    settings.wantedSystem = WantedSystem(options, output.format, reporter);
    MergedSource source(PartsOf(options, conversion), std::move(settings));
    return ConvertLayer(options, source, 0, conversion, target, reporter);
}

// Returns false when there was nothing to write.
bool Convert(const ConvertOptions& options, const Conversion& conversion, Reporter& reporter,
             std::optional<std::uint64_t>& features) {
    const NamedFile& output = conversion.output;
    if (IsCopy(options, conversion)) {
        SourceOptions sourceOptions = conversion.sourceOptions;
        if (sourceOptions.assumedSystem != nullptr) {
            sourceOptions.assumedSystem =
                AsClause(*sourceOptions.assumedSystem, "--assume-crs: ", reporter);
        }
        return output.format.copy(conversion.inputs.front().argument, sourceOptions,
                                  output.argument, conversion.targetOptions, reporter);
    }
    const std::unique_ptr<Target> target =
        output.format.openTarget(output.argument, conversion.targetOptions, reporter);
    if (options.merge) {
        features = ConvertMerged(options, conversion, *target, reporter);
    } else {
        features = 0;
        for (const NamedFile& input : conversion.inputs) {
            *features += ConvertInput(options, input, conversion, *target, reporter);
        }
    }
    return target->Finish();
}

}  // namespace

int RunConvert(const ConvertOptions& options, Reporter& reporter,
               std::optional<std::uint64_t>* features) {
    const Conversion conversion = Resolve(options, reporter);
    if (conversion.output.argument == "-" && IsTerminal(stdout)) {
        reporter.SetProgress(false);  // the features go to the terminal
    }
    std::optional<std::uint64_t> written;
    const bool hasOutput = Convert(options, conversion, reporter, written);
    if (features != nullptr) {
        *features = hasOutput ? written : 0;
    }
    if (!hasOutput) {
        reporter.Warning(options.paths.front() +
                         ": holds no objects that are drawn; nothing was written");
    }
    return 0;
}

}  // namespace app
