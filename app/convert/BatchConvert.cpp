#include "app/convert/BatchConvert.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/batch/BatchRun.h"
#include "app/batch/ShardRun.h"
#include "app/convert/ConvertRun.h"
#include "app/convert/LayerChoice.h"
#include "app/convert/SystemPlan.h"
#include "app/crs/Definitions.h"
#include "app/formats/Formats.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {
namespace {

// A wrong system is said once, and not for every file.
void CheckSystem(const ConvertOptions& options, Reporter& reporter) {
    if (!options.crs.empty() && options.crs != kKeepSystem) {
        static_cast<void>(SystemOfOption("--crs", options.crs, reporter));
    }
}

// The layers of a package that become a file each; none for an input that becomes one file.
std::vector<std::string> LayersOf(const ConvertOptions& options, const SourceOptions& sourceOptions,
                                  const std::filesystem::path& input) {
    const std::string argument = ArgumentOfPath(input);
    const Format& format = FormatOfPath(argument);
    if (!format.holds.layers) {
        return {};
    }
    try {
        const std::unique_ptr<Source> source = format.openSource(argument, sourceOptions);
        const std::vector<std::string> names = source->LayerNames();
        std::vector<std::string> layers;
        for (const std::size_t layer : ChosenLayers(*source, options.layers)) {
            layers.push_back(names[layer]);
        }
        return names.size() > 1 ? layers : std::vector<std::string>();
    } catch (const Failure&) {
        return {};  // its conversion says why
    }
}

}  // namespace

int ConvertMany(const ConvertOptions& options, Reporter& reporter) {
    if (options.format.empty()) {
        throw UsageError("--output-dir needs --to, which names the format of the outputs");
    }
    const Format& format = FormatOfName(options.format);
    CheckStyles(options, format);
    if (options.merge) {
        throw UsageError("--merge makes one output, and --output-dir a file each");
    }
    if (options.append) {
        throw UsageError("--append is for one output, and --output-dir makes a file each");
    }
    const std::string_view extension = format.extensions.front();
    const SourceOptions sourceOptions = SourceOptionsOf(options, reporter);
    LayersOfInput layersOf;
    if (!format.holds.layers) {
        layersOf = [&](const std::filesystem::path& input) {
            return LayersOf(options, sourceOptions, input);
        };
    }
    CheckSystem(options, reporter);
    const std::filesystem::path folder = PathFromArgument(options.outputFolder);
    BatchOptions batch;
    batch.jobs = options.jobs;
    batch.resume = options.resume;
    batch.ifExists = options.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    batch.convert = [&options](const BatchItem& item, IfExists ifExists,
                               Reporter& itemReporter) -> ConvertedItem {
        ConvertOptions one = options;
        one.paths = {ArgumentFromPath(item.input), ArgumentFromPath(item.output)};
        one.outputFolder.clear();
        if (!item.layer.empty()) {
            one.layers = {item.layer};
        }
        one.overwrite = ifExists == IfExists::Overwrite;
        ConvertedItem converted;
        converted.exitCode = RunConvert(one, itemReporter, &converted.features);
        return converted;
    };
    if (const std::optional<int> exitCode = RunBatchTask(batch)) {
        return *exitCode;
    }
    batch.items = PlanBatch(options.paths, folder, std::string(extension.substr(1)),
                            FormatOfName("mif").extensions, layersOf);
    return options.shard.empty() ? RunBatch(batch, reporter)
                                 : RunShard(batch, folder, ShardOf(options.shard), reporter);
}

}  // namespace app
