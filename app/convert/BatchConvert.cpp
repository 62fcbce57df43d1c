#include "app/convert/BatchConvert.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/batch/BatchRun.h"
#include "app/batch/ShardRun.h"
#include "app/convert/ConvertRun.h"
#include "app/crs/Definitions.h"
#include "app/formats/Formats.h"

namespace app {
namespace {

// What is wrong with these arguments is said once, and not for every file.
void CheckSystems(const ConvertOptions& options, Reporter& reporter) {
    if (!options.crs.empty() && options.crs != "keep") {
        static_cast<void>(SystemOfOption("--crs", options.crs, reporter));
    }
    static_cast<void>(SourceOptionsOf(options, reporter));
}

}  // namespace

int ConvertMany(const ConvertOptions& options, Reporter& reporter) {
    if (options.format.empty()) {
        throw UsageError("--output-dir needs --to, which names the format of the outputs");
    }
    const Format& format = FormatOfName(options.format);
    CheckStyles(options, format);
    const std::string_view extension = format.extensions.front();
    CheckSystems(options, reporter);
    const std::filesystem::path folder = PathFromArgument(options.outputFolder);
    BatchOptions batch;
    batch.items = PlanBatch(options.paths, folder, std::string(extension.substr(1)),
                            FormatOfName("mif").extensions);
    batch.jobs = options.jobs;
    batch.resume = options.resume;
    batch.ifExists = options.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    batch.convert = [&options](const BatchItem& item, IfExists ifExists,
                               Reporter& itemReporter) -> ConvertedItem {
        ConvertOptions one = options;
        one.paths = {item.input.string(), item.output.string()};
        one.outputFolder.clear();
        one.overwrite = ifExists == IfExists::Overwrite;
        ConvertedItem converted;
        converted.exitCode = RunConvert(one, itemReporter, &converted.features);
        return converted;
    };
    return options.shard.empty() ? RunBatch(batch, reporter)
                                 : RunShard(batch, folder, ShardOf(options.shard), reporter);
}

}  // namespace app
