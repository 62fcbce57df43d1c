#include "app/convert/ConvertRun.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/convert/LayerConversion.h"
#include "app/convert/SystemPlan.h"
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
    if (conversion.inputs.size() > 1 && !output.format.holds.layers) {
        throw UsageError("several inputs become one output only as a GeoPackage; use --output-dir "
                         "for a file each");
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
    return options.asIs && format.copy != nullptr && &conversion.inputs.front().format == &format &&
           options.select.empty() && options.where.empty() && options.box.empty() &&
           !options.limit && (options.crs.empty() || options.crs == "keep");
}

void ConvertInput(const ConvertOptions& options, const NamedFile& input,
                  const Conversion& conversion, Target& target, Reporter& reporter) {
    const std::unique_ptr<Source> source =
        input.format.openSource(input.argument, conversion.sourceOptions);
    const std::size_t layer = input.format.holds.layers ? source->LayerNamed(options.layer) : 0;
    LayerFacts facts = source->Begin(layer, reporter);
    if (!options.layer.empty()) {
        facts.name = options.layer;
    }
    LayerConversion way(options, conversion.output.format, target, reporter);
    if (way.Begin(std::move(facts), source->Name())) {
        source->Read(reporter, [&way](Feature& feature) { return way.Take(feature); });
    }
    way.End();
}

// Returns false when there was nothing to write.
bool Convert(const ConvertOptions& options, const Conversion& conversion, Reporter& reporter) {
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
    for (const NamedFile& input : conversion.inputs) {
        ConvertInput(options, input, conversion, *target, reporter);
    }
    return target->Finish();
}

}  // namespace

int RunConvert(const ConvertOptions& options, Reporter& reporter) {
    const Conversion conversion = Resolve(options, reporter);
    if (conversion.output.argument == "-" && IsTerminal(stdout)) {
        reporter.SetProgress(false);  // the features go to the terminal
    }
    if (!Convert(options, conversion, reporter)) {
        reporter.Warning(options.paths.front() +
                         ": holds no objects that are drawn; nothing was written");
    }
    return 0;
}

}  // namespace app
